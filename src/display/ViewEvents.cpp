#include "ViewEvents.h"

namespace strutwright {

namespace {

ViewListener NobodyLooks;
ViewListener* Looking = &NobodyLooks;

} // namespace

void ListenToView(ViewListener* listener) { Looking = listener == nullptr ? &NobodyLooks : listener; }

ViewListener& ViewEvents() { return *Looking; }

} // namespace strutwright
