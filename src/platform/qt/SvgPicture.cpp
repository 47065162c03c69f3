#include "SvgPicture.h"

#include "Markup.h"
#include "StrokeFonts.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cstdint>
#include <cstdio>
#include <utility>
#include <variant>

#include <QFontInfo>
#include <QSize>
#include <QString>

namespace strutwright {

namespace {

constexpr QRgb PaperColour = 0xFFFFFF;

std::string Hex(QRgb colour) {
  constexpr QRgb opaque = 0xFFFFFF;
  std::array<char, 8> text{};
  std::snprintf(text.data(), text.size(), "#%06x", colour & opaque);
  return text.data();
}

std::string Attribute(const char* name, const std::string& value) {
  return std::string(" ") + name + "=\"" + value + '"';
}

std::string Attribute(const char* name, double value) { return Attribute(name, ShortNumber(value)); }

std::string PointText(const QPointF& point) { return ShortNumber(point.x()) + ',' + ShortNumber(point.y()); }

/// What Qt draws as a dash is four times as long as it is wide, and the gap twice.
std::string PenAttributes(const PenLook& pen) {
  constexpr double dash = 4;
  constexpr double gap = 2;
  const double width = pen.width > 0 ? pen.width : 1; // Qt's thinnest line is a pixel wide
  const std::string line = Attribute("stroke", Hex(pen.colour)) + Attribute("stroke-width", width);
  if (!pen.dashed) return line + Attribute("stroke-linecap", "square");
  return line + Attribute("stroke-dasharray", ShortNumber(dash * width) + ',' + ShortNumber(gap * width));
}

std::string Rectangle(const QRectF& area, const std::string& more = "") {
  return "<rect" + Attribute("x", area.x()) + Attribute("y", area.y()) + Attribute("width", area.width()) +
         Attribute("height", area.height()) + more + "/>";
}

std::string Ellipse(const QPointF& centre, double radiusX, double radiusY) {
  const std::string middle = Attribute("cx", centre.x()) + Attribute("cy", centre.y());
  if (radiusX == radiusY) return "<circle" + middle + Attribute("r", radiusX) + "/>";
  return "<ellipse" + middle + Attribute("rx", radiusX) + Attribute("ry", radiusY) + "/>";
}

/// XML has no control characters, and its bytes are UTF-8.
std::string XmlText(const std::string& text) {
  std::string valid = QString::fromStdString(text).toStdString();
  std::replace_if(
      valid.begin(), valid.end(), [](char byte) { return byte >= 0 && byte < ' '; }, ' ');
  return EscapedMarkup(valid);
}

/// Writes strokes, and what follows each other and looks alike as one group.
class SvgWriter {
 public:
  /// idStart: what the ids of the texts begin with.
  explicit SvgWriter(std::string idStart) : IdStart(std::move(idStart)) {}

  void operator()(const LineStroke& stroke) {
    Add(Attribute("fill", "none") + PenAttributes(stroke.pen),
        "<polyline" + Attribute("points", PointText(stroke.line.p1()) + ' ' + PointText(stroke.line.p2())) + "/>");
  }

  void operator()(const CircleStroke& stroke) {
    Add(Attribute("fill", stroke.fill ? Hex(*stroke.fill) : "none") + PenAttributes(stroke.pen),
        Ellipse(stroke.bounds.center(), stroke.bounds.width() / 2, stroke.bounds.height() / 2));
  }

  void operator()(const BoxStroke& stroke) { Add(Attribute("fill", Hex(stroke.fill)), Rectangle(stroke.inside)); }

  void operator()(const TextStroke& stroke) {
    if (!stroke.halo) Add(Attribute("fill", Hex(PaperColour)), Rectangle(TextArea(stroke)));
    const QPointF baseline = BaselineOf(stroke);
    AddText({stroke.text, TextSize, stroke.colour, stroke.halo}, Place(baseline));
  }

  void operator()(const DotStroke& stroke) {
    Add(Attribute("fill", Hex(stroke.fill)) + PenAttributes(stroke.edge),
        Ellipse(stroke.centre, stroke.radius, stroke.radius));
  }

  void operator()(const PolygonStroke& stroke) {
    std::string points;
    for (const QPointF& corner : stroke.corners) points += (points.empty() ? "" : " ") + PointText(corner);
    Add(Attribute("fill", Hex(stroke.fill)) + Attribute("fill-rule", "evenodd"),
        "<polygon" + Attribute("points", points) + "/>");
  }

