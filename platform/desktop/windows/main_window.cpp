// SPDX-License-Identifier: MIT
#include "platform/desktop/windows/main_window.h"

#include <QCloseEvent>
#include <QKeyEvent>
#include <algorithm>

#include "platform/desktop/windows/program_windows.h"

namespace platform::desktop {

MainWindow::MainWindow(ProgramWindows& windows, NSWindow& owner)
    : QWidget(nullptr, Qt::Window | Qt::FramelessWindowHint),
      windows_(windows),
      owner_(owner),
      zoom_(*this, windows.system()),
      border_(windows.system()) {
  windows_.add(*this);
  setBackgroundRole(QPalette::Base);
  // Without a compositor, transparent pixels would be black; there the corners stay square.
  if (windows_.system().isComposited()) setAttribute(Qt::WA_TranslucentBackground);
  titleBar_.onDoubleClick = [this] { zoom_.toggle(); };
  QObject::connect(&titleBar_.closeButton(), &QAbstractButton::clicked, this, [this] { close(); });
  QObject::connect(this, &QWidget::windowTitleChanged, &titleBar_, [this] { titleBar_.update(); });
}

MainWindow::~MainWindow() {
  windows_.remove(*this);
  if (content_ != nullptr) content_->setParent(nullptr);
}

void MainWindow::setContent(QWidget& content) {
  content_ = &content;
  content.setParent(this);
  content.show();
  titleBar_.setParent(&content);
  titleBar_.show();
  border_.setParent(this);
  border_.show();
}

void MainWindow::setVisible(bool visible) {
  if (!visible && isVisible()) {
    windows_.system().prepareToHide(*this, NextActive::Previous);
    if (onHide) onHide();
  }
  QWidget::setVisible(visible);
}

void MainWindow::closeEvent(QCloseEvent* event) {
  event->ignore();
  if (onCloseRequest) onCloseRequest();
}

void MainWindow::resizeEvent(QResizeEvent* /*event*/) {
  titleBar_.setGeometry(0, 0, width(), titleBarHeight);
  border_.setGeometry(rect());
  geometryChanged();
}

void MainWindow::moveEvent(QMoveEvent* /*event*/) { geometryChanged(); }

void MainWindow::geometryChanged() {
  zoom_.geometryChanged();
  if (onGeometryChange) onGeometryChange();
}

void MainWindow::changeEvent(QEvent* event) {
  QWidget::changeEvent(event);
  if (event->type() == QEvent::WindowStateChange) border_.setVisible(!isMaximized());
  if (event->type() == QEvent::ActivationChange) border_.update();  // only windows get this event
}

void MainWindow::keyPressEvent(QKeyEvent* event) {
  if (event->key() == Qt::Key_F6) {
    // F6 moves the focus to the title bar's buttons, since Tab types into the text.
    focusNextPrevChild((event->modifiers() & Qt::ShiftModifier) == 0);
  } else if (onUnusedKey) {
    onUnusedKey(*event);
  }
}

QWidgetList MainWindow::focusStops() {
  QWidgetList stops{focusProxy() != nullptr ? focusProxy() : this};
  for (auto* const button : findChildren<QAbstractButton*>()) {
    if (button->isVisible() && button->isEnabled() && button->focusPolicy() != Qt::NoFocus) stops.append(button);
  }
  std::sort(stops.begin() + 1, stops.end(), [this](const QWidget* a, const QWidget* b) {
    const int rightward = b->mapTo(this, QPoint()).x() - a->mapTo(this, QPoint()).x();
    return isRightToLeft() ? rightward < 0 : rightward > 0;
  });
  return stops;
}

bool MainWindow::focusNextPrevChild(bool next) {
  const QWidgetList stops = focusStops();
  const auto current = std::max<qsizetype>(0, stops.indexOf(focusWidget()));
  const bool atEnd = current == (next ? stops.size() - 1 : 0);
  if (atEnd && windows_.activateAnyCompanion()) {
    stops.front()->setFocus(Qt::OtherFocusReason);
  } else {
    stops[(current + (next ? 1 : stops.size() - 1)) % stops.size()]->setFocus(Qt::TabFocusReason);
  }
  return true;
}

}  // namespace platform::desktop
