#include "LongWork.h"

#include "Platform.h"

#include <utility>

namespace strutwright {

namespace {

constexpr std::chrono::seconds QuietTime{1};
constexpr std::chrono::milliseconds ReportInterval{100};

} // namespace

LongWork::LongWork(std::string text) : LongWork([text = std::move(text)] { return text; }) {}

LongWork::LongWork(std::function<std::string()> text)
    : MakeText(std::move(text)), NextReport(ThePlatform().now() + QuietTime) {}

LongWork::~LongWork() {
  if (Shown) ThePlatform().progress->EndProgress();
}

void LongWork::Done(double fraction) {
  if (ThePlatform().progress == nullptr) return;
  const auto now = ThePlatform().now();
  if (now < NextReport) return;
  NextReport = now + ReportInterval;
  if (!Shown) Text = MakeText();
  Shown = true;
  if (!ThePlatform().progress->ShowProgress(Text, fraction)) throw WorkCancelled();
}

} // namespace strutwright
