#pragma once

#include <QMenu>
#include <memory>
#include <vector>

#include "platform/menu.h"

namespace platform::desktop {

/// A menu of the program's as one of the toolkit's. Its check marks follow the items' states.
class ToolkitMenu {
 public:
  explicit ToolkitMenu(std::shared_ptr<NSMenu> menu);
  ToolkitMenu(const ToolkitMenu&) = delete;
  ToolkitMenu& operator=(const ToolkitMenu&) = delete;
  ~ToolkitMenu();

  QMenu& menu() { return menu_; }
  /// The commands of this menu and those below it. Their shortcuts act in the widgets to which they are added; in a
  /// menu they are only shown.
  std::vector<QAction*> commands() const;

 private:
  void addItem(const std::shared_ptr<NSMenuItem>& item);

  std::shared_ptr<NSMenu> source_;
  QMenu menu_;
  std::vector<std::unique_ptr<QAction>> actions_;
  std::vector<std::unique_ptr<ToolkitMenu>> submenus_;
};

}  // namespace platform::desktop
