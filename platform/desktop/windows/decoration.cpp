// SPDX-License-Identifier: MIT
#include "platform/desktop/windows/decoration.h"

#include <QApplication>
#include <QCloseEvent>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QPainter>
#include <QPainterPath>
#include <QScreen>
#include <QStyle>
#include <QWindow>
#include <algorithm>
#include <cstdlib>
#include <utility>

#include "platform/desktop/application/desktop.h"
#include "platform/desktop/views/appearance.h"

namespace platform::desktop {
namespace {

constexpr int closeButtonMargin = 8;
constexpr int titleSize = 13;
constexpr int dragDistance = 3;
constexpr int gripWidth = 5;
constexpr int cornerLength = 12;
constexpr double cornerRadius = 10;

Qt::CursorShape cursorFor(Qt::Edges edges) {
  if (edges == (Qt::TopEdge | Qt::LeftEdge) || edges == (Qt::BottomEdge | Qt::RightEdge)) return Qt::SizeFDiagCursor;
  if (edges == (Qt::TopEdge | Qt::RightEdge) || edges == (Qt::BottomEdge | Qt::LeftEdge)) return Qt::SizeBDiagCursor;
  return (edges & (Qt::LeftEdge | Qt::RightEdge)) ? Qt::SizeHorCursor : Qt::SizeVerCursor;
}

/// With a fractional scale each edge may be a point away from where it was put.
bool isAbout(const QRect& a, const QRect& b) {
  constexpr int rounding = 2;
  return std::abs(a.left() - b.left()) <= rounding && std::abs(a.top() - b.top()) <= rounding &&
         std::abs(a.right() - b.right()) <= rounding && std::abs(a.bottom() - b.bottom()) <= rounding;
}

bool isCorner(Qt::Edges edges) {
  return (edges & (Qt::LeftEdge | Qt::RightEdge)) && (edges & (Qt::TopEdge | Qt::BottomEdge));
}

}  // namespace

void DragHandle::mousePressEvent(QMouseEvent* event) {
  pressedAt_.reset();
  if (event->button() == Qt::LeftButton) pressedAt_ = event->pos();
}

void DragHandle::mouseMoveEvent(QMouseEvent* event) {
  if (!pressedAt_ || !(event->buttons() & Qt::LeftButton)) return;
  if ((event->pos() - *pressedAt_).manhattanLength() < dragDistance) return;
  pressedAt_.reset();
  startDrag(*window()->windowHandle());
}

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
  // Text that scrolls up here would be read through the title.
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

void TitleBar::startDrag(QWindow& window) { window.startSystemMove(); }

void TitleBar::mouseDoubleClickEvent(QMouseEvent* event) {
  if (event->button() == Qt::LeftButton && onDoubleClick) onDoubleClick();
}

EdgeGrip::EdgeGrip(Qt::Edges edges) : edges_(edges) { setCursor(cursorFor(edges)); }

void EdgeGrip::placeIn(QSize window) {
  const auto span = [this](Qt::Edge near, Qt::Edge far, int length) -> std::pair<int, int> {
    const int thickness = isCorner(edges_) ? cornerLength : gripWidth;
    if (edges_ & near) return {0, thickness};
    if (edges_ & far) return {length - thickness, thickness};
    return {cornerLength, length - 2 * cornerLength};
  };
  const auto [x, width] = span(Qt::LeftEdge, Qt::RightEdge, window.width());
  const auto [y, height] = span(Qt::TopEdge, Qt::BottomEdge, window.height());
  setGeometry(x, y, width, height);
  if (!isCorner(edges_)) return;
  // A corner is an L along the two edges: what lies inside it belongs to the content.
  QRegion shape;
  if (edges_ & Qt::LeftEdge) shape += QRect(0, 0, gripWidth, height);
  if (edges_ & Qt::RightEdge) shape += QRect(width - gripWidth, 0, gripWidth, height);
  if (edges_ & Qt::TopEdge) shape += QRect(0, 0, width, gripWidth);
  if (edges_ & Qt::BottomEdge) shape += QRect(0, height - gripWidth, width, gripWidth);
  setMask(shape);
}

void EdgeGrip::paintEvent(QPaintEvent* /*event*/) {
  QPainter painter(this);
  const QColor line = window()->isActiveWindow() ? activeBorderColor(palette()) : hairlineColor(palette());
  // A window that began without a compositor cannot become see-through.
  const bool seeThrough = window()->testAttribute(Qt::WA_TranslucentBackground) && windowSystem().isComposited();
  if (isCorner(edges_) && seeThrough) {
    paintRoundCorner(painter, line);
    return;
  }
  if (edges_ & Qt::LeftEdge) painter.fillRect(0, 0, 1, height(), line);
  if (edges_ & Qt::RightEdge) painter.fillRect(width() - 1, 0, 1, height(), line);
  if (edges_ & Qt::TopEdge) painter.fillRect(0, 0, width(), 1, line);
  if (edges_ & Qt::BottomEdge) painter.fillRect(0, height() - 1, width(), 1, line);
}

/// Takes away what the window's content has drawn outside of the rounded corner.
void EdgeGrip::paintRoundCorner(QPainter& painter, const QColor& line) {
  const QRectF whole(-pos(), window()->size());
  QPainterPath outside;
  outside.addRect(rect());
  QPainterPath inside;
  inside.addRoundedRect(whole, cornerRadius, cornerRadius);
  painter.setRenderHint(QPainter::Antialiasing);
  painter.setCompositionMode(QPainter::CompositionMode_Clear);
  painter.fillPath(outside.subtracted(inside), Qt::transparent);
  painter.setCompositionMode(QPainter::CompositionMode_SourceOver);
  painter.setPen(line);
  painter.drawRoundedRect(whole.adjusted(0.5, 0.5, -0.5, -0.5), cornerRadius - 0.5, cornerRadius - 0.5);
}

void EdgeGrip::startDrag(QWindow& window) { window.startSystemResize(edges_); }

NoteFrame::NoteFrame()
    : QWidget(nullptr, Qt::Window | Qt::FramelessWindowHint),
      grips_{EdgeGrip(Qt::LeftEdge),
             EdgeGrip(Qt::RightEdge),
             EdgeGrip(Qt::TopEdge),
             EdgeGrip(Qt::BottomEdge),
             EdgeGrip(Qt::TopEdge | Qt::LeftEdge),
             EdgeGrip(Qt::TopEdge | Qt::RightEdge),
             EdgeGrip(Qt::BottomEdge | Qt::LeftEdge),
             EdgeGrip(Qt::BottomEdge | Qt::RightEdge)} {
  setBackgroundRole(QPalette::Base);
  // Where nothing composes windows, what is see-through would be black: there the corners stay square.
  if (windowSystem().isComposited()) setAttribute(Qt::WA_TranslucentBackground);
  titleBar_.onDoubleClick = [this] { toggleZoom(); };
  QObject::connect(&titleBar_.closeButton(), &QAbstractButton::clicked, this, [this] { close(); });
  QObject::connect(this, &QWidget::windowTitleChanged, &titleBar_, [this] { titleBar_.update(); });
}

NoteFrame::~NoteFrame() {
  if (content_ != nullptr) content_->setParent(nullptr);
}

NoteFrame* NoteFrame::first() {
  for (QWidget* const window : QApplication::topLevelWidgets()) {
    if (auto* const frame = dynamic_cast<NoteFrame*>(window)) return frame;
  }
  return nullptr;
}

void NoteFrame::giveWay(bool givesWay) {
  NoteFrame* const frame = first();
  if (frame == nullptr || frame->givesWay_ == givesWay) return;
  frame->givesWay_ = givesWay;
  if (frame->isVisible()) windowSystem().place(*frame, frame->placementNow());
}

Placement NoteFrame::placementNow() const {
  Placement now = placement;
  if (givesWay_) now.aboveOthers = false;
  return now;
}

void NoteFrame::showBeside(QWidget& window) {
  leaveHidden(window);
  const NoteFrame* const owner = first();
  const Placement placement = owner != nullptr ? owner->placementNow() : Placement{};
  windowSystem().prepareToShow(window, placement);
  window.winId();  // makes its native window on any display
  window.windowHandle()->setTransientParent(owner != nullptr && owner->isVisible() ? owner->windowHandle() : nullptr);
  window.show();
  windowSystem().place(window, placement);
}

void NoteFrame::activateBeside(QWidget& window) {
  windowSystem().activate(window);
  // mutter takes a window that belongs to another one to this workspace when it is activated, and that one with it.
  NoteFrame* const owner = first();
  if (owner == nullptr || !owner->isVisible() || !owner->placement.onEveryWorkspace) return;
  windowSystem().place(*owner, owner->placementNow());
  windowSystem().place(window, owner->placementNow());
}

void NoteFrame::hideBeside(QWidget& window) {
  const bool hadKeyboard = windowSystem().isActive(window);
  windowSystem().prepareToHide(window);
  leaveHidden(window);
  window.hide();
  // In its turn: a window manager that is still letting go of the window passes the keyboard on itself.
  if (hadKeyboard) requests().add([] { activateFirst(); });
}

void NoteFrame::activateFirst() {
  NoteFrame* const frame = first();
  if (frame != nullptr && frame->isVisible()) windowSystem().activate(*frame);
}

void NoteFrame::setContent(QWidget& content) {
  content_ = &content;
  content.setParent(this);
  content.show();
  titleBar_.setParent(&content);
  titleBar_.show();
  for (EdgeGrip& grip : grips_) {
    grip.setParent(this);
    grip.show();
  }
}

void NoteFrame::setVisible(bool visible) {
  if (!visible && isVisible() && onAboutToHide) onAboutToHide();
  QWidget::setVisible(visible);
}

void NoteFrame::toggleZoom() {
  if (isMaximized()) {
    // Some window managers maximise a window that they find as large as the screen.
    showNormal();
    if (zoom_) unzoom();
  } else if (isZoomed()) {
    unzoom();
  } else {
    zoom_ = {geometry(), {}};
    zoomAnew();
  }
}

/// Screens may have shrunk or gone since.
void NoteFrame::unzoom() { setGeometry(toToolkit(frameWholeOnScreens(fromToolkit(zoom_->before), screens()))); }

void NoteFrame::zoomAnew() {
  zoom_->to = screen()->availableGeometry();
  setGeometry(zoom_->to);
}

QRect NoteFrame::unzoomedGeometry() const { return isZoomed() ? zoom_->before : geometry(); }

bool NoteFrame::isZoomed() const {
  // Window managers too make room for a panel that comes.
  return zoom_ &&
         (isMaximized() || isAbout(geometry(), zoom_->to) || isAbout(geometry(), screen()->availableGeometry()));
}

void NoteFrame::closeEvent(QCloseEvent* event) {
  event->ignore();
  if (onCloseRequest) onCloseRequest();
}

void NoteFrame::resizeEvent(QResizeEvent* /*event*/) {
  titleBar_.setGeometry(0, 0, width(), titleBarHeight);
  for (EdgeGrip& grip : grips_) grip.placeIn(size());
  if (onGeometryChange) onGeometryChange();
}

void NoteFrame::moveEvent(QMoveEvent* /*event*/) {
  if (onGeometryChange) onGeometryChange();
}

void NoteFrame::keyPressEvent(QKeyEvent* event) {
  if (event->key() == Qt::Key_F6) {
    // The way into the title bar, for the tab key belongs to the text.
    focusNextPrevChild((event->modifiers() & Qt::ShiftModifier) == 0);
  } else if (onUnusedKey) {
    onUnusedKey(*event);
  }
}

QWidget* NoteFrame::windowBeside() {
  for (QWidget* const window : QApplication::topLevelWidgets()) {
    if (window->windowType() == Qt::Dialog && window->isVisible()) return window;
  }
  return nullptr;
}

bool NoteFrame::focusNextPrevChild(bool next) {
  QWidgetList stops{focusProxy() != nullptr ? focusProxy() : this};
  for (auto* const button : findChildren<QAbstractButton*>()) {
    if (button->isVisible() && button->isEnabled() && button->focusPolicy() != Qt::NoFocus) stops.append(button);
  }
  std::sort(stops.begin() + 1, stops.end(), [this](const QWidget* a, const QWidget* b) {
    const int rightward = b->mapTo(this, QPoint()).x() - a->mapTo(this, QPoint()).x();
    return isRightToLeft() ? rightward < 0 : rightward > 0;
  });
  const auto current = std::max<qsizetype>(0, stops.indexOf(focusWidget()));
  QWidget* const beside = windowBeside();
  if (beside != nullptr && current == (next ? stops.size() - 1 : 0)) {
    activateBeside(*beside);
    stops.front()->setFocus(Qt::OtherFocusReason);
    return true;
  }
  stops[(current + (next ? 1 : stops.size() - 1)) % stops.size()]->setFocus(Qt::TabFocusReason);
  return true;
}

void NoteFrame::changeEvent(QEvent* event) {
  QWidget::changeEvent(event);
  for (EdgeGrip& grip : grips_) {
    if (event->type() == QEvent::WindowStateChange) grip.setVisible(!isMaximized());
    if (event->type() == QEvent::ActivationChange) grip.update();
  }
}

}  // namespace platform::desktop