  void operator()(const LabelStroke& stroke) {
    if (!stroke.box.isEmpty()) AddBox(stroke);
    const QPointF baseline = BaselineOf(stroke);
    const std::string place =
        stroke.along.y() == 0
            ? Place(stroke.centre + baseline)
            : Place(baseline) + Attribute("transform", "translate(" + PointText(stroke.centre) + ")rotate(" +
                                                           ShortNumber(DegreesOf(stroke.along)) + ')');
    AddText({stroke.text, stroke.size, stroke.colour, stroke.box.isEmpty()}, place);
  }

  /// What was written, its last group closed.
  std::string Content() {
    Add("", "");
    return Svg;
  }

 private:
  struct Words {
    const std::string& text;
    int size;
    QRgb colour;
    bool halo;
  };

  static std::string Place(const QPointF& place) { return Attribute("x", place.x()) + Attribute("y", place.y()); }

  void Add(const std::string& look, const std::string& element) {
    if (look != Look) {
      if (!Look.empty()) Svg += "</g>\n";
      if (!look.empty()) Svg += "<g" + look + ">\n";
      Look = look;
    }
    if (!element.empty()) Svg += element + '\n';
  }

  /// The text itself has no colour, so that its halo is the same text, drawn before it with a wide white edge.
  void AddText(const Words& words, const std::string& place) {
    std::string name;
    if (words.halo) {
      const std::string id = IdStart + std::to_string(++TextCount);
      Add(Attribute("fill", Hex(PaperColour)) + Attribute("stroke", Hex(PaperColour)) +
              Attribute("stroke-width", HaloWidth),
          "<use" + Attribute("xlink:href", '#' + id) + "/>");
      name = Attribute("id", id);
    }
    Add(Attribute("fill", Hex(words.colour)),
        "<text" + name + place + Attribute("font-size", words.size) + '>' + XmlText(words.text) + "</text>");
  }

  void AddBox(const LabelStroke& stroke) {
    const QRectF around(-stroke.box.width() / 2, -stroke.box.height() / 2, stroke.box.width(), stroke.box.height());
    Add(Attribute("fill", Hex(PaperColour)) + Attribute("stroke", Hex(stroke.frame)) + Attribute("stroke-width", 1),
        Rectangle(around.translated(stroke.centre), Attribute("rx", BoxCorner)));
  }

  std::string IdStart;
  std::string Svg;
  std::string Look; ///< of the group that is open; none where it is empty
  int TextCount = 0;
};

std::string ContentOf(std::span<const Stroke> strokes, const QSize& size, const std::string& idStart) {
  SvgWriter writer(idStart);
  writer(BoxStroke{QRectF(QPointF(0, 0), QSizeF(size)), PaperColour});
  for (const Stroke& stroke : strokes) std::visit(writer, stroke);
  return writer.Content();
}

/// Different for other contents, so that pictures which stand in one web page do not share their ids.
std::string IdStartFor(const std::string& content) {
  constexpr std::uint64_t start = 0xcbf29ce484222325;
  constexpr std::uint64_t prime = 0x100000001b3;
  std::uint64_t hash = start;
  for (const char byte : content) hash = (hash ^ static_cast<unsigned char>(byte)) * prime;
  std::array<char, 2 * sizeof hash> text{};
  return "t" + std::string(text.data(), std::to_chars(text.data(), text.data() + text.size(), hash, 16).ptr) + '-';
}

} // namespace

std::string SvgPicture(std::span<const Stroke> strokes, const QSize& size) {
  const std::string content = ContentOf(strokes, size, IdStartFor(ContentOf(strokes, size, "")));
  const std::string width = std::to_string(size.width());
  const std::string height = std::to_string(size.height());
  return "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n"
         "<svg xmlns=\"http://www.w3.org/2000/svg\" xmlns:xlink=\"http://www.w3.org/1999/xlink\"" +
         Attribute("width", width) + Attribute("height", height) + Attribute("viewBox", "0 0 " + width + ' ' + height) +
         Attribute("font-family", XmlText(QFontInfo(TextFont()).family().toStdString()) + ", sans-serif") +
         Attribute("stroke-linejoin", "round") + " xml:space=\"preserve\">\n<title>Strutwright</title>\n" + content +
         "</svg>\n";
}

} // namespace strutwright
