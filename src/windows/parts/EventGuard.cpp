#include "EventGuard.h"

#include "LongWork.h"
#include "Platform.h"

#include <exception>

namespace strutwright {

void Guard(const std::function<void()>& work) {
  try {
    work();
  } catch (const WorkCancelled&) {
    // The user knows, and whoever was at work has put things in order.
  } catch (const std::exception& failure) {
    ShowMessage(MessageIcon::Critical, failure.what());
  } catch (...) {
    ShowMessage(MessageIcon::Critical, "A failure without a description");
  }
}

} // namespace strutwright
