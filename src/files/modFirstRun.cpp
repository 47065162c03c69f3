#include "modFirstRun.h"

#include "Platform.h"

namespace strutwright {

namespace {

constexpr const char* Welcome = "Welcome to Strutwright.\n"
                                "Consult the help file for information\n"
                                "on getting the most from the program\n"
                                "\n"
                                "https://strutwright.example";

} // namespace

void firstRun() { ShowMessage(MessageIcon::Information, Welcome); }

} // namespace strutwright
