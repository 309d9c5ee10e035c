// SPDX-License-Identifier: MIT
#pragma once

#include <QDialog>
#include <QPainterPath>
#include <functional>
#include <optional>

#include "platform/desktop/views/native_view.h"

namespace platform::desktop {

class ProgramWindows;

/// A dialog in the shape of a bubble with an arrow, around a content of its own size. Screen readers are told of all
/// its texts at once, for they cannot be reached one by one.
class Bubble : public QDialog {
 public:
  /// `content` outlives the bubble. A transient one closes on a press outside it and on Escape.
  Bubble(ProgramWindows& windows, QWidget& content, bool transient);
  ~Bubble() override;

  /// Stands at what `anchor` gives, now and with each show: below it if there is room, else above, whole in the free
  /// room of its screen. Without an arrow, for an anchor that is not known, it stands where that room is next to it.
  void pointAt(std::function<Anchor()> anchor);
  /// Points anew when that widget, or the window that it is in, moves or changes.
  void follow(QWidget& widget);

  /// It was hidden, by whomever.
  std::function<void()> onHide;
  /// The window manager wants it closed.
  std::function<void()> onCloseRequest;
  /// Escape was pressed, which does not close it.
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
  /// `inset` from the edges of the window on every side.
  QPainterPath outline(double inset) const;

  ProgramWindows& windows_;
  QWidget& content_;
  bool transient_;
  std::function<Anchor()> anchor_;
  bool arrowAtTop_ = true;
  std::optional<int> arrowX_;  ///< none without an arrow
};

}  // namespace platform::desktop
