// SPDX-License-Identifier: MIT
#include "platform/desktop/views/push_button.h"

#include <QFocusEvent>
#include <QPainter>

#include "platform/desktop/views/appearance.h"

namespace platform::desktop {
namespace {

constexpr int faceHeight = 24;
constexpr int sideRoom = 16;
constexpr int titleSize = 13;
constexpr double cornerRadius = 6;
constexpr int livelyPercent = 108;
constexpr int pressedPercent = 112;

}  // namespace

PushButton::PushButton(const QString& title) : QPushButton(title) {
  setFont(toQFont(NSFont::systemFontOfSize(titleSize)));
  setAttribute(Qt::WA_Hover);
  setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
}

void PushButton::setTint(const NSColor& tint) {
  tint_ = tint;
  update();
}

QSize PushButton::sizeHint() const { return {fontMetrics().horizontalAdvance(text()) + 2 * sideRoom, faceHeight}; }

void PushButton::focusInEvent(QFocusEvent* event) {
  // The focus ring is shown only to users of the Tab key: the default button has the focus from the start.
  reachedByKey_ = event->reason() == Qt::TabFocusReason || event->reason() == Qt::BacktabFocusReason;
  QPushButton::focusInEvent(event);
}

void PushButton::paintEvent(QPaintEvent* /*event*/) {
  QPainter painter(this);
  painter.setRenderHint(QPainter::Antialiasing);
  const QColor tint = toQColor(tint_, palette());
  const QColor face = isDown() ? tint.darker(pressedPercent) : underMouse() ? tint.lighter(livelyPercent) : tint;
  painter.setPen(Qt::NoPen);
  painter.setBrush(face);
  painter.drawRoundedRect(rect(), cornerRadius, cornerRadius);
  if (hasFocus() && reachedByKey_) {
    painter.setPen(QPen(textColorOn(face), 1));
    painter.setBrush(Qt::NoBrush);
    painter.drawRoundedRect(QRectF(rect()).adjusted(2, 2, -2, -2), cornerRadius - 2, cornerRadius - 2);
  }
  painter.setPen(textColorOn(face));
  painter.drawText(rect(), Qt::AlignCenter, text());
}

}  // namespace platform::desktop
