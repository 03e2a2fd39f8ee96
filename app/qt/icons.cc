// Pictures are outlines on a grid of 24 by 24, drawn when they are shown. So they are sharp at any
// size, and lines take the colour of the text around them, in the light and in the dark.

#include "app/qt/icons.h"

#include <QApplication>
#include <QIconEngine>
#include <QPainter>
#include <QPainterPath>
#include <QPalette>
#include <sstream>
#include <vector>

namespace {

enum class Tint { text, accent, good, bad, warning, soft, brand, paper };

// A path: "M x y", "L x y", "C x1 y1 x2 y2 x y", "O x y radius" (a circle), "Z".
struct Shape {
  char const * path;
  Tint tint = Tint::text;
  bool filled = false;
};

struct Picture {
  std::string_view name;
  std::vector<Shape> shapes;
};

constexpr char const * sheet =
    "M 6 3 L 14 3 L 18.5 7.5 L 18.5 21 L 6 21 Z M 14 3 L 14 7.5 L 18.5 7.5";

constexpr std::string_view program = "program";

std::vector<Picture> const & pictures() {
  static std::vector<Picture> const pictures = {
      {"new", {{sheet}, {"M 12.25 11 L 12.25 17 M 9.25 14 L 15.25 14", Tint::good}}},
      {"open",
       {{"M 3 19 L 3 5 L 9 5 L 11 7.5 L 19 7.5 L 19 10.5"},
        {"M 3 19 L 6.5 10.5 L 22 10.5 L 18.5 19 Z", Tint::accent}}},
      {"save",
       {{"M 4 4 L 16.5 4 L 20 7.5 L 20 20 L 4 20 Z"},
        {"M 8 4 L 8 9 L 15 9 L 15 4", Tint::accent},
        {"M 7.5 20 L 7.5 13.5 L 16.5 13.5 L 16.5 20"}}},
      {"input",
       {{"M 3 19 L 3 5 L 9 5 L 11 7.5 L 20 7.5 L 20 11"},
        {"M 3 19 L 11 19"},
        {"M 12.5 13 L 21 13 M 12.5 16.5 L 21 16.5 M 12.5 20 L 21 20", Tint::accent}}},
      {"folder", {{"M 3 19 L 3 5 L 9 5 L 11 7.5 L 21 7.5 L 21 19 Z"}}},
      {"quick",
       {{"M 3 19 L 3 5 L 9 5 L 11 7.5 L 20 7.5 L 20 11 M 3 19 L 10 19"},
        {"M 17 11.5 L 18.4 15.1 L 22 16.5 L 18.4 17.9 L 17 21.5 L 15.6 17.9 L 12 16.5 L 15.6 15.1 "
         "Z",
         Tint::accent, true}}},
      {"start", {{"M 7 4.5 L 19.5 12 L 7 19.5 Z", Tint::good, true}}},
      {"stop", {{"M 6 6 L 18 6 L 18 18 L 6 18 Z", Tint::bad, true}}},
      {"html",
       {{"O 12 12 9"},
        {"M 3 12 L 21 12", Tint::accent},
        {"M 12 3 C 7 7 7 17 12 21 M 12 3 C 17 7 17 17 12 21", Tint::accent}}},
      {"rtf", {{sheet}, {"M 9 11 L 15.5 11 M 9 14 L 15.5 14 M 9 17 L 13 17", Tint::accent}}},
      {"help_file",
       {{sheet},
        {"M 10 12 C 10 9.5 14.5 9.5 14.5 12 C 14.5 13.7 12.25 13.6 12.25 15.5 M 12.25 17.7 L 12.25 "
         "18",
         Tint::accent}}},
      {"stop_output", {{sheet}, {"M 9.3 11 L 15.3 11 L 15.3 17 L 9.3 17 Z", Tint::bad, true}}},
      {"help",
       {{"O 12 12 9"},
        {"M 9 9.8 C 9 6 15 6 15 9.8 C 15 12.2 12 12 12 14.5 M 12 17.2 L 12 17.4", Tint::accent}}},
      {"result",
       {{"M 11 5 L 4 5 L 4 20 L 19 20 L 19 13"},
        {"M 14 3.5 L 20.5 3.5 L 20.5 10 M 20.5 3.5 L 11.5 12.5", Tint::accent}}},
      {"search", {{"O 10.5 10.5 6.5"}, {"M 15.3 15.3 L 21 21"}}},
      {"copy", {{"M 8 8 L 20 8 L 20 21 L 8 21 Z M 16 8 L 16 3 L 4 3 L 4 16 L 8 16"}}},
      {"error", {{"O 12 12 9", Tint::bad, true}, {"M 9 9 L 15 15 M 15 9 L 9 15", Tint::soft}}},
      {"warning",
       {{"M 12 3.5 L 22 20.5 L 2 20.5 Z", Tint::warning, true},
        {"M 12 9.5 L 12 14.5 M 12 17.4 L 12 17.6", Tint::soft}}},
      {"information",
       {{"O 12 12 9", Tint::accent}, {"M 12 11 L 12 17 M 12 7.4 L 12 7.6", Tint::accent}}},
      {program,
       {{"M 3 5 C 3 3.9 3.9 3 5 3 L 19 3 C 20.1 3 21 3.9 21 5 L 21 19 C 21 20.1 20.1 21 19 21 L 5 "
         "21 "
         "C 3.9 21 3 20.1 3 19 Z",
         Tint::brand, true},
        {"M 6.5 8 L 11 17.5 L 13 17.5 L 17.5 8", Tint::paper},
        {"M 14.5 6.5 L 18.5 6.5", Tint::paper}}},
  };
  return pictures;
}

QPainterPath outline(char const * text) {
  QPainterPath path;
  std::istringstream in(text);
  std::string step;
  double a, b, c, d, x, y;
  while (in >> step) {
    if (step == "M" && in >> x >> y)
      path.moveTo(x, y);
    else if (step == "L" && in >> x >> y)
      path.lineTo(x, y);
    else if (step == "C" && in >> a >> b >> c >> d >> x >> y)
      path.cubicTo(a, b, c, d, x, y);
    else if (step == "O" && in >> x >> y >> a)
      path.addEllipse(QPointF(x, y), a, a);
    else if (step == "Z")
      path.closeSubpath();
  }
  return path;
}

bool is_dark(QPalette const & palette) {
  return palette.color(QPalette::Window).lightness() < 128;
}

QColor colour_of(Tint tint, QPalette const & palette, QPalette::ColorGroup group) {
  QColor text = palette.color(QPalette::Active, QPalette::ButtonText);
  if (group == QPalette::Disabled && tint != Tint::soft) {
    text.setAlphaF(0.3F);
    return text;
  }
  bool const dark = is_dark(palette);
  switch (tint) {
  case Tint::text:
    return text;
  case Tint::accent:
    return dark ? QColor(0x7a, 0xb8, 0xff) : QColor(0x1f, 0x6f, 0xd0);
  case Tint::good:
    return dark ? QColor(0x6c, 0xd0, 0x86) : QColor(0x1d, 0x8a, 0x43);
  case Tint::bad:
    return dark ? QColor(0xff, 0x83, 0x7a) : QColor(0xc8, 0x32, 0x2c);
  case Tint::warning:
    return dark ? QColor(0xf2, 0xb9, 0x4b) : QColor(0xc9, 0x7a, 0x00);
  case Tint::brand:
    return QColor(0x24, 0x5a, 0x9e);
  case Tint::paper:
    return QColor(0xf7, 0xf2, 0xe4);
  case Tint::soft:
    return palette.color(group, QPalette::Base);
  }
  return text;
}

class gIconEngine : public QIconEngine {
public:
  explicit gIconEngine(Picture const & picture) : picture_(picture) {}

