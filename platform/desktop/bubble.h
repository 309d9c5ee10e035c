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

  /// Places it at an anchor, in the toolkit's global coordinates: below it if there is room, else above, whole on the
  /// anchor's screen.
  void pointAt(const QRect& anchor, bool preferBelow);

  /// It was hidden, by whomever.
  std::function<void()> onHide;
  /// Return was pressed, or Escape where it does not close.
  std::function<void()> onReturn;
  std::function<void()> onEscape;

 protected:
  void paintEvent(QPaintEvent* event) override;
  void hideEvent(QHideEvent* event) override;
  void keyPressEvent(QKeyEvent* event) override;

 private:
  /// `inset` from the edges of the window on every side.
  QPainterPath outline(double inset) const;

  QWidget& content_;
  bool transient_;
  bool arrowAtTop_ = true;
  int arrowX_ = 0;
};

}  // namespace platform::desktop
