// SPDX-License-Identifier: MIT
#include "platform/desktop/windows/bubble.h"

#include <QGuiApplication>
#include <QKeyEvent>
#include <QLabel>
#include <QPainter>
#include <QScreen>
#include <QTimer>
#include <algorithm>
#include <array>
#include <utility>

#include "platform/desktop/views/appearance.h"
#include "platform/desktop/windows/main_window.h"
#include "platform/desktop/windows/program_windows.h"
#include "platform/desktop/windows/screens.h"

namespace platform::desktop {
namespace {

// In points.
constexpr int arrowHeight = 9;
constexpr int arrowHalfWidth = 10;
constexpr int cornerRadius = 10;
constexpr int border = 1;
constexpr int distanceFromAnchor = 2;
constexpr int distanceFromPanel = 6;                             // without an arrow
constexpr int closestArrow = cornerRadius + arrowHalfWidth + 2;  // to a side of the bubble

/// `wish`, limited to the range; `least` if the range is empty.
int within(int wish, int least, int most) { return std::clamp(wish, least, std::max(least, most)); }

}  // namespace

Bubble::Bubble(ProgramWindows& windows, QWidget& content, bool transient)
    : QDialog(nullptr, (transient ? Qt::Popup : Qt::Dialog) | Qt::FramelessWindowHint | Qt::NoDropShadowWindowHint),
      windows_(windows),
      content_(content),
      transient_(transient) {
  // Without a compositor, transparent pixels would be black; there the window gets a mask instead.
  if (windows_.system().isComposited()) setAttribute(Qt::WA_TranslucentBackground);
  if (transient) {
    // Screen readers read what has the focus.
    setFocusPolicy(Qt::StrongFocus);
    setFocus();
  }
  setProperty("_kde_no_window_grab", true);  // Breeze moves a dialog that is dragged by its background
  setAttribute(Qt::WA_NoMouseReplay);        // the press that closes it does nothing else
  content_.setParent(this);
  content_.show();
  content_.installEventFilter(this);
  fitContent();
  addActions(windows_.companionCommands());
}

Bubble::~Bubble() { content_.setParent(nullptr); }

void Bubble::pointAt(std::function<Anchor()> anchor) {
  anchor_ = std::move(anchor);
  point();
}

void Bubble::follow(QWidget& widget) {
  widget.installEventFilter(this);
  if (windows_.mainWindow() != nullptr) windows_.mainWindow()->installEventFilter(this);
}

bool Bubble::eventFilter(QObject* watched, QEvent* event) {
  constexpr std::array telling{QEvent::Move, QEvent::Resize, QEvent::ParentChange, QEvent::Show};
  // From the event loop, when the whole change has been made; and not while the bubble is being shown: the window
  // system would put it back.
  if (watched == &content_) {
    if (event->type() == QEvent::LayoutRequest) QTimer::singleShot(0, this, [this] { fitContent(); });
  } else if (isVisible() && std::find(telling.begin(), telling.end(), event->type()) != telling.end()) {
    QTimer::singleShot(0, this, [this] { windows_.whenSettled(*this, [this] { point(); }); });
  }
  return QDialog::eventFilter(watched, event);
}

void Bubble::fitContent() {
  content_.adjustSize();
  QStringList texts;
  for (const auto* const label : content_.findChildren<QLabel*>()) texts.append(label->text());
  setAccessibleDescription(texts.join(u'\n'));
  if (anchor_) point();
}

void Bubble::point() {
  const auto [anchor, exact] = anchor_();
  const QScreen* const at = QGuiApplication::screenAt(anchor.center());
  const QRect room = roomOf(at != nullptr ? *at : *QGuiApplication::primaryScreen());
  setFixedSize(content_.width() + 2 * border, content_.height() + 2 * border + (exact ? arrowHeight : 0));
  if (exact) {
    pointWithArrow(anchor, room);
  } else {
    arrowX_.reset();
    const QRect free =
        room.marginsRemoved({distanceFromPanel, distanceFromPanel, distanceFromPanel, distanceFromPanel});
    move(within(anchor.center().x() - width() / 2, free.left(), free.right() + 1 - width()),
         within(anchor.center().y() - height() / 2, free.top(), free.bottom() + 1 - height()));
  }
  content_.move(border, (exact && arrowAtTop_ ? arrowHeight : 0) + border);
  if (!testAttribute(Qt::WA_TranslucentBackground)) setMask(QRegion(outline(0).toFillPolygon().toPolygon()));
  update();
}

void Bubble::pointWithArrow(const QRect& anchor, const QRect& room) {
  const int below = anchor.bottom() + 1 + distanceFromAnchor;
  const int above = anchor.top() - distanceFromAnchor - height();
  arrowAtTop_ = below + height() <= room.bottom() + 1 || above < room.top();
  move(within(anchor.center().x() - width() / 2, room.left(), room.right() + 1 - width()),
       within(arrowAtTop_ ? below : above, room.top(), room.bottom() + 1 - height()));
  arrowX_ = std::clamp(anchor.center().x() - x(), closestArrow, width() - closestArrow);
}

QPainterPath Bubble::outline(double inset) const {
  const double above = inset + (arrowX_ && arrowAtTop_ ? arrowHeight : 0);
  const double below = inset + (arrowX_ && !arrowAtTop_ ? arrowHeight : 0);
  const QRectF body = QRectF(rect()).adjusted(inset, above, -inset, -below);
  QPainterPath shape;
  shape.addRoundedRect(body, cornerRadius, cornerRadius);
  if (!arrowX_) return shape;
  const double base = arrowAtTop_ ? body.top() + 1 : body.bottom() - 1;
  const double tip = arrowAtTop_ ? inset : height() - inset;
  QPainterPath arrow;
  arrow.moveTo(*arrowX_ - arrowHalfWidth, base);
  arrow.lineTo(*arrowX_, tip);
  arrow.lineTo(*arrowX_ + arrowHalfWidth, base);
  arrow.closeSubpath();
  return shape.united(arrow);
}

void Bubble::paintEvent(QPaintEvent* /*event*/) {
  QPainter painter(this);
  painter.setRenderHint(QPainter::Antialiasing);
  const QColor line = hairlineColor(palette());
  // A mask has whole points; the line covers its steps along the curves.
  if (!testAttribute(Qt::WA_TranslucentBackground)) painter.fillRect(rect(), line);
  painter.setPen(QPen(line, border));
  painter.setBrush(popoverColor(palette()));
  painter.drawPath(outline(border / 2.0));
}

void Bubble::showEvent(QShowEvent* event) {
  point();
  QDialog::showEvent(event);
}

void Bubble::closeEvent(QCloseEvent* event) {
  if (transient_ || !onCloseRequest) return QDialog::closeEvent(event);
  event->ignore();
  onCloseRequest();
}

void Bubble::reject() {
  if (transient_) return QDialog::reject();
  if (onEscape) onEscape();
}

void Bubble::hideEvent(QHideEvent* event) {
  QDialog::hideEvent(event);
  if (onHide) onHide();
}

void Bubble::keyPressEvent(QKeyEvent* event) {
  if (event->key() != Qt::Key_F6) return QDialog::keyPressEvent(event);
  transient_ ? reject() : windows_.activateMainWindow();
}

}  // namespace platform::desktop
