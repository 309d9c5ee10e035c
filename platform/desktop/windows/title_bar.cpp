// SPDX-License-Identifier: MIT
#include "platform/desktop/windows/title_bar.h"

#include <QMouseEvent>
#include <QPainter>
#include <QStyle>

#include "platform/desktop/views/appearance.h"

namespace platform::desktop {
namespace {

constexpr int closeButtonMargin = 8;  // points
constexpr int titleSize = 13;

}  // namespace

TitleBar::TitleBar() {
  closeButton_.setSymbol("xmark.circle", qtTrId("Close"));
  setCursor(Qt::ArrowCursor);
  closeButton_.setParent(this);
  closeButton_.resize(closeButton_.sizeHint());
  placeButtons();
}

TitleBar::~TitleBar() { setItemButton(nullptr); }

void TitleBar::paintEvent(QPaintEvent* /*event*/) {
  QPainter painter(this);
  painter.fillRect(rect(), palette().base());
  painter.setFont(toQFont(NSFont::systemFontOfSize(titleSize, NSFontWeight::Semibold)));
  painter.setPen(secondaryTextColor(palette()));
  painter.setLayoutDirection(directionOf(window()->windowTitle()));
  const int buttonRoom = closeButtonMargin + closeButton_.width();
  const int sides = (itemButton_ != nullptr ? 2 * buttonRoom : buttonRoom) + closeButtonMargin;
  const QRect room = rect().adjusted(sides, 0, -sides, 0);
  const QString title = painter.fontMetrics().elidedText(window()->windowTitle(), Qt::ElideRight, room.width());
  painter.drawText(room, Qt::AlignCenter, title);
}

void TitleBar::setItemButton(QWidget* button) {
  if (itemButton_ == button) return;
  if (itemButton_ != nullptr) {
    if (itemButton_->hasFocus()) window()->setFocus();
    itemButton_->hide();
    itemButton_->setParent(nullptr);
  }
  itemButton_ = button;
  if (itemButton_ != nullptr) {
    itemButton_->setParent(this);
    itemButton_->resize(itemButton_->sizeHint());
    placeButtons();
    itemButton_->show();
  }
  update();
}

void TitleBar::placeButtons() {
  const auto place = [this](QWidget& button, int x) {
    const QRect wanted(QPoint(x, (titleBarHeight - button.height()) / 2), button.size());
    button.setGeometry(QStyle::visualRect(layoutDirection(), rect(), wanted));
  };
  place(closeButton_, closeButtonMargin);
  if (itemButton_ != nullptr) place(*itemButton_, width() - 2 * (closeButtonMargin + itemButton_->width()));
}

void TitleBar::resizeEvent(QResizeEvent* /*event*/) { placeButtons(); }

void TitleBar::mouseDoubleClickEvent(QMouseEvent* event) {
  if (event->button() == Qt::LeftButton && onDoubleClick) onDoubleClick();
}

}  // namespace platform::desktop
