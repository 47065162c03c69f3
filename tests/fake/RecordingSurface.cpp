#include "RecordingSurface.h"

#include <algorithm>
#include <array>
#include <cstdio>
#include <initializer_list>
#include <stdexcept>
#include <utility>

namespace strutwright {

namespace {

std::string NumberText(double value) {
  std::array<char, 32> text{};
  std::snprintf(text.data(), text.size(), "%.6g", value == 0 ? 0.0 : value);
  return text.data();
}

std::string Words(const std::string& first, std::initializer_list<double> numbers) {
  std::string text = first;
  for (const double number : numbers) text += " " + NumberText(number);
  return text;
}

std::string ColourName(Colour colour) {
  const std::array<std::pair<Colour, const char*>, 6> names{
      {{Black, "black"}, {Red, "red"}, {Green, "green"}, {Blue, "blue"}, {Grey, "grey"}, {Orange, "orange"}}};
  for (const auto& [known, name] : names) {
    if (known == colour) return name;
  }
  return "another colour";
}

} // namespace

std::vector<std::string> RecordingSurface::Ink(const std::string& kind, const std::string& colour) const {
  std::vector<std::string> found;
  for (const std::string& line : ink) {
    if (line.starts_with(kind + " ") && line.find(" " + colour) != std::string::npos) found.push_back(line);
  }
  return found;
}

void RecordingSurface::Forget() {
  calls.clear();
  ink.clear();
  pixelLines.clear();
  pixelPolygons.clear();
  pixelDots.clear();
  pixelTexts.clear();
}

void RecordingSurface::Record(const std::string& call) {
  calls.push_back(call);
  if (static_cast<int>(calls.size()) == failAt) throw std::runtime_error("the surface is lost");
}

std::string RecordingSurface::PenText() const {
  std::string text = " " + ColourName(Pen.colour) + " " + std::to_string(Pen.width);
  if (Pen.style == LineStyle::Dashed) text += " dashed";
  if (Pen.mode == PenMode::Invert) text += " inverted";
  return text;
}

void RecordingSurface::SetWindow(const ViewWindow& view) {
  Record(Words("Window", {view.left, view.top, view.width, view.height}));
  window = view;
}

void RecordingSurface::SetPenWidth(int pixels) {
  Record(Words("PenWidth", {static_cast<double>(pixels)}));
  Pen.width = pixels;
}

void RecordingSurface::SetPenColour(Colour colour) {
  Record("PenColour " + ColourName(colour));
  Pen.colour = colour;
}

void RecordingSurface::SetPenMode(PenMode mode) {
  Record(mode == PenMode::Copy ? "PenMode copy" : "PenMode invert");
  Pen.mode = mode;
}

void RecordingSurface::SetLineStyle(LineStyle style) {
  Record(style == LineStyle::Solid ? "LineStyle solid" : "LineStyle dashed");
  Pen.style = style;
}

void RecordingSurface::SetFillColour(Colour colour) { Record("FillColour " + ColourName(colour)); }

void RecordingSurface::SetFillStyle(FillStyle style) {
  Record(style == FillStyle::Solid ? "FillStyle solid" : "FillStyle transparent");
  Pen.fill = style;
}

void RecordingSurface::SetTextColour(Colour colour) {
  Record("TextColour " + ColourName(colour));
  Pen.textColour = colour;
}

void RecordingSurface::SetTextAttribute(bool on) {
  Record(on ? "TextAttribute on" : "TextAttribute off");
  Pen.textAttribute = on;
}

void RecordingSurface::MoveTo(double x, double y) {
  Record(Words("MoveTo", {x, y}));
  Pen.x = x;
  Pen.y = y;
}

void RecordingSurface::DrawLine(double x1, double y1, double x2, double y2) {
  Record(Words("Line", {x1, y1, x2, y2}));
  ink.push_back(Words("line", {x1, y1, x2, y2}) + PenText());
  Pen.x = x2;
  Pen.y = y2;
}

void RecordingSurface::DrawBox(double x1, double y1, double x2, double y2) {
  Record(Words("Box", {x1, y1, x2, y2}));
  ink.push_back(Words("box", {x1, y1, x2, y2}) + PenText());
}

void RecordingSurface::DrawCircle(double x, double y, double radius) {
  Record(Words("Circle", {x, y, radius}));
  ink.push_back(Words("circle", {x, y, radius}) + PenText() + (Pen.fill == FillStyle::Solid ? " filled" : ""));
  Pen.x = x;
  Pen.y = y;
}

void RecordingSurface::DrawText(const std::string& text) {
  Record("Text " + text);
  ink.push_back(Words("text", {Pen.x, Pen.y}) + " '" + text + "' " + ColourName(Pen.textColour) +
                (Pen.textAttribute ? "" : " opaque"));
}

double RecordingSurface::TextWidth(const std::string& text, int size) const {
  const auto begins = [](char byte) { return (static_cast<unsigned char>(byte) & 0xC0U) != 0x80U; };
  return 0.6 * size * static_cast<double>(std::count_if(text.begin(), text.end(), begins));
}

void RecordingSurface::PixelLine(PixelPoint from, PixelPoint to, const LineLook& look) {
  Record(Words("PixelLine", {from.x, from.y, to.x, to.y, look.width}) + (look.dashed ? " dashed" : ""));
  pixelLines.push_back({from, to, look});
}

void RecordingSurface::PixelPolygon(std::span<const PixelPoint> corners, Colour fill) {
  std::string call = "PixelPolygon";
  for (const PixelPoint& corner : corners) call += Words("", {corner.x, corner.y});
  Record(call);
  pixelPolygons.push_back({{corners.begin(), corners.end()}, fill});
}

void RecordingSurface::PixelDot(PixelPoint centre, double radius, const LineLook& edge, Colour fill) {
  Record(Words("PixelDot", {centre.x, centre.y, radius, edge.width}));
  pixelDots.push_back({centre, radius, edge, fill});
}

void RecordingSurface::PixelText(const PixelLabel& label) {
  Record(Words("PixelText", {label.centre.x, label.centre.y, label.along.x, label.along.y}) + " " + label.text);
  pixelTexts.push_back(label);
}

} // namespace strutwright
