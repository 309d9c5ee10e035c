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

/// The window that a note is in, with a title bar and a border of its own.
class NoteWindow : public QWidget {
 public:
  /// `owner` has this window.
  NoteWindow(ProgramWindows& windows, NSWindow& owner);
  ~NoteWindow() override;

  /// Puts `content` in; the title bar becomes a part of it, so that what the program adds can lie over it.
  /// `content` outlives this window.
  void setContent(QWidget& content);
  void setVisible(bool visible) override;
  NSWindow& owner() const { return owner_; }
  TitleBar& titleBar() { return titleBar_; }
  WindowZoom& zoom() { return zoom_; }

  Placement placement;  ///< where it stands when nothing that the desktop asks is in its way
  std::function<void()> onCloseRequest;
  std::function<void()> onGeometryChange;
  std::function<void()> onHide;  ///< before it is hidden
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
  QWidgetList focusStops();

  ProgramWindows& windows_;
  NSWindow& owner_;
  QWidget* content_ = nullptr;
  WindowZoom zoom_{*this};
  TitleBar titleBar_;
  WindowBorder border_;
};

}  // namespace platform::desktop
