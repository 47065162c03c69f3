#include "FileSystem.h"
#include "QtFixture.h"

#include <filesystem>
#include <string>

#include <QXmlStreamReader>

#include <gmock/gmock.h>

#ifndef _WIN32
#include "AsUser.h"
#endif

namespace strutwright {
namespace {

namespace fs = std::filesystem;
using testing::HasSubstr;
using testing::StartsWith;

class PictureFileTest : public QtFixture {
 protected:
  PictureFileTest() {
    surface.SetPenColour(Red);
    surface.DrawLine(1, 2, 7, 2);
    surface.DrawCircle(4, 3, 1);
    surface.MoveTo(1, 4);
    surface.DrawText("1.5");
  }

  std::string Saved(const std::string& name) {
    surface.SavePicture(folder.Path(name));
    return FileBytes(folder.Path(name));
  }

  std::string FailureOf(const std::string& path) {
    try {
      surface.SavePicture(path);
    } catch (const FileError& error) {
      return error.what();
    }
    return "none";
  }
};

struct SvgContent {
  bool wellFormed = false;
  int lines = 0;
  int circles = 0;
  std::string texts;
};

SvgContent Parse(const std::string& svg) {
  SvgContent content;
  QXmlStreamReader reader(QByteArray::fromStdString(svg));
  while (!reader.atEnd()) {
    if (reader.readNext() != QXmlStreamReader::StartElement) continue;
    if (reader.name() == QStringLiteral("polyline")) ++content.lines;
    if (reader.name() == QStringLiteral("circle") || reader.name() == QStringLiteral("ellipse")) ++content.circles;
    if (reader.name() == QStringLiteral("text")) content.texts += reader.readElementText().trimmed().toStdString();
  }
  content.wellFormed = !reader.hasError();
  return content;
}

TEST_F(PictureFileTest, IsPngForPng) {
  EXPECT_THAT(Saved("a.png"), StartsWith("\x89PNG\r\n"));
  EXPECT_THAT(Saved("b.PNG"), StartsWith("\x89PNG\r\n"));
  EXPECT_EQ(QImage(QString::fromStdString(folder.Path("a.png"))).convertToFormat(QImage::Format_RGB32),
            surface.Image());
}

TEST_F(PictureFileTest, IsABitmapForEveryOtherName) {
  for (const char* name : {"a.bmp", "b", "c.jpg", "png", "d.svg.old"}) EXPECT_THAT(Saved(name), StartsWith("BM"));
  EXPECT_EQ(QImage(QString::fromStdString(folder.Path("a.bmp"))).size(), QSize(80, 60));
}

TEST_F(PictureFileTest, IsLinesAndTextsForSvg) {
  const SvgContent content = Parse(Saved("a.svg"));
  EXPECT_TRUE(content.wellFormed);
  EXPECT_EQ(content.lines, 1);
  EXPECT_EQ(content.circles, 1);
  EXPECT_EQ(content.texts, "1.5");
}

TEST_F(PictureFileTest, HasNoTraceInSvgOfWhatWasInvertedOrCleared) {
  surface.SetPenMode(PenMode::Invert);
  surface.DrawBox(1, 1, 2, 2);
  EXPECT_EQ(Parse(Saved("a.svg")).lines, 1);
  surface.Clear();
  EXPECT_EQ(Parse(Saved("b.svg")).lines, 0);
}

TEST_F(PictureFileTest, HasTheSizeOfTheSurfaceInSvg) {
  surface.Resize(80, 60, 2);
  EXPECT_THAT(Saved("a.svg"), HasSubstr("viewBox=\"0 0 80 60\""));
}

TEST_F(PictureFileTest, ReplacesAnOlderPictureInOneStep) {
  PutFile(folder.Path("a.bmp"), "an older picture");
  EXPECT_THAT(Saved("a.bmp"), StartsWith("BM"));
  EXPECT_EQ(folder.EntryCount(), 1);
}

TEST_F(PictureFileTest, ReportsThatItCannotBeWritten) {
  EXPECT_NE(FailureOf(folder.Path("missing/a.png")), "none");
  EXPECT_NE(FailureOf(folder.Path("")), "none"); // a folder
}

#ifndef _WIN32 // links, devices and users who may not write, as Unix has them

TEST_F(PictureFileTest, FollowsASymbolicLink) {
  PutFile(folder.Path("target.bmp"), "older");
  fs::create_symlink(folder.Path("target.bmp"), folder.Path("link.bmp"));
  surface.SavePicture(folder.Path("link.bmp"));
  EXPECT_TRUE(fs::is_symlink(folder.Path("link.bmp")));
  EXPECT_THAT(FileBytes(folder.Path("target.bmp")), StartsWith("BM"));
}

TEST_F(PictureFileTest, ReportsWhyItCannotBeWritten) {
  EXPECT_EQ(FailureOf(folder.Path("missing/a.png")), "No such file or directory");
  EXPECT_EQ(FailureOf("/dev/full"), "No space left on device");
}

TEST_F(PictureFileTest, LeavesTheOlderPictureOfAFolderThatMayNotBeWritten) {
  PutFile(folder.Path("a.png"), "older");
  fs::permissions(folder.Path("a.png"), fs::perms(0444));
  fs::permissions(folder.Root(), fs::perms(0555));
  EXPECT_EQ(AsUnprivilegedUser([&] { return FailureOf(folder.Path("a.png")) == "none" ? 1 : 0; }), 0);
  EXPECT_EQ(FileBytes(folder.Path("a.png")), "older");
}

#endif

} // namespace
} // namespace strutwright
