// SPDX-License-Identifier: MIT
#pragma once

#include <QPointer>
#include <functional>

#include "platform/desktop/views/symbol_button.h"
#include "platform/desktop/views/title_bar_height.h"
#include "platform/desktop/windows/drag_handle.h"

namespace platform::desktop {

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
  void startDrag(QWindow& window, QPoint from) override;

 private:
  void placeButtons();

  SymbolButton closeButton_;
  QPointer<QWidget> itemButton_;
};

}  // namespace platform::desktop
