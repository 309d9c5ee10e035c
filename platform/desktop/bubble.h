// SPDX-License-Identifier: MIT
#pragma once

#include <QPainterPath>
#include <QWidget>
#include <functional>

namespace platform::desktop {

/// A window in the shape of a bubble with an arrow, around a content of its own size.
class Bubble : public QWidget {
 public:
  /// `content` outlives the bubble. A transient one closes on a press outside it and on Escape.
  Bubble(QWidget& content, bool transient);
  ~Bubble() override;

  /// Points at the rectangle that `anchor` gives, in the toolkit's global coordinates, now and with each show: below
  /// it if there is room, else above, whole on the anchor's screen.
  void pointAt(std::function<QRect()> anchor);
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
  void point();
  /// `inset` from the edges of the window on every side.
  QPainterPath outline(double inset) const;

  QWidget& content_;
  bool transient_;
  std::function<QRect()> anchor_;
  bool arrowAtTop_ = true;
  int arrowX_ = 0;
};

}  // namespace platform::desktop
