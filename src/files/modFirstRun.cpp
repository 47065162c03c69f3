#include "modFirstRun.h"

#include "CAssociate.h"
#include "Platform.h"

namespace strutwright {

namespace {

constexpr const char* Welcome = "Welcome to Strutwright.\n"
                                "Consult the help file for information\n"
                                "on getting the most from the program\n"
                                "\n"
                                "https://strutwright.example";

/// What an installer or a package has registered stays as it is.
void AssociateModelFiles() {
  CAssociate modelFile;
  modelFile.Title = "Strutwright File";
  modelFile.Class = "Strutwright.File";
  modelFile.Extension = ".stw";
  modelFile.AppCommand = ThePlatform().executable;
  modelFile.DefaultIcon = ThePlatform().icon;
  if (!FileTypes().IsInstalled(modelFile.Class, modelFile.Extension, modelFile.AppCommand)) modelFile.Associate();
}

} // namespace

void firstRun() {
  if (ThePlatform().fileTypes != nullptr) AssociateModelFiles();
  ShowMessage(MessageIcon::Information, Welcome);
}

} // namespace strutwright
