// SPDX-License-Identifier: MIT
#include "platform/desktop/views/symbols.h"

#include <QPainter>
#include <algorithm>
#include <array>

#include "platform/image.h"

namespace platform::desktop {
namespace {

using Draw = void (*)(QPainter&);

// Each symbol is a square of 14 units around the origin, drawn with the painter's pen.

constexpr double strokeWidth = 1.2;
constexpr double circleRadius = 7;
constexpr int iconSide = 16;  // pixels, the grid on which the strokes are sharp
constexpr double iconStrokeWidth = 2;

void drawInfo(QPainter& painter) {
  painter.drawEllipse(QPointF(), circleRadius, circleRadius);
  painter.drawLine(QPointF(0, -0.5), QPointF(0, 3.5));
  painter.setBrush(painter.pen().color());
  painter.setPen(Qt::NoPen);
  painter.drawEllipse(QPointF(0, -3.25), 0.9, 0.9);
}

void drawCross(QPainter& painter) {
  painter.drawEllipse(QPointF(), circleRadius, circleRadius);
  painter.drawLine(QPointF(-2.5, -2.5), QPointF(2.5, 2.5));
  painter.drawLine(QPointF(-2.5, 2.5), QPointF(2.5, -2.5));
}

void drawNote(QPainter& painter) {
  const double edge = 7 - painter.pen().widthF() / 2;
  painter.drawRoundedRect(QRectF(-edge, -edge, 2 * edge, 2 * edge), 2, 2);
  painter.drawLine(QPointF(-3, -3), QPointF(3, -3));
  painter.drawLine(QPointF(-3, 0), QPointF(3, 0));
  painter.drawLine(QPointF(-3, 3), QPointF(1, 3));
}

struct Symbol {
  std::string_view name;
  Draw draw;
};
constexpr std::array symbols{Symbol{"info.circle", drawInfo}, Symbol{"xmark.circle", drawCross},
                             Symbol{"note.text", drawNote}};

const Symbol* find(std::string_view name) {
  const auto* const found =
      std::find_if(symbols.begin(), symbols.end(), [name](const Symbol& symbol) { return symbol.name == name; });
  return found == symbols.end() ? nullptr : found;
}

void draw(const Symbol& symbol, QPainter& painter, QPointF middle, double scale, const QPen& pen) {
  painter.save();
  painter.setRenderHint(QPainter::Antialiasing);
  painter.translate(middle);
  painter.scale(scale, scale);
  painter.setPen(pen);
  symbol.draw(painter);
  painter.restore();
}

}  // namespace

bool symbolExists(std::string_view name) { return find(name) != nullptr; }

void drawSymbol(std::string_view name, QPainter& painter, const QRectF& square) {
  const Symbol* const symbol = find(name);
  if (symbol == nullptr) return;
  const QPen pen(painter.pen().color(), strokeWidth, Qt::SolidLine, Qt::RoundCap);
  draw(*symbol, painter, square.center(), square.width() / NSImage::symbolSide, pen);
}

QIcon symbolIcon(std::string_view name, const QColor& color) {
  const Symbol* const symbol = find(name);
  if (symbol == nullptr) return {};
  const QPen pen(color, iconStrokeWidth, Qt::SolidLine, Qt::FlatCap);
  QIcon icon;
  for (const int side : {16, 22, 24, 32, 48, 64}) {
    QPixmap pixmap(side, side);
    pixmap.fill(Qt::transparent);
    QPainter painter(&pixmap);
    // Only whole multiples of the grid are sharp: other sizes get the next smaller one, with room around it.
    const int scale = side / iconSide;
    draw(*symbol, painter, QPointF(side, side) / 2, scale, pen);
    painter.end();
    icon.addPixmap(pixmap);
  }
  return icon;
}

}  // namespace platform::desktop
