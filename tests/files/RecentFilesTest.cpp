#include "RecentFiles.h"
#include "EventsTest.h"
#include "FileState.h"
#include "modRecentFiles.h"

#include <string>
#include <vector>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace strutwright {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using testing::Pair;
using testing::UnorderedElementsAre;

Message PleaseInputANumber() { return Box(MessageIcon::None, "Please input a number in future, ok"); }

class RecentFilesTest : public EventsTest {
 protected:
  RecentFilesTest() {
    TheFiles = FileState{};
    TheRecentFiles = RecentFiles{};
  }
  ~RecentFilesTest() override {
    TheFiles = FileState{};
    TheRecentFiles = RecentFiles{};
  }

  /// A store that an earlier run has left.
  void Stored(const std::vector<std::string>& paths, const std::string& limit, const std::string& count) {
    for (std::size_t place = 1; place <= paths.size(); ++place) {
      settings.texts["Recent Files/" + std::to_string(place)] = paths[place - 1];
    }
    settings.texts["Config/MAX_FILES"] = limit;
    settings.texts["Config/noRUF"] = count;
  }

  /// The next run of the program on the same store.
  static void StartRun() {
    TheFiles = FileState{};
    TheRecentFiles = RecentFiles{};
    startUpList();
  }

  std::string Text(const std::string& key) { return settings.texts[key]; }

  std::vector<std::string> StoredPaths(int count) {
    std::vector<std::string> paths;
    for (int place = 1; place <= count; ++place) paths.push_back(Text("Recent Files/" + std::to_string(place)));
    return paths;
  }

  /// The paths behind the visible entries.
  static std::vector<std::string> Shown() {
    std::vector<std::string> paths;
    for (const RecentFileEntry& entry : mnuRUF) {
      if (entry.visible) paths.push_back(entry.tag);
    }
    return paths;
  }
};

// Start of the program

using StartUpListTest = RecentFilesTest;

TEST_F(StartUpListTest, GreetsOnAFirstRunAndStoresTheStartValues) {
  startUpList();
  EXPECT_EQ(TakeMessages().size(), 1U);
  EXPECT_EQ(MAX_FILES, 3);
  EXPECT_EQ(noRUF, 0);
  EXPECT_EQ(TheRecentFiles.txtMaxFiles, "3");
  EXPECT_THAT(settings.texts, UnorderedElementsAre(Pair("Config/MAX_FILES", "3"), Pair("Config/noRUF", "0")));
}

TEST_F(StartUpListTest, StoresTheCountOfAFirstRunBeforeTheLimit) {
  startUpList();
  TakeMessages();
  EXPECT_THAT(settings.written, ElementsAre("Config/noRUF = 0", "Config/MAX_FILES = 3"));
}

TEST_F(StartUpListTest, ShowsNeitherEntryNorSeparatorOnAFirstRun) {
  startUpList();
  TakeMessages();
  EXPECT_EQ(mnuRUF.size(), 1U);
  EXPECT_THAT(Shown(), IsEmpty());
  EXPECT_FALSE(TheRecentFiles.mnuBar3);
  EXPECT_FALSE(TheRecentFiles.mnuBar4);
}

TEST_F(StartUpListTest, GreetsAgainUntilAFileWasOpened) {
  StartRun();
  StartRun();
  EXPECT_EQ(TakeMessages().size(), 2U);
  addRecentFile("/models/a.stw");
  StartRun();
  EXPECT_THAT(Shown(), ElementsAre("/models/a.stw"));
}

TEST_F(StartUpListTest, ShowsTheStoredEntriesBelowTheirSeparator) {
  Stored({"/models/a.stw", "/models/b.stw"}, "5", "2");
  startUpList();
  EXPECT_EQ(MAX_FILES, 5);
  EXPECT_EQ(noRUF, 2);
  EXPECT_EQ(TheRecentFiles.txtMaxFiles, "5");
  EXPECT_TRUE(TheRecentFiles.mnuBar3);
  EXPECT_FALSE(TheRecentFiles.mnuBar4) << "that one shows when the list grows";
  EXPECT_THAT(mnuRUF, ElementsAre(RecentFileEntry{"&1   /models/a.stw", "/models/a.stw", true},
                                  RecentFileEntry{"&2   /models/b.stw", "/models/b.stw", true}));
}

