// SPDX-License-Identifier: MIT
#pragma once

#include <memory>
#include <string_view>

#include "platform/button.h"
#include "platform/menu.h"

namespace platform {

/// The length of an item that is as wide as it is high.
constexpr double NSSquareStatusItemLength = -2;

/// The program's place among the desktop's indicators. On a desktop it is in whichever tray there is, and follows trays
/// that come and go; while there is none its button stands in the window's title bar.
class NSStatusItem : public NSObject {
 public:
  ~NSStatusItem() override;

  /// The name under which the status bar keeps the item's position. Trays on Linux order their items themselves.
  void setAutosaveName(std::string_view name);
  /// What the user sees of the item, in the tray or in the title bar; none if the status bar shows no buttons.
  const std::shared_ptr<NSButton>& button() const;
  /// The menu that the item opens. A primary click performs its first item instead. Each of its items is offered to
  /// other programs too, by the name of its selector.
  void setMenu(const std::shared_ptr<NSMenu>& menu);

 private:
  friend class NSStatusBar;
  NSStatusItem();
  struct Impl;
  std::unique_ptr<Impl> impl_;
};

class NSStatusBar {
 public:
  static NSStatusBar& systemStatusBar();

  /// A new item, which is there for as long as it is held. NSSquareStatusItemLength is the one length there is.
  std::shared_ptr<NSStatusItem> statusItemWithLength(double length);
};

}  // namespace platform
