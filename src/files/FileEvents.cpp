#include "FileEvents.h"

namespace strutwright {

namespace {

FileListener NobodyReads;
FileListener* Reading = &NobodyReads;

} // namespace

void ListenToFiles(FileListener* listener) { Reading = listener == nullptr ? &NobodyReads : listener; }

FileListener& FileEvents() { return *Reading; }

} // namespace strutwright
