#pragma once

#include "FakePlatform.h"
#include "ModelEvents.h"

// The floors above the model report events of their own; a test knows those of the floors that it links.
#if __has_include("FileEvents.h")
#include "FileEvents.h"
#endif
#if __has_include("ViewEvents.h")
#include "ViewEvents.h"
#endif

#include <string>
#include <vector>

namespace strutwright {

/// Keeps the events of the model, a line each.
class RecordedModelEvents : public ModelListener {
 public:
  explicit RecordedModelEvents(std::vector<std::string>& events) : Events(events) { ListenToModel(this); }
  ~RecordedModelEvents() override { ListenToModel(nullptr); }
  RecordedModelEvents(const RecordedModelEvents&) = delete;
  RecordedModelEvents& operator=(const RecordedModelEvents&) = delete;

  void AnalysisEnded() override { Events.emplace_back("AnalysisEnded"); }
  void AnalysisStateChanged() override { Events.emplace_back("AnalysisStateChanged"); }
  void ModelChanged() override { Events.emplace_back("ModelChanged"); }
  void PickDropped() override { Events.emplace_back("PickDropped"); }
  void NodesRenumbered() override { Events.emplace_back("NodesRenumbered"); }
  void ModelEmptied() override { Events.emplace_back("ModelEmptied"); }
  void ModelReplaced() override { Events.emplace_back("ModelReplaced"); }

 private:
  std::vector<std::string>& Events;
};

#if __has_include("FileEvents.h")
/// Keeps the events of the files: "FileOpened", "CaptionChanged(bridge.stw)", "RecentFilesChanged".
class RecordedFileEvents : public FileListener {
 public:
  explicit RecordedFileEvents(std::vector<std::string>& events) : Events(events) { ListenToFiles(this); }
  ~RecordedFileEvents() override { ListenToFiles(nullptr); }
  RecordedFileEvents(const RecordedFileEvents&) = delete;
  RecordedFileEvents& operator=(const RecordedFileEvents&) = delete;

  void FileOpened() override { Events.emplace_back("FileOpened"); }
  void CaptionChanged(const std::string& caption) override { Events.push_back("CaptionChanged(" + caption + ")"); }
  void RecentFilesChanged() override { Events.emplace_back("RecentFilesChanged"); }

 private:
  std::vector<std::string>& Events;
};
#endif

#if __has_include("ViewEvents.h")
/// Keeps the events of the truss display: "ViewChanged".
class RecordedViewEvents : public ViewListener {
 public:
  explicit RecordedViewEvents(std::vector<std::string>& events) : Events(events) { ListenToView(this); }
  ~RecordedViewEvents() override { ListenToView(nullptr); }
  RecordedViewEvents(const RecordedViewEvents&) = delete;
  RecordedViewEvents& operator=(const RecordedViewEvents&) = delete;

  void ViewChanged() override { Events.emplace_back("ViewChanged"); }

 private:
  std::vector<std::string>& Events;
};
#endif

/// A platform of stand-ins, and a list of all that happens.
class EventsTest : public PlatformTest {
 protected:
  RecordedModelEvents modelEvents{events};
#if __has_include("FileEvents.h")
  RecordedFileEvents fileEvents{events};
#endif
#if __has_include("ViewEvents.h")
  RecordedViewEvents viewEvents{events};
#endif
};

} // namespace strutwright
