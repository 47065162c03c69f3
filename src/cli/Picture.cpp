#include "Picture.h"

#include "ClearFraming.h"
#include "Platform.h"
#include "QtDrawingSurface.h"
#include "QtPaper.h"
#include "TikzSurface.h"
#include "modClearDrawing.h"
#include "modRedraw.h"
#include "modViewTransform.h"

#include <functional>
#include <map>
#include <regex>
#include <sstream>

#include <QGuiApplication>

namespace strutwright {

namespace {

constexpr int MinSize = 16;
constexpr int MaxSize = 8192;

/// Qt's remarks about a desktop that is not there; what fails has its own message.
void DropMessage(QtMsgType /*type*/, const QMessageLogContext& /*context*/, const QString& /*text*/) {}

std::map<std::string, bool*> LayerSwitches(PictureRequest& request) {
  return {{"supports", &request.layers.supports}, {"loads", &request.layers.loads},
          {"grid", &request.layers.grid},         {"members", &request.layers.memberNumbers},
          {"nodes", &request.layers.nodeNumbers}, {"reactions", &request.reactions},
          {"forces", &request.memberForces},      {"deflected", &request.deflectedShape}};
}

/// Has a picture drawn and written: as TikZ for ".tex", otherwise as the surface saves it.
void DrawInto(QtDrawingSurface& surface, const std::string& file, const std::function<void(DrawingSurface&)>& draw) {
  if (!file.ends_with(".tex")) {
    draw(surface);
    return surface.SavePicture(file);
  }
  TikzSurface tikz(surface);
  draw(tikz);
  tikz.SavePicture(file);
}

/// What is drawn on the surface, whose window frames it afterwards.
TrussView ViewOn(DrawingSurface& surface, const PictureRequest& request, bool analysed) {
  SetViewWindow(surface, -1, 10, 0, 3);
  TrussView view{.layers = request.layers,
                 .reactions = analysed && request.reactions,
                 .memberForces = analysed && request.memberForces,
                 .deflectedShape = analysed && request.deflectedShape,
                 .deflectionScale = request.deflectionScale,
                 .extents = ExtentsOfModel(1),
                 .frameExtents = true,
                 .style = request.style};
  // The described drawing has the scale of a first start.
  if (request.style == DrawingStyle::Clear) {
    view.loadsScale = ScaleOfArrowsOn(surface, SettingsOf(view)).value_or(view.loadsScale);
  }
  return view;
}

} // namespace

/// Fonts need an application.  It is kept for the life of the process, as Qt allows only one.  It needs no screen: on
/// Windows the usual one does without, and no other knows the fonts there.
void EnsureApplication() {
  if (QCoreApplication::instance() != nullptr) return;
  qInstallMessageHandler(DropMessage);
#ifndef Q_OS_WIN
  qputenv("QT_QPA_PLATFORM", "offscreen");
#endif
  static int count = 1;
  static char name[] = "strutwright-cli";
  static char* arguments[] = {name, nullptr};
  static QGuiApplication* const application = new QGuiApplication(count, arguments);
  static_cast<void>(application);
}

void PreparePages() {
  static QtPaper pages;
  EnsureApplication();
  ThePlatform().paper = &pages;
}

std::optional<std::string> ChooseLayers(PictureRequest& request, const std::string& names) {
  PictureRequest chosen = request;
  const auto switches = LayerSwitches(chosen);
  for (const auto& [name, on] : switches) *on = false;
  std::istringstream list(names);
  for (std::string name; std::getline(list, name, ',');) {
    const auto found = switches.find(name);
    if (found == switches.end()) return name;
    *found->second = true;
  }
  request = chosen;
  return std::nullopt;
}

bool ChooseSize(PictureRequest& request, const std::string& text) {
  std::smatch found;
  if (!std::regex_match(text, found, std::regex("([0-9]{1,5})x([0-9]{1,5})"))) return false;
  const int width = std::stoi(found[1]);
  const int height = std::stoi(found[2]);
  if (width < MinSize || width > MaxSize || height < MinSize || height > MaxSize) return false;
  request.width = width;
  request.height = height;
  return true;
}

void MakePicture(const PictureRequest& request, const std::string& file, bool analysed) {
  EnsureApplication();
  QtDrawingSurface surface(request.width, request.height);
  const TrussView view = ViewOn(surface, request, analysed);
  DrawInto(surface, file, [&view](DrawingSurface& target) { Draw(target, view); });
}

std::string TikzPicture(const PictureRequest& request, bool analysed) {
  EnsureApplication();
  QtDrawingSurface surface(request.width, request.height);
  const TrussView view = ViewOn(surface, request, analysed);
  TikzSurface tikz(surface);
  Draw(tikz, view);
  return tikz.Document();
}

void MakeInfluencePicture(const PictureRequest& request, const InfluenceShape& shape) {
  EnsureApplication();
  QtDrawingSurface surface(request.width, request.height);
  surface.SetWindow(FrameInfluence(surface, shape));
  const ReadableNumbers readable = NumbersWithRoom(surface);
  ClearMemory memory;
  const TrussView view{
      .layers = {.loads = false, .grid = false, .memberNumbers = readable.ofMembers, .nodeNumbers = readable.ofNodes},
      .extents = ExtentsOfModel(1),
      .style = request.style,
      .legend = false,
      .memory = &memory};
  DrawInto(surface, request.file, [&](DrawingSurface& target) {
    Draw(target, view);
    DrawInfluence(target, shape, request.style == DrawingStyle::Clear ? &memory : nullptr);
  });
}

} // namespace strutwright