TEST_F(StartUpListTest, ShowsAsManyEntriesAsWereShownAndNoMore) {
  Stored({"/models/a.stw", "/models/b.stw", "/models/c.stw"}, "3", "1");
  startUpList();
  EXPECT_THAT(Shown(), ElementsAre("/models/a.stw"));
}

TEST_F(StartUpListTest, KeepsTheValuesInMemoryWhereTheStoreHasNone) {
  settings.texts["Recent Files/1"] = "/models/a.stw";
  startUpList();
  EXPECT_EQ(MAX_FILES, 3);
  EXPECT_EQ(noRUF, 0);
  EXPECT_EQ(TheRecentFiles.txtMaxFiles, "3");
  EXPECT_THAT(Shown(), IsEmpty());
}

TEST_F(StartUpListTest, GoesOnWithAStoreThatWasDamaged) {
  Stored({"/models/a.stw"}, "three", "\xff");
  startUpList();
  EXPECT_EQ(MAX_FILES, 3);
  EXPECT_EQ(noRUF, 0);
}

TEST_F(StartUpListTest, ShowsNoMoreEntriesThanAListCanHave) {
  Stored({"/models/a.stw"}, "3", "30000");
  startUpList();
  EXPECT_EQ(noRUF, 20);
  Stored({"/models/a.stw"}, "3", "-7");
  StartRun();
  EXPECT_EQ(noRUF, 0);
}

TEST_F(StartUpListTest, ReportsTheList) {
  Stored({"/models/a.stw"}, "3", "1");
  startUpList();
  EXPECT_THAT(events, ElementsAre("RecentFilesChanged"));
}

TEST_F(StartUpListTest, DoesNothingInAProgramWithoutSettings) {
  ThePlatform().settings = nullptr;
  startUpList();
  addRecentFile("/models/a.stw");
  refreshCaptions();
  applyMaxFiles();
  EXPECT_THAT(Shown(), IsEmpty());
  EXPECT_THAT(events, IsEmpty());
}

// Adding a file

class AddRecentFileTest : public RecentFilesTest {
 protected:
  /// Three entries in a list of three: c, b, a.
  AddRecentFileTest() {
    Stored({"c", "b", "a"}, "3", "3");
    startUpList();
    events.clear();
  }
};

TEST_F(AddRecentFileTest, StartsTheListOfAFirstRun) {
  settings.texts.clear();
  StartRun();
  TakeMessages();
  addRecentFile("/models/a.stw");
  EXPECT_EQ(noRUF, 1);
  EXPECT_EQ(Text("Config/noRUF"), "1");
  EXPECT_EQ(Text("Recent Files/1"), "/models/a.stw");
  EXPECT_TRUE(TheRecentFiles.mnuBar4);
  EXPECT_THAT(mnuRUF, ElementsAre(RecentFileEntry{"&1   /models/a.stw", "/models/a.stw", true}));
}

TEST_F(AddRecentFileTest, GrowsAnEntryAFileUpToTheLimit) {
  settings.texts.clear();
  StartRun();
  TakeMessages();
  for (const char* path : {"a", "b", "c", "d"}) addRecentFile(path);
  EXPECT_THAT(Shown(), ElementsAre("d", "c", "b"));
  EXPECT_THAT(StoredPaths(4), ElementsAre("d", "c", "b", ""));
  EXPECT_EQ(Text("Config/noRUF"), "3");
}

TEST_F(AddRecentFileTest, PutsAFourthFileOnTopAndDropsTheLastOfThree) {
  addRecentFile("d");
  EXPECT_THAT(StoredPaths(4), ElementsAre("d", "c", "b", ""));
  EXPECT_THAT(mnuRUF, ElementsAre(RecentFileEntry{"&1   d", "d", true}, RecentFileEntry{"&2   c", "c", true},
                                  RecentFileEntry{"&3   b", "b", true}));
  EXPECT_EQ(noRUF, 3);
}

