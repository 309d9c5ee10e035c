// SPDX-License-Identifier: MIT
#pragma once

#include <QPointer>
#include <QWidget>
#include <array>
#include <functional>
#include <memory>
#include <optional>

#include "platform/desktop/views/symbol_button.h"
#include "platform/desktop/windows/window_system.h"

/// The window's own decoration: its title bar, its edges and its hairline border.
namespace platform::desktop {

constexpr int titleBarHeight = 28;  // points

/// A place to take hold of the window. A click is no drag: the window manager would hold on to a window whose
/// button was released before it heard of the drag.
class DragHandle : public QWidget {
 protected:
  void mousePressEvent(QMouseEvent* event) override;
  void mouseMoveEvent(QMouseEvent* event) override;
  /// The button is down and the pointer has moved.
  virtual void startDrag(QWindow& window) = 0;

 private:
  std::optional<QPoint> pressedAt_;
};

/// The band at the top of the window: the title in its middle, the close button where lines begin. Dragging
/// moves the window.
class TitleBar : public DragHandle {
 public:
  TitleBar();
  ~TitleBar() override;

  std::function<void()> onDoubleClick;

  SymbolButton& closeButton() { return closeButton_; }

  /// Puts a button beside the one in the upper corner where lines end; null takes it out again. It stays its owner's.
  void setItemButton(QWidget* button);

 protected:
  void paintEvent(QPaintEvent* event) override;
  void mouseDoubleClickEvent(QMouseEvent* event) override;
  void resizeEvent(QResizeEvent* event) override;
  void startDrag(QWindow& window) override;

 private:
  void placeButtons();

  SymbolButton closeButton_;
  QPointer<QWidget> itemButton_;
};

/// One edge or corner of the window: draws its part of the hairline border, and resizes the window when dragged.
class EdgeGrip : public DragHandle {
 public:
  explicit EdgeGrip(Qt::Edges edges);

  /// Takes its place in a window of this size.
  void placeIn(QSize window);

 protected:
  void paintEvent(QPaintEvent* event) override;
  void startDrag(QWindow& window) override;

 private:
  void paintRoundCorner(QPainter& painter, const QColor& line);

  Qt::Edges edges_;
};

/// The window itself, frameless on the desktop's side.
class NoteFrame : public QWidget {
 public:
  NoteFrame();
  ~NoteFrame() override;

  /// Puts `content` in; the title bar becomes a part of it, so that what the program adds can lie over it.
  /// `content` outlives this window.
  void setContent(QWidget& content);
  void setVisible(bool visible) override;
  void setItemButton(QWidget* button) { titleBar_.setItemButton(button); }

  /// The window that was made first; null if there is none.
  static NoteFrame* first();
  /// Shows another window of the program, which belongs to this one while this one is shown: window managers keep it
  /// above.
  static void showBeside(QWidget& window);
  /// Gives such a window, which is shown, the keyboard.
  static void activateBeside(QWidget& window);
  /// Hides such a window. If it had the keyboard, this one gets it, should it be shown.
  static void hideBeside(QWidget& window);
  /// Gives this one the keyboard, should it be shown.
  static void activateFirst();

  /// Makes the window as large as the screen's free room, or again what it was. By its geometry: not every window
  /// manager maximises a window of an accessory program.
  void toggleZoom();
  /// Whether the window is as `toggleZoom` made it; one that was moved or resized since is not.
  bool isZoomed() const;
  /// Makes a zoomed window as large as the free room is by now.
  void zoomAnew();
  /// The geometry, or what it was before `toggleZoom` made the window large.
  QRect unzoomedGeometry() const;

  /// Whether the windows stay above all others no longer, while something that the desktop asks would lie below them.
  static void giveWay(bool givesWay);
  /// Where the window belongs now: the placement that it was given, unless it gives way.
  Placement placementNow() const;

  Placement placement;
  std::function<void()> onCloseRequest;
  std::function<void()> onGeometryChange;
  std::function<void()> onAboutToHide;
  /// A key that no control in the window used.
  std::function<void(QKeyEvent&)> onUnusedKey;

 protected:
  void closeEvent(QCloseEvent* event) override;
  void resizeEvent(QResizeEvent* event) override;
  void moveEvent(QMoveEvent* event) override;
  void keyPressEvent(QKeyEvent* event) override;
  void changeEvent(QEvent* event) override;
  /// From the text to the buttons in the direction of reading, to a window beside this one, and back to the text.
  bool focusNextPrevChild(bool next) override;

 private:
  /// Another window of the program that is shown; null if there is none.
  static QWidget* windowBeside();
  void unzoom();

  QWidget* content_ = nullptr;
  struct Zoom {
    QRect before;
    QRect to;  ///< the free room at that moment
  };
  std::optional<Zoom> zoom_;
  TitleBar titleBar_;
  std::array<EdgeGrip, 8> grips_;
  bool givesWay_ = false;
};

}  // namespace platform::desktop
