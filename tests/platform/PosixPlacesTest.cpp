// Places by the environment of a free desktop.

#include "NativePlaces.h"
#include "ScratchFolder.h"

#include <cstdlib>
#include <filesystem>
#include <optional>
#include <string>
#include <vector>

#include <gtest/gtest.h>

namespace strutwright {
namespace {

namespace fs = std::filesystem;

/// An environment variable with another value, or none, for one test.
class Variable {
 public:
  Variable(const char* name, const char* value) : Name(name) {
    if (const char* old = std::getenv(name)) Old = old;
    Set(value);
  }
  Variable(const Variable&) = delete;
  Variable& operator=(const Variable&) = delete;
  ~Variable() { Set(Old ? Old->c_str() : nullptr); }

 private:
  void Set(const char* value) const {
    if (value == nullptr) unsetenv(Name);
    if (value != nullptr) setenv(Name, value, 1);
  }

  const char* Name;
  std::optional<std::string> Old;
};

TEST(IconPathTest, IsTheInstalledIcon) {
  const ScratchFolder folder;
  fs::create_directories(folder.Path("usr/share/icons/hicolor/scalable/apps"));
  PutFile(folder.Path("usr/share/icons/hicolor/scalable/apps/strutwright.svg"), "");
  EXPECT_EQ(IconPath(folder.Path("usr/bin")), folder.Path("usr/share/icons/hicolor/scalable/apps/strutwright.svg"));
}

TEST(IconPathTest, IsTheTreesIconBesideABuild) {
  const fs::path tree = fs::path(PACKAGING_DIR).parent_path();
  EXPECT_EQ(IconPath((tree / "build/release/src/app").string()),
            (tree / "src/windows/parts/icons/strutwright.svg").string());
}

TEST(IconPathTest, IsInTheProgramsFolderOtherwise) { EXPECT_EQ(IconPath("/opt/truss"), "/opt/truss/Strutwright.ico"); }

TEST(UserDataFolderTest, IsWhereTheUserWantsData) {
  const Variable data("XDG_DATA_HOME", "/data/ada");
  EXPECT_EQ(UserDataFolder(), "/data/ada/strutwright");
}

TEST(UserDataFolderTest, IsInTheHomeFolderOtherwise) {
  const Variable home("HOME", "/home/ada");
  for (const char* useless : {static_cast<const char*>(nullptr), "", "relative"}) {
    const Variable data("XDG_DATA_HOME", useless);
    EXPECT_EQ(UserDataFolder(), "/home/ada/.local/share/strutwright");
  }
}

TEST(UserDataFolderTest, IsAnAbsolutePathWithoutALoginToo) {
  const Variable home("HOME", nullptr);
  const Variable data("XDG_DATA_HOME", nullptr);
  EXPECT_TRUE(fs::path(UserDataFolder()).is_absolute());
}

TEST(UserDesktopPlacesTest, AreWhereTheUserWantsThem) {
  const Variable data("XDG_DATA_HOME", "/data/ada");
  const Variable config("XDG_CONFIG_HOME", "/config/ada");
  const Variable folders("XDG_DATA_DIRS", "/opt/share:relative::/usr/share");
  const DesktopPlaces places = UserDesktopPlaces();
  EXPECT_EQ(places.dataHome, "/data/ada");
  EXPECT_EQ(places.configHome, "/config/ada");
  EXPECT_EQ(places.dataFolders, (std::vector<std::string>{"/opt/share", "/usr/share"}));
}

TEST(UserDesktopPlacesTest, AreTheUsualOnesOtherwise) {
  const Variable home("HOME", "/home/ada");
  for (const char* useless : {static_cast<const char*>(nullptr), ""}) {
    const Variable data("XDG_DATA_HOME", useless);
    const Variable config("XDG_CONFIG_HOME", useless);
    const Variable folders("XDG_DATA_DIRS", useless);
    const DesktopPlaces places = UserDesktopPlaces();
    EXPECT_EQ(places.dataHome, "/home/ada/.local/share");
    EXPECT_EQ(places.configHome, "/home/ada/.config");
    EXPECT_EQ(places.dataFolders, (std::vector<std::string>{"/usr/local/share", "/usr/share"}));
  }
}

} // namespace
} // namespace strutwright