TEST_F(AddRecentFileTest, MovesTheStoredPathsDownFromTheLast) {
  settings.written.clear();
  addRecentFile("d");
  EXPECT_THAT(settings.written, ElementsAre("Config/MAX_FILES = 3", "Recent Files/3 = b", "Recent Files/2 = c",
                                            "Recent Files/1 = d", "Config/MAX_FILES = 3"));
}

TEST_F(AddRecentFileTest, KeepsWhatAnotherCopyOfTheProgramHasOpened) {
  settings.elsewhere = [](FakeSettings& store) {
    store.texts["Recent Files/2"] = "c";
    store.texts["Recent Files/1"] = "other";
  };
  addRecentFile("d");
  EXPECT_THAT(StoredPaths(2), ElementsAre("d", "other"));
}

TEST_F(AddRecentFileTest, MovesAKnownFileInTheMenuAlone) {
  addRecentFile("a");
  EXPECT_THAT(Shown(), ElementsAre("a", "c", "b"));
  EXPECT_EQ(mnuRUF[0].caption, "&1   a");
  EXPECT_EQ(mnuRUF[2].caption, "&3   b");
  EXPECT_THAT(StoredPaths(3), ElementsAre("c", "b", "a"));
}

TEST_F(AddRecentFileTest, ShowsTheStoredOrderAgainAtTheNextStart) {
  addRecentFile("a");
  StartRun();
  EXPECT_THAT(Shown(), ElementsAre("c", "b", "a"));
}

TEST_F(AddRecentFileTest, LeavesTheFirstEntryWhereItIs) {
  addRecentFile("c");
  EXPECT_THAT(Shown(), ElementsAre("c", "b", "a"));
  EXPECT_EQ(noRUF, 3);
}

#ifdef _WIN32 // where the case of letters makes no other file

TEST_F(AddRecentFileTest, TakesAllSpellingsForOneFile) {
  Stored({"C:\\models\\bridge.stw"}, "3", "1");
  StartRun();
  addRecentFile("c:\\Models\\BRIDGE.stw");
  addRecentFile("C:\\models\\roof.stw");
  addRecentFile("C:/MODELS/bridge.stw");
  EXPECT_THAT(Shown(), ElementsAre("C:\\models\\bridge.stw", "C:\\models\\roof.stw"));
}

#else

TEST_F(AddRecentFileTest, DistinguishesPathsByCase) {
  addRecentFile("A");
  EXPECT_THAT(Shown(), ElementsAre("A", "c", "b"));
}

#endif

TEST_F(AddRecentFileTest, LeavesKeysBeyondTheLimitAsTheyAre) {
  settings.texts["Recent Files/4"] = "kept";
  addRecentFile("d");
  EXPECT_THAT(StoredPaths(4), ElementsAre("d", "c", "b", "kept"));
}

TEST_F(AddRecentFileTest, LeavesWhatStandsTwiceInTheStore) {
  Stored({"c", "b", "c"}, "4", "2");
  StartRun();
  addRecentFile("d");
  EXPECT_THAT(StoredPaths(4), ElementsAre("d", "c", "b", "c"));
}

TEST_F(AddRecentFileTest, StoresNothingAnewThatIsOnTopAlready) {
  Stored({"c", "b", "a"}, "3", "0");
  StartRun();
  addRecentFile("c");
  EXPECT_THAT(StoredPaths(3), ElementsAre("c", "b", "a"));
  EXPECT_THAT(Shown(), ElementsAre("c"));
}

TEST_F(AddRecentFileTest, TakesTheLimitOfTheOptionsDialogFirst) {
  TheRecentFiles.txtMaxFiles = "4";
  addRecentFile("d");
  EXPECT_THAT(Shown(), ElementsAre("d", "c", "b", "a"));
  EXPECT_EQ(Text("Config/MAX_FILES"), "4");
  EXPECT_EQ(Text("Config/noRUF"), "4");
}

