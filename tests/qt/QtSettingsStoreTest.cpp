#include "QtSettingsStore.h"

#include "OffscreenApplication.h"
#include "Pattern.h"
#include "ScratchFolder.h"

#include <string>

#include <QFile>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#ifndef _WIN32
#include "AsUser.h"
#endif

namespace strutwright {
namespace {

namespace fs = std::filesystem;
using testing::HasSubstr;

/// Every store is one run of the program on the same file.
class QtSettingsStoreTest : public testing::Test {
 protected:
  QString File() const { return QString::fromStdString(path); }

  std::string Read(const std::string& section, const std::string& key, const std::string& fallback = "none") const {
    return QtSettingsStore(File()).Get(section, key, fallback);
  }

  void Write(const std::string& key, const std::string& text) const {
    QtSettingsStore(File()).Save("Recent Files", key, text);
  }

  OffscreenApplication application;
  ScratchFolder folder;
  std::string path = folder.Path("strutwright.ini");
};

TEST_F(QtSettingsStoreTest, KeepsTextsForTheNextRun) {
  {
    QtSettingsStore store(File());
    store.Save("Recent Files", "1", "/models/bridge.stw");
    store.Save("Config", "MAX_FILES", "3");
    EXPECT_EQ(store.Get("Recent Files", "1", ""), "/models/bridge.stw");
  }
  EXPECT_EQ(Read("Recent Files", "1"), "/models/bridge.stw");
  EXPECT_EQ(Read("Config", "MAX_FILES"), "3");
}

TEST_F(QtSettingsStoreTest, GivesTheFallbackWhereThereIsNothing) {
  EXPECT_EQ(Read("Recent Files", "1", "fallback"), "fallback");
  EXPECT_FALSE(fs::exists(path)) << "reading writes nothing";
}

TEST_F(QtSettingsStoreTest, KeepsAnEmptyText) {
  Write("1", "");
  EXPECT_EQ(Read("Recent Files", "1", "fallback"), "");
}

TEST_F(QtSettingsStoreTest, ForgetsWhatIsDeletedAndNothingElse) {
  Write("1", "a");
  Write("10", "j");
  QtSettingsStore(File()).Delete("Recent Files", "1");
  QtSettingsStore(File()).Delete("Recent Files", "5");
  EXPECT_EQ(Read("Recent Files", "1"), "none");
  EXPECT_EQ(Read("Recent Files", "10"), "j");
}

TEST_F(QtSettingsStoreTest, KeepsPathsOfEveryKind) {
  for (const char* text : {"C:\\Documents and Settings\\user\\truss1.stw", "/a, b;c/\"d\" 'e'=f#g%41.stw", "@Invalid()",
                           "@@at", "/Br\xc3\xbc\x63ke \xe6\xa9\x8b \xf0\x9f\x8c\x89.stw", " blanks ", "two\nlines"}) {
    Write("1", text);
    EXPECT_EQ(Read("Recent Files", "1"), text);
  }
}

TEST_F(QtSettingsStoreTest, WritesNumbersAndPathsAsAPersonReadsThem) {
  Write("1", "/models/bridge.stw");
  EXPECT_THAT(FileBytes(path), ContainsPattern("\n1=/models/bridge.stw\r?\n"));
}

TEST_F(QtSettingsStoreTest, ReadsATextThatWasTypedWithACommaWhole) {
  PutFile(path, "[Recent%20Files]\n1=/models/a, b.stw\n");
  EXPECT_EQ(Read("Recent Files", "1"), "/models/a, b.stw");
}

TEST_F(QtSettingsStoreTest, KeepsWhatCanBeReadOfADamagedFile) {
  PutFile(path, "garbage\n[Recent%20Files]\n1=/models/a.stw\n\xff\xfe" + std::string(3, '\0') +
                    " more\n=\n[[[\n[Config]\nMAX_FILES=7\n");
  EXPECT_EQ(Read("Recent Files", "1"), "/models/a.stw");
  EXPECT_EQ(Read("Config", "MAX_FILES"), "7");
  Write("2", "/models/b.stw");
  EXPECT_EQ(Read("Recent Files", "1"), "/models/a.stw");
  EXPECT_EQ(Read("Recent Files", "2"), "/models/b.stw");
  EXPECT_EQ(Read("Config", "MAX_FILES"), "7");
}

TEST_F(QtSettingsStoreTest, KeepsKeysThatAnotherCopyWritesMeanwhile) {
  QtSettingsStore one(File());
  one.Save("Config", "MAX_FILES", "7");
  Write("1", "/models/a.stw");
  one.Delete("Config", "noRUF");
  { QtSettingsStore another(File()); }
  EXPECT_EQ(Read("Recent Files", "1"), "/models/a.stw");
  EXPECT_EQ(Read("Config", "MAX_FILES"), "7");
}

TEST_F(QtSettingsStoreTest, SeesOnRefreshWhatAnotherCopyHasWritten) {
  QtSettingsStore one(File());
  EXPECT_EQ(one.Get("Recent Files", "1", ""), "");
  Write("1", "/models/a.stw");

  one.Refresh();

  EXPECT_EQ(one.Get("Recent Files", "1", ""), "/models/a.stw");
}

TEST_F(QtSettingsStoreTest, LeavesNothingBesideItsOneFile) {
  Write("1", "/models/a.stw");
  Write("1", "/models/b.stw");
  EXPECT_EQ(folder.EntryCount(), 1);
}

TEST_F(QtSettingsStoreTest, CreatesThePlaceThatItsFileNeeds) {
  path = folder.Path("home/config/strutwright.ini");
  Write("1", "/models/a.stw");
  EXPECT_EQ(Read("Recent Files", "1"), "/models/a.stw");
}

/// Runs as a user who may not write; the exit status is 0 when the values held until the end of the run.
int HoldsValues(const QString& file) {
  QtSettingsStore store(file);
  store.Save("Config", "MAX_FILES", "7");
  return store.Get("Config", "MAX_FILES", "") == "7" ? 0 : 1;
}

TEST_F(QtSettingsStoreTest, GoesOnWithAFolderInThePlaceOfItsFile) {
  fs::create_directory(path);
  EXPECT_EQ(HoldsValues(File()), 0);
  EXPECT_TRUE(fs::is_directory(path));
}

#ifndef _WIN32 // users who may not write, and a variable for the place of settings, as Unix has them

TEST_F(QtSettingsStoreTest, HoldsValuesUntilTheEndWhereItsFolderCannotBeWritten) {
  fs::permissions(folder.Root(), fs::perms(0555));
  EXPECT_EQ(AsUnprivilegedUser([this] { return HoldsValues(File()); }), 0);
  fs::permissions(folder.Root(), fs::perms(0777));
  EXPECT_EQ(folder.EntryCount(), 0);
}

TEST_F(QtSettingsStoreTest, LeavesAFileAloneThatCannotBeWritten) {
  PutFile(path, "[Config]\nMAX_FILES=5\n");
  fs::permissions(path, fs::perms(0444));
  EXPECT_EQ(AsUnprivilegedUser([this] { return HoldsValues(File()); }), 0);
  EXPECT_EQ(Read("Config", "MAX_FILES"), "5");
}

TEST_F(QtSettingsStoreTest, LeavesAFileAloneThatCannotBeRead) {
  PutFile(path, "[Config]\nMAX_FILES=5\n");
  fs::permissions(path, fs::perms(0000));
  EXPECT_EQ(AsUnprivilegedUser([this] { return HoldsValues(File()); }), 0);
  fs::permissions(path, fs::perms(0644));
  EXPECT_EQ(Read("Config", "MAX_FILES"), "5");
}

/// With the desktop's place for settings in a scratch folder.
class ConfigHomeTest : public QtSettingsStoreTest {
 protected:
  ConfigHomeTest() { qputenv("XDG_CONFIG_HOME", folder.Root().c_str()); }
  ~ConfigHomeTest() override { qunsetenv("XDG_CONFIG_HOME"); }
};

TEST_F(ConfigHomeTest, KeepsTheFileUnderTheNameOfTheExecutable) {
  QtSettingsStore().Save("Config", "MAX_FILES", "7");
  EXPECT_THAT(FileBytes(folder.Path("test_qt.ini")), HasSubstr("MAX_FILES=7"));
  EXPECT_EQ(folder.EntryCount(), 1);
  EXPECT_EQ(QtSettingsStore().Get("Config", "MAX_FILES", ""), "7");
}

#endif

} // namespace
} // namespace strutwright