  void paint(QPainter * painter, QRect const & rect, QIcon::Mode mode, QIcon::State) override {
    QPalette palette = QApplication::palette();
    if (mode == QIcon::Selected) {
      palette.setColor(QPalette::ButtonText, palette.color(QPalette::HighlightedText));
      palette.setColor(QPalette::Window, palette.color(QPalette::Highlight));
    }
    auto const group = mode == QIcon::Disabled ? QPalette::Disabled : QPalette::Active;
    painter->save();
    painter->setRenderHint(QPainter::Antialiasing);
    painter->translate(rect.topLeft());
    painter->scale(rect.width() / 24.0, rect.height() / 24.0);
    for (Shape const & shape : picture_.shapes)
      draw(*painter, shape, colour_of(shape.tint, palette, group));
    painter->restore();
  }

  QPixmap pixmap(QSize const & size, QIcon::Mode mode, QIcon::State state) override {
    QPixmap pixmap(size);
    pixmap.fill(Qt::transparent);
    QPainter painter(&pixmap);
    paint(&painter, QRect(QPoint(0, 0), size), mode, state);
    return pixmap;
  }

  QIconEngine * clone() const override { return new gIconEngine(picture_); }

private:
  static void draw(QPainter & painter, Shape const & shape, QColor const & colour) {
    painter.setPen(QPen(colour, 1.6, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
    painter.setBrush(shape.filled ? QBrush(colour) : QBrush(Qt::NoBrush));
    painter.drawPath(outline(shape.path));
  }

  Picture const & picture_;
};

} // namespace

QIcon Gui::icon(std::string_view name) {
  for (Picture const & picture : pictures()) {
    if (picture.name == name)
      return QIcon(new gIconEngine(picture));
  }
  return {};
}

QIcon Gui::program_icon() {
  return QIcon::fromTheme("vellumar", icon(program));
}