TEST_F(AddRecentFileTest, TrimsWhatALowerLimitLeavesNoPlaceFor) {
  TheRecentFiles.txtMaxFiles = "2";
  addRecentFile("d");
  EXPECT_THAT(Shown(), ElementsAre("d", "c"));
  EXPECT_FALSE(settings.texts.contains("Recent Files/3"));
}

TEST_F(AddRecentFileTest, TrimsAfterMovingAKnownFileToo) {
  TheRecentFiles.txtMaxFiles = "1";
  addRecentFile("a");
  EXPECT_THAT(Shown(), ElementsAre("a"));
  EXPECT_EQ(noRUF, 1);
}

TEST_F(AddRecentFileTest, ReportsTheListOnceWhenItIsWhole) {
  addRecentFile("d");
  EXPECT_THAT(events, ElementsAre("RecentFilesChanged"));
}

// Captions

using CaptionsTest = RecentFilesTest;

TEST_F(CaptionsTest, AreWrittenAnewFromTheStore) {
  Stored({"c", "b", "a"}, "3", "3");
  startUpList();
  settings.texts["Recent Files/2"] = "/elsewhere/b.stw";
  refreshCaptions();
  EXPECT_EQ(mnuRUF[1].caption, "&2   /elsewhere/b.stw");
  EXPECT_EQ(mnuRUF[1].tag, "/elsewhere/b.stw");
}

TEST_F(CaptionsTest, OfAShortListStopAtItsEnd) {
  Stored({"c", "b", "a"}, "3", "2");
  startUpList();
  refreshCaptions();
  EXPECT_THAT(Shown(), ElementsAre("c", "b"));
}

TEST_F(CaptionsTest, OfAListThatIsTooLongAreTrimmedFirst) {
  Stored({"c", "b", "a"}, "2", "3");
  startUpList();
  EXPECT_EQ(Shown().size(), 3U);
  refreshCaptions();
  EXPECT_THAT(Shown(), ElementsAre("c", "b"));
  EXPECT_FALSE(settings.texts.contains("Recent Files/3"));
}

TEST_F(CaptionsTest, ShowShortPathsWhole) {
  EXPECT_EQ(ShownPath("C:\\models\\bridge.stw"), "C:\\models\\bridge.stw");
  EXPECT_EQ(ShownPath("/home/user/models/ab.stw"), "/home/user/models/ab.stw") << "25 characters";
  EXPECT_EQ(ShownPath(""), "");
}

TEST_F(CaptionsTest, ShowTheEndOfLongPaths) {
  EXPECT_EQ(ShownPath("C:\\Documents and Settings\\user\\My Documents\\truss1.stw"), "...\\My Documents\\truss1.stw");
  EXPECT_EQ(ShownPath("D:\\work\\projects\\trusses\\roof.stw"), "...\\projects\\trusses\\roof.stw");
  EXPECT_EQ(ShownPath("/home/user/projects/trusses/roof.stw"), ".../projects/trusses/roof.stw");
}

TEST_F(CaptionsTest, TakeEitherSeparator) {
  EXPECT_EQ(ShownPath("/mnt/share\\projects/trusses\\roof.stw"), "...\\projects/trusses\\roof.stw");
}

TEST_F(CaptionsTest, FitTwentyFiveCharactersBehindTheSeparator) {
  EXPECT_EQ(ShownPath("/bb/123456789012345678.stw"), "/bb/123456789012345678.stw") << "25 behind the first one";
  EXPECT_EQ(ShownPath("/bb/1234567890123456789.stw"), ".../1234567890123456789.stw") << "26 behind the first one";
  EXPECT_EQ(ShownPath("/a/bb/123456789012345678.stw"), ".../bb/123456789012345678.stw");
  EXPECT_EQ(ShownPath("a/bb/123456789012345678.stw"), "a/bb/123456789012345678.stw") << "no separator is too far";
}

