// SPDX-License-Identifier: MIT
#pragma once

#include <QWidget>
#include <functional>

#include "platform/desktop/windows/title_bar.h"
#include "platform/desktop/windows/window_border.h"
#include "platform/desktop/windows/window_zoom.h"

namespace platform {
class NSWindow;
}

namespace platform::desktop {

class ProgramWindows;

/// The widget of an NSWindow: the note's window, with a title bar and a border of its own.
class MainWindow : public QWidget {
 public:
  /// `owner` owns this widget; `windows` outlives it.
  MainWindow(ProgramWindows& windows, NSWindow& owner);
  ~MainWindow() override;

  /// Shows `content`, which outlives this widget. The title bar becomes a child of it, so that views that the program
  /// adds later can be stacked above the title bar.
  void setContent(QWidget& content);
  void setVisible(bool visible) override;
  NSWindow& owner() const { return owner_; }
  TitleBar& titleBar() { return titleBar_; }
  WindowZoom& zoom() { return zoom_; }

  WindowState state;  ///< as the program wants it; see `ProgramWindows::suspendKeepAbove`
  std::function<void()> onCloseRequest;
  std::function<void()> onGeometryChange;
  std::function<void()> onHide;  ///< called before it is hidden
  /// Called with a key press that no control in the window has accepted.
  std::function<void(QKeyEvent&)> onUnusedKey;

 protected:
  void closeEvent(QCloseEvent* event) override;
  void resizeEvent(QResizeEvent* event) override;
  void moveEvent(QMoveEvent* event) override;
  void keyPressEvent(QKeyEvent* event) override;
  void changeEvent(QEvent* event) override;
  /// From the text to the buttons in reading direction, then to a companion window, then back to the text.
  bool focusNextPrevChild(bool next) override;

 private:
  void geometryChanged();
  QWidgetList focusStops();

  ProgramWindows& windows_;
  NSWindow& owner_;
  QWidget* content_ = nullptr;
  WindowZoom zoom_;
  TitleBar titleBar_;
  WindowBorder border_;
};

}  // namespace platform::desktop
