#include "modSketchFiles.h"

#include "DocumentFiles.h"
#include "Platform.h"
#include "TikzSurface.h"
#include "modFileCommands.h"
#include "modSketch.h"
#include "modWorkedFiles.h"

#include <sstream>

namespace strutwright {

namespace {

constexpr int PageWidth = 640; // pixels
constexpr int PageHeight = 520;

} // namespace

void SaveSketchPicture(DrawingSurface& drawn, const SketchSheet& sheet, int lit, const std::string& model) {
  const std::string path = AskDocumentName(model, "Save Picture", "png",
                                           "PNG pictures|*.png|SVG pictures|*.svg|TikZ pictures|*.tex|All files|*.*");
  if (path.empty()) return;
  try {
    if (!HasEnding(path, ".tex")) return drawn.SavePicture(path);
    TikzSurface tikz(drawn);
    DrawSheet(tikz, PlaceSheet(sheet, drawn), lit);
    tikz.SavePicture(path);
  } catch (const FileError& failure) {
    ReportSaveFailure(path, failure.what());
  }
}

void PrintSketchPage(const std::string& title, const std::string& text, const SketchSheet& sheet) {
  WorkedDocument page;
  page.title = title;
  page.blocks.emplace_back(WorkedPicture{
      PageWidth, PageHeight, [&sheet](DrawingSurface& surface) { DrawSheet(surface, PlaceSheet(sheet, surface)); }});
  std::istringstream lines(text);
  for (std::string line; std::getline(lines, line);) {
    if (!line.empty()) page.blocks.emplace_back(WorkedParagraph{line});
  }
  try {
    ThePrinters().Print(WorkedPage(page));
  } catch (const FileError& failure) {
    ShowMessage(MessageIcon::Information, std::string("The page could not be printed\n") + failure.what());
  }
}

} // namespace strutwright
