// SPDX-License-Identifier: MIT
#pragma once

#include <QMenu>
#include <functional>
#include <memory>
#include <vector>

#include "platform/menu.h"

namespace platform::desktop {

/// The QMenu of an NSMenu. Its check marks follow the items' states.
class QtMenu {
 public:
  using Run = std::function<void(const std::function<void()>& command)>;

  /// `run` gets the chosen item's command, to run it now or later.
  QtMenu(std::shared_ptr<NSMenu> menu, Run run);
  QtMenu(const QtMenu&) = delete;
  QtMenu& operator=(const QtMenu&) = delete;
  ~QtMenu();

  QMenu& menu() { return menu_; }
  /// The actions of this menu and its submenus. Their shortcuts work in the widgets to which they are added; in a menu
  /// they are only shown.
  QList<QAction*> commands() const;
  const std::vector<std::unique_ptr<QtMenu>>& submenus() const { return submenus_; }

 private:
  void addItem(const std::shared_ptr<NSMenuItem>& item);

  std::shared_ptr<NSMenu> source_;
  Run run_;
  QMenu menu_;
  std::vector<std::unique_ptr<QAction>> actions_;
  std::vector<std::unique_ptr<QtMenu>> submenus_;
};

}  // namespace platform::desktop
