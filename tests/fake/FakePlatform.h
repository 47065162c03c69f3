#pragma once

#include "FakeFileDialog.h"
#include "Host.h"
#include "MessageBoxes.h"
#include "Platform.h"

#include <string>
#include <vector>

#include <gtest/gtest.h>

namespace strutwright {

/// Keeps every box that was shown.
class FakeMessageBoxes : public MessageBoxes {
 public:
  void Show(const Message& message) override { shown.push_back(message); }

  std::vector<Message> shown;
};

/// Keeps what the host was asked, a line each: "EndAnalysis(true)", "RefreshStatusTexts", "SetCaption(bridge.stw)".
class FakeHost : public Host {
 public:
  void EndAnalysis(bool redraw) override;
  void RefreshStatusTexts() override { asked.emplace_back("RefreshStatusTexts"); }
  void Redraw(bool zoomToExtents) override;
  void ClearSurface() override { asked.emplace_back("ClearSurface"); }
  ModelLayers Layers() override { return layers; }
  void ResetScales() override { asked.emplace_back("ResetScales"); }
  void SetCaption(const std::string& caption) override { asked.push_back("SetCaption(" + caption + ")"); }
  void ClearGrids() override { asked.emplace_back("ClearGrids"); }
  void ResetEquations() override { asked.emplace_back("ResetEquations"); }
  void SavePicture(const std::string& path) override;

  std::vector<std::string> asked;
  ModelLayers layers;
  std::string pictureFailure; ///< reason why no picture can be saved; empty when one can
};

/// A platform of stand-ins for one test.  When the test ends, boxes that it did not take with TakeMessages and answers
/// for the file dialog that nothing asked for fail it.
class PlatformTest : public testing::Test {
 protected:
  PlatformTest();
  ~PlatformTest() override;
  PlatformTest(const PlatformTest&) = delete;
  PlatformTest& operator=(const PlatformTest&) = delete;
  void TearDown() override;

  /// The boxes shown since the last call, in their order.
  std::vector<Message> TakeMessages();

  FakeMessageBoxes messages;
  FakeHost host;
  FakeFileDialog dialog;
};

/// A box under the program's title, to compare with.
Message Box(MessageIcon icon, const std::string& text);

/// For readable failures.
void PrintTo(const Message& message, std::ostream* out);

} // namespace strutwright
