// SPDX-License-Identifier: MIT
#pragma once

#include <QDialog>
#include <QPainterPath>
#include <functional>
#include <optional>

#include "platform/desktop/views/native_view.h"

namespace platform::desktop {

class ProgramWindows;

/// A dialog in the shape of a bubble with an arrow, around a content of its own size. Its accessible description has
/// all its texts, since labels cannot get the focus.
class Bubble : public QDialog {
 public:
  /// Both outlive the bubble. A transient bubble closes when the user clicks outside it or presses Escape.
  Bubble(ProgramWindows& windows, QWidget& content, bool transient);
  ~Bubble() override;

  /// Places the bubble at the anchor, which is asked for now and at each show: below it if there is room, else above,
  /// and always inside the screen's available geometry. At an anchor that is not exact, the bubble has no arrow.
  void pointAt(std::function<Anchor()> anchor);
  /// Places the bubble again whenever that widget, or its window, moves or is resized.
  void follow(QWidget& widget);

  /// Called after each hiding, whatever caused it.
  std::function<void()> onHide;
  /// Called when the window manager asks to close it.
  std::function<void()> onCloseRequest;
  /// Called for Escape in a bubble that is not transient.
  std::function<void()> onEscape;
  void reject() override;

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
  /// `inset` from the window's edges, on every side.
  QPainterPath outline(double inset) const;

  ProgramWindows& windows_;
  QWidget& content_;
  bool transient_;
  std::function<Anchor()> anchor_;
  bool arrowAtTop_ = true;
  std::optional<int> arrowX_;  ///< of its tip; nothing if there is no arrow
};

}  // namespace platform::desktop