TEST_F(CaptionsTest, ShowALongFileNameWhole) {
  EXPECT_EQ(ShownPath("C:\\models\\a bridge with a very long name.stw"), "...\\a bridge with a very long name.stw");
}

TEST_F(CaptionsTest, ShowAPathWithoutSeparatorsWhole) {
  EXPECT_EQ(ShownPath("a bridge with a very long name.stw"), "a bridge with a very long name.stw");
}

TEST_F(CaptionsTest, CountCharactersAndNotBytes) {
  const std::string path = "/Entw\xc3\xbcrfe/Br\xc3\xbc\x63ke.stw/\xc3\xa4\xc3\xb6\xc3\xbc.s"; // 25 characters
  EXPECT_EQ(ShownPath(path), path);
  EXPECT_EQ(ShownPath("/x" + path), "..." + path);
}

// The limit

class LimitTest : public RecentFilesTest {
 protected:
  LimitTest() {
    Stored({"e", "d", "c", "b", "a"}, "5", "5");
    startUpList();
  }

  std::int16_t LimitFrom(const std::string& text) {
    TheRecentFiles.txtMaxFiles = text;
    applyMaxFiles();
    return MAX_FILES;
  }
};

TEST_F(LimitTest, TakesOneToTwenty) {
  EXPECT_EQ(LimitFrom("20"), 20);
  EXPECT_EQ(LimitFrom(" 7 "), 7);
  EXPECT_EQ(LimitFrom("1"), 1);
  EXPECT_EQ(Text("Config/MAX_FILES"), "1");
}

TEST_F(LimitTest, IsFourWhereTheNumberIsOutOfRangeWithoutAWord) {
  for (const char* text : {"0", "21", "-3", "40000", "1e39", "-1e999", "1e999999999999999999999"}) {
    MAX_FILES = 9;
    EXPECT_EQ(LimitFrom(text), 4) << text;
  }
  EXPECT_EQ(Text("Config/MAX_FILES"), "4");
}

TEST_F(LimitTest, IsFourWhereTheTextIsNoNumberAndSaysSo) {
  for (const char* text : {"abc", "", "1,5", "0x10", "inf"}) {
    EXPECT_EQ(LimitFrom(text), 4) << text;
    EXPECT_THAT(TakeMessages(), ElementsAre(PleaseInputANumber())) << text;
  }
}

TEST_F(LimitTest, RoundsToTheNearestWithTiesToEven) {
  EXPECT_EQ(LimitFrom("2.5"), 2);
  EXPECT_EQ(LimitFrom("20.4"), 20);
  EXPECT_EQ(LimitFrom("20.6"), 4);
}

TEST_F(LimitTest, DropsEntriesAndKeysWhenItIsLowered) {
  EXPECT_EQ(LimitFrom("2"), 2);
  EXPECT_THAT(Shown(), ElementsAre("e", "d"));
  EXPECT_EQ(mnuRUF.size(), 2U);
  EXPECT_EQ(noRUF, 2);
  EXPECT_THAT(settings.texts, UnorderedElementsAre(Pair("Recent Files/1", "e"), Pair("Recent Files/2", "d"),
                                                   Pair("Config/MAX_FILES", "2"), Pair("Config/noRUF", "2")));
}

TEST_F(LimitTest, LeavesAShortListWhole) {
  EXPECT_EQ(LimitFrom("6"), 6);
  EXPECT_EQ(Shown().size(), 5U);
  EXPECT_EQ(StoredPaths(5).back(), "a");
}

TEST_F(LimitTest, HoldsAtTheNextStart) {
  LimitFrom("2");
  StartRun();
  EXPECT_THAT(Shown(), ElementsAre("e", "d"));
  EXPECT_EQ(MAX_FILES, 2);
  EXPECT_EQ(TheRecentFiles.txtMaxFiles, "2");
}

TEST_F(LimitTest, ShowsTheShorterListInTheMenus) {
  events.clear();
  LimitFrom("2");
  EXPECT_THAT(events, ElementsAre("RecentFilesChanged"));
}

} // namespace
} // namespace strutwright
