#include "TikzSurface.h"

#include "ClearPalette.h"
#include "Markup.h"
#include "PlaneGeometry.h"
#include "modSafeSave.h"

#include <array>
#include <cmath>
#include <numbers>
#include <string_view>

namespace strutwright {

namespace {

constexpr double PointsPerPixel = 0.75; // 96 pixels and 72 big points an inch
constexpr double Outside = 100;         // pixels that a line may leave the picture before it is clipped
constexpr double FarOutside = 2000;     // pixels at which nothing reaches into the picture; TeX counts to 16383 points
constexpr int PrintedTextSize = 13;     // pixels, of the described drawing's texts

struct NamedColour {
  Colour colour;
  std::string_view name;
};

/// Names that say what is drawn so; a colour of no name is called by its numbers.
constexpr std::array<NamedColour, 18> ColourNames{{{ClearPalette::Ground, "ground"},
                                                   {ClearPalette::Ink, "ink"},
                                                   {ClearPalette::Tension, "tension"},
                                                   {ClearPalette::Compression, "compression"},
                                                   {ClearPalette::ZeroBar, "zero bar"},
                                                   {ClearPalette::SteppedBack, "undeformed"},
                                                   {ClearPalette::Reaction, "reaction"},
                                                   {ClearPalette::Deflected, "deflected"},
                                                   {ClearPalette::MemberNumber, "member number"},
                                                   {ClearPalette::AxisValue, "axis value"},
                                                   {ClearPalette::GridLine, "grid line"},
                                                   {ClearPalette::Frame, "frame"},
                                                   {Black, "black line"},
                                                   {Red, "red line"},
                                                   {Green, "green line"},
                                                   {Blue, "blue line"},
                                                   {Grey, "grey line"},
                                                   {Orange, "orange line"}}};

std::string At(PixelPoint point) { return "(" + ShortNumber(point.x) + "," + ShortNumber(point.y) + ")"; }

std::string Points(double pixels) { return ShortNumber(pixels * PointsPerPixel) + "bp"; }

/// The colour's own name for TeX, which takes no blanks.
std::string TexColour(std::string_view name) {
  std::string tex("truss");
  for (const char c : name) {
    if (c != ' ') tex += c;
  }
  return tex;
}

std::string StyleOf(std::string_view name) { return "truss " + std::string(name); }

/// A unit is no word.
bool HoldsAWord(const std::string& text) {
  constexpr int LettersOfAWord = 3;
  int letters = 0;
  for (const char c : text) {
    letters = c >= 'a' && c <= 'z' ? letters + 1 : 0;
    if (letters == LettersOfAWord) return true;
  }
  return false;
}

std::string AngleOf(PixelPoint along) {
  const double degrees = std::atan2(-along.y, along.x) * 180 / std::numbers::pi;
  return ShortNumber(degrees);
}

std::string FontOf(int size) { return "\\trussfont{" + ShortNumber(size * PointsPerPixel) + "}"; }

} // namespace

PixelPoint TikzSurface::ToPixel(double x, double y) const {
  return {(x - View.left) / View.width * PixelWidth(), (y - View.top) / View.height * PixelHeight()};
}

bool TikzSurface::IsNear(PixelPoint point) const {
  return Bounds{0, 0, PixelWidth(), PixelHeight()}.GrownBy(FarOutside).Contains(point);
}

std::string TikzSurface::NameOf(Colour colour) {
  std::string name =
      "colour " + std::to_string(colour.red) + " " + std::to_string(colour.green) + " " + std::to_string(colour.blue);
  for (const NamedColour& each : ColourNames) {
    if (each.colour == colour) name = each.name;
  }
  Colours.emplace(name, colour);
  return name;
}

std::string TikzSurface::PenOptions(const LineLook& look) {
  const std::string dashed = look.dashed ? ",truss dashed" : "";
  return StyleOf(NameOf(look.colour)) + dashed + ",line width=" + Points(look.width);
}

void TikzSurface::PixelLine(PixelPoint from, PixelPoint to, const LineLook& look) {
  const auto part = PartWithin(Bounds{0, 0, PixelWidth(), PixelHeight()}.GrownBy(Outside), from, to);
  if (part) Write("\\draw[" + PenOptions(look) + "] " + At(part->from) + " -- " + At(part->to) + ";");
}

void TikzSurface::PixelPolygon(std::span<const PixelPoint> corners, Colour fill) {
  std::string path;
  for (const PixelPoint corner : corners) {
    if (!IsNear(corner)) return;
    path += At(corner) + " -- ";
  }
  Write("\\fill[" + StyleOf(NameOf(fill)) + "] " + path + "cycle;");
}

void TikzSurface::PixelDot(PixelPoint centre, double radius, const LineLook& edge, Colour fill) {
  if (!IsNear(centre) || !(radius < FarOutside)) return;
  Write("\\filldraw[" + PenOptions(edge) + ",fill=" + TexColour(NameOf(fill)) + "] " + At(centre) +
        " circle[radius=" + Points(radius) + "];");
}

/// A font of LaTeX is not as wide as that of the screen: what is set in lines, such as a legend, keeps its left edge.
void TikzSurface::PixelText(const PixelLabel& label) {
  if (!IsNear(label.centre)) return;
  PixelPoint at = label.centre;
  std::string options = "truss label," + StyleOf(NameOf(label.colour));
  if (label.along != PixelPoint{1, 0}) {
    options += ",rotate=" + AngleOf(label.along);
  } else if (label.IsBoxed()) {
    options += ",truss boxed=" + TexColour(NameOf(label.frame)) + ",minimum width=" + Points(2 * label.box.x) +
               ",minimum height=" + Points(2 * label.box.y);
  } else if (HoldsAWord(label.text)) {
    options += ",anchor=west";
    at.x -= TextWidth(label.text, label.size) / 2;
  }
  Write("\\node[" + options + "] at " + At(at) + " {" + FontOf(label.size) + EscapedLatex(label.text) + "};");
}

// What is drawn in metres.

void TikzSurface::MoveTo(double x, double y) {
  X = x;
  Y = y;
}

void TikzSurface::DrawLine(double x1, double y1, double x2, double y2) {
  MoveTo(x2, y2);
  if (Mode == PenMode::Copy) PixelLine(ToPixel(x1, y1), ToPixel(x2, y2), Pen);
}

void TikzSurface::DrawBox(double x1, double y1, double x2, double y2) {
  if (Mode == PenMode::Invert) return;
  const std::array<PixelPoint, 4> corners{ToPixel(x1, y1), ToPixel(x2, y1), ToPixel(x2, y2), ToPixel(x1, y2)};
  if (Fill == FillStyle::Solid) PixelPolygon(corners, FillColour);
  for (std::size_t side = 0; side < corners.size(); ++side) PixelLine(corners[side], corners[(side + 1) % 4], Pen);
}

void TikzSurface::DrawCircle(double x, double y, double radius) {
  MoveTo(x, y);
  const PixelPoint centre = ToPixel(x, y);
  const double pixels = radius / View.width * PixelWidth();
  if (Mode == PenMode::Invert || !IsNear(centre) || !(pixels < FarOutside)) return;
  const std::string fill = Fill == FillStyle::Solid ? ",fill=" + TexColour(NameOf(FillColour)) : "";
  Write("\\draw[" + PenOptions(Pen) + fill + "] " + At(centre) + " circle[radius=" + Points(pixels) + "];");
}

void TikzSurface::DrawText(const std::string& text) {
  const PixelPoint corner = ToPixel(X, Y);
  if (!IsNear(corner)) return;
  Write("\\node[truss label,anchor=north west," + StyleOf(NameOf(TextColour)) + "] at " + At(corner) + " {" +
        FontOf(PrintedTextSize) + EscapedLatex(text) + "};");
}

void TikzSurface::SavePicture(const std::string& path) { SaveWholeFile(path, Document()); }

/// Whether \documentclass may still come is how the file knows that nobody has taken it in.
std::string TikzSurface::Document() const {
  return "% A truss, drawn by Strutwright.  Compile this file by itself, or \\input it in a document that has\n"
         "% \\usepackage{tikz}.  The styles below say how it looks; every label is a text to edit.\n"
         "\\makeatletter\n"
         "\\ifx\\documentclass\\@notprerr\n"
         "  \\def\\trussbegin{}\\def\\trussend{}\n"
         "\\else\n"
         "  \\documentclass{article}\n"
         "  \\usepackage[papersize={" +
         Points(PixelWidth()) + "," + Points(PixelHeight()) +
         "},margin=0pt]{geometry}\n"
         "  \\usepackage{tikz}\n"
         "  \\pagestyle{empty}\n"
         "  \\def\\trussbegin{\\begin{document}\\noindent}\\def\\trussend{\\end{document}}\n"
         "\\fi\n"
         "\\makeatother\n"
         "\\trussbegin%\n" +
         Picture() + "\\trussend\n";
}

std::string TikzSurface::Picture() const {
  std::string tex = "\\begingroup%\n"
                    "\\providecommand{\\trussfont}[1]{\\sffamily\\fontsize{#1}{#1}\\selectfont}%\n";
  for (const auto& [name, colour] : Colours) {
    tex += "\\definecolor{" + TexColour(name) + "}{RGB}{" + std::to_string(colour.red) + "," +
           std::to_string(colour.green) + "," + std::to_string(colour.blue) + "}%\n";
  }
  tex += "\\begin{tikzpicture}[x=" + Points(1) + ",y=-" + Points(1) +
         ",\n"
         "  truss label/.style={inner sep=0pt,outer sep=0pt},\n"
         "  truss dashed/.style={dash pattern=on 4bp off 3bp},\n"
         "  truss boxed/.style={draw=#1,fill=white,line width=0.5bp}";
  for (const auto& [name, colour] : Colours) tex += ",\n  " + StyleOf(name) + "/.style={color=" + TexColour(name) + "}";
  tex += "]\n\\clip (0,0) rectangle " + At({PixelWidth(), PixelHeight()}) + ";\n";
  for (const std::string& command : Commands) tex += command + "\n";
  return tex + "\\end{tikzpicture}%\n\\endgroup\n";
}

} // namespace strutwright
