// SPDX-License-Identifier: MIT
#pragma once

#include <QPainterPath>
#include <QWidget>
#include <functional>
#include <optional>

namespace platform::desktop {

/// What a bubble stands at, in Qt's global coordinates. Where it is not known what is there, it gets no arrow.
struct Anchor {
  QRect rect;
  bool known;
};

/// A window in the shape of a bubble with an arrow, around a content of its own size.
class Bubble : public QWidget {
 public:
  /// `content` outlives the bubble. A transient one closes on a press outside it and on Escape.
  Bubble(QWidget& content, bool transient);
  ~Bubble() override;

  /// Stands at what `anchor` gives, now and with each show: below it if there is room, else above, whole in the free
  /// room of its screen. Without an arrow it stands where that room is next to it.
  void pointAt(std::function<Anchor()> anchor);
  /// Points anew when that widget, or the window that it is in, moves or changes.
  void follow(QWidget& widget);

  /// It was hidden, by whomever.
  std::function<void()> onHide;
  /// Return was pressed, or the window manager wants it closed; Escape, where it does not close it.
  std::function<void()> onReturn;
  std::function<void()> onEscape;

 protected:
  void paintEvent(QPaintEvent* event) override;
  void showEvent(QShowEvent* event) override;
  void hideEvent(QHideEvent* event) override;
  void closeEvent(QCloseEvent* event) override;
  bool eventFilter(QObject* watched, QEvent* event) override;
  void keyPressEvent(QKeyEvent* event) override;

 private:
  void fitContent();
  void point();
  void pointWithArrow(const QRect& anchor, const QRect& room);
  /// `inset` from the edges of the window on every side.
  QPainterPath outline(double inset) const;

  QWidget& content_;
  bool transient_;
  std::function<Anchor()> anchor_;
  bool arrowAtTop_ = true;
  std::optional<int> arrowX_;  ///< none without an arrow
};

}  // namespace platform::desktop
