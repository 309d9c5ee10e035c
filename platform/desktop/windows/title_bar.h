// SPDX-License-Identifier: MIT
#pragma once

#include <QPointer>
#include <functional>

#include "platform/desktop/views/symbol_button.h"
#include "platform/desktop/views/title_bar_height.h"
#include "platform/desktop/windows/drag_handle.h"

namespace platform::desktop {

/// The title bar: the title in its middle, the close button at the start of the reading direction. Dragging it moves
/// the window.
class TitleBar : public DragHandle {
 public:
  TitleBar();
  ~TitleBar() override;

  std::function<void()> onDoubleClick;
  SymbolButton& closeButton() { return closeButton_; }
  /// Shows the status item's button, for desktops without a tray, beside the program's own button at the other end;
  /// null removes it. The button is not owned.
  void setItemButton(QWidget* button);

 protected:
  void paintEvent(QPaintEvent* event) override;
  void mouseDoubleClickEvent(QMouseEvent* event) override;
  void resizeEvent(QResizeEvent* event) override;
  Qt::Edges edgesAt(QPoint /*point*/) const override { return {}; }

 private:
  void placeButtons();

  SymbolButton closeButton_;
  QPointer<QWidget> itemButton_;
};

}  // namespace platform::desktop
