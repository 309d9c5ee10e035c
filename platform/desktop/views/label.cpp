// SPDX-License-Identifier: MIT
#include "platform/desktop/views/label.h"

#include <QPainter>
#include <QStyle>
#include <QtMath>
#include <algorithm>

#include "platform/desktop/base/strings.h"
#include "platform/desktop/views/appearance.h"

namespace platform::desktop {

Label::Label(const NSTextField& field) : QLabel(toQString(field.text())), color_(field.textColor()) {
  setTextFormat(Qt::PlainText);
  setFont(toQFont(field.font()));
  if (field.wraps()) paragraphWidth_ = qRound(field.preferredMaxLayoutWidth());
}

void Label::fitInto(int room) {
  breakLines(QWIDGETSIZE_MAX);
  const int line = qCeil(lines_.maximumWidth());
  const int width = paragraphWidth_.value_or(std::min(line, room));
  setFixedSize(width, breakLines(width));
  above_ = 0;
}

void Label::standOn(double ascent) {
  above_ = qRound(ascent - this->ascent());
  setFixedHeight(height() + above_);
}

void Label::paintEvent(QPaintEvent* /*event*/) {
  QPainter painter(this);
  painter.setPen(toQColor(color_, palette()));
  lines_.draw(&painter, QPointF(0, above_));
}

int Label::breakLines(int width) {
  QTextOption option;
  // The direction of the user's language, not of the first letter: that may be of a foreign name.
  option.setTextDirection(layoutDirection());
  option.setAlignment(QStyle::visualAlignment(layoutDirection(), Qt::AlignLeading));
  option.setWrapMode(QTextOption::WrapAtWordBoundaryOrAnywhere);
  lines_.setText(text());
  lines_.setFont(font());
  lines_.setTextOption(option);
  lines_.beginLayout();
  double height = 0;
  for (QTextLine line = lines_.createLine(); line.isValid(); line = lines_.createLine()) {
    line.setLineWidth(width);
    line.setPosition(QPointF(0, height));
    height += line.height();
  }
  lines_.endLayout();
  return qCeil(height);
}

}  // namespace platform::desktop
