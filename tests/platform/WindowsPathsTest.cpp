// Texts and paths as Windows takes them, and what its errors mean.

#include "Utf8Path.h"
#include "WideText.h"
#include "WindowsErrors.h"

#include <string>
#include <system_error>

#include <windows.h>

#include <gtest/gtest.h>

namespace strutwright {
namespace {

TEST(WideTextTest, KeepsTextsOfEveryLanguage) {
  EXPECT_EQ(WideText("aä桥🏗"), L"a\u00e4\u6865\U0001F3D7");
  EXPECT_EQ(Utf8Text(L"a\u00e4\u6865\U0001F3D7"), "aä桥🏗");
  EXPECT_EQ(WideText(""), L"");
  EXPECT_EQ(Utf8Text(L""), "");
}

TEST(WideTextTest, ReplacesWhatIsNoUtf8) { EXPECT_EQ(WideText("a\xff"), L"a\ufffd"); }

TEST(WidePathTest, IsFullWithBackslashes) {
  EXPECT_EQ(WidePath("C:/models/./roof/../bridge.stw"), L"C:\\models\\bridge.stw");
  EXPECT_EQ(WidePath("\\\\server/share/bridge.stw"), L"\\\\server\\share\\bridge.stw");
  EXPECT_TRUE(WidePath("bridge.stw").ends_with(L":\\" + WideText("bridge.stw")) ||
              WidePath("bridge.stw").ends_with(L"\\bridge.stw"));
  EXPECT_EQ(WidePath(""), L"");
}

TEST(WidePathTest, KnowsDevices) { EXPECT_EQ(WidePath("NUL"), L"\\\\.\\NUL"); }

TEST(WidePathTest, HasNoLimit) {
  const std::string folder = "C:\\" + std::string(244, 'f');
  EXPECT_EQ(WidePath(folder), WideText(folder)) << "247 characters: a name of eight with an extension still fits";
  EXPECT_EQ(WidePath(folder + "f"), WideText("\\\\?\\" + folder + "f"));
  EXPECT_EQ(WidePath("\\\\server\\share\\" + std::string(300, 'f')),
            WideText("\\\\?\\UNC\\server\\share\\" + std::string(300, 'f')));
  EXPECT_EQ(WidePath("\\\\?\\C:\\bridge.stw"), L"\\\\?\\C:\\bridge.stw");
}

TEST(PlainPathTest, IsThePathThatUsersKnow) {
  EXPECT_EQ(PlainPath(L"\\\\?\\C:\\bridge.stw"), "C:\\bridge.stw");
  EXPECT_EQ(PlainPath(L"\\\\?\\UNC\\server\\share\\bridge.stw"), "\\\\server\\share\\bridge.stw");
  EXPECT_EQ(PlainPath(L"C:\\bridge.stw"), "C:\\bridge.stw");
}

TEST(TidyPathTest, LeavesAShareAShare) {
  EXPECT_EQ(TidyPath("\\\\server\\share\\a\\..\\b.stw"), "\\\\server\\share\\b.stw");
  EXPECT_EQ(TidyPath("C:\\a\\..\\b.stw"), "C:\\b.stw");
}

TEST(WindowsErrorTest, HasTheTextsOfOtherSystems) {
  EXPECT_STREQ(WindowsError(ERROR_FILE_NOT_FOUND).what(), "No such file or directory");
  EXPECT_STREQ(WindowsError(ERROR_ACCESS_DENIED).what(), "Permission denied");
  EXPECT_STREQ(WindowsError(ERROR_DISK_FULL).what(), "No space left on device");
  EXPECT_EQ(WindowsError(ERROR_PATH_NOT_FOUND).code, std::errc::no_such_file_or_directory);
  EXPECT_EQ(WindowsError(ERROR_FILE_EXISTS).code, std::errc::file_exists);
  EXPECT_EQ(WindowsError(ERROR_WRITE_PROTECT).code, std::errc::read_only_file_system);
}

TEST(WindowsErrorTest, SaysWhatToDoAboutAFileInUse) {
  for (const DWORD code : {ERROR_SHARING_VIOLATION, ERROR_LOCK_VIOLATION}) {
    EXPECT_STREQ(WindowsError(code).what(), "Another program holds the file open: close it there and try again");
    EXPECT_EQ(WindowsError(code).code, std::errc::device_or_resource_busy);
  }
}

TEST(WindowsErrorTest, OtherwiseHasTheSystemsTextOnOneLine) {
  const std::string text = WindowsError(ERROR_INVALID_NAME).what();
  EXPECT_FALSE(text.empty());
  EXPECT_EQ(text.find_first_of("\r\n"), std::string::npos);
  EXPECT_EQ(WindowsError(ERROR_INVALID_NAME).code, std::error_code(ERROR_INVALID_NAME, std::system_category()));
  EXPECT_STREQ(WindowsError(0x2fffffff).what(), "Windows reports the error 805306367");
}

} // namespace
} // namespace strutwright
