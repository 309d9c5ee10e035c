// SPDX-License-Identifier: MIT
#pragma once

#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "platform/object.h"

namespace platform {

class NSMenu;

constexpr int NSControlStateValueOff = 0;
constexpr int NSControlStateValueOn = 1;

/// The modifiers of a key equivalent; the bits add up. On a desktop Command is Ctrl and Option Alt.
enum NSEventModifierFlags : unsigned {
  NSEventModifierFlagShift = 0x20000,
  NSEventModifierFlagOption = 0x80000,
  NSEventModifierFlagCommand = 0x100000,
};

/// An entry of a menu: a command, a separator, or the way into a submenu.
class NSMenuItem : public NSObject {
 public:
  /// Without a title: it carries a submenu.
  NSMenuItem() = default;
  /// `keyEquivalent`: a lower-case letter, held with Command, or nothing.
  NSMenuItem(std::string title, Selector action, std::string keyEquivalent);
  static std::shared_ptr<NSMenuItem> separatorItem();

  void setSubmenu(std::shared_ptr<NSMenu> submenu) { submenu_ = std::move(submenu); }
  /// NSEventModifierFlags bits.
  void setKeyEquivalentModifierMask(unsigned mask) { modifierMask_ = mask; }
  /// Held weakly; once it is gone the item does nothing. Without a target: the first responder, its window, the
  /// application, the application's delegate, the first of them that knows the action.
  void setTarget(const std::weak_ptr<NSObject>& target) { target_ = target; }
  /// NSControlStateValueOn shows the check mark, NSControlStateValueOff none. An item whose state was never set is one
  /// that cannot be checked.
  void setState(int state);

  const std::string& title() const { return title_; }
  Selector action() const { return action_; }
  const std::string& keyEquivalent() const { return keyEquivalent_; }
  unsigned keyEquivalentModifierMask() const { return modifierMask_; }
  const std::optional<std::weak_ptr<NSObject>>& target() const { return target_; }
  const std::shared_ptr<NSMenu>& submenu() const { return submenu_; }
  bool isSeparatorItem() const { return separator_; }
  bool isCheckable() const { return state_.has_value(); }
  int state() const { return state_.value_or(NSControlStateValueOff); }

  /// What happens when the user chooses it. False if nobody knows the action.
  bool performAction();

  /// For the platform that shows the item: called after each change of the state.
  std::function<void()> onStateChange;

 private:
  std::string title_;
  Selector action_;
  std::string keyEquivalent_;
  unsigned modifierMask_ = NSEventModifierFlagCommand;
  std::optional<std::weak_ptr<NSObject>> target_;
  std::shared_ptr<NSMenu> submenu_;
  std::optional<int> state_;
  bool separator_ = false;
};

/// A menu is a tree; the platform shows it as the desktop shows menus.
class NSMenu : public NSObject {
 public:
  NSMenu() = default;
  explicit NSMenu(std::string title) : title_(std::move(title)) {}

  void addItem(std::shared_ptr<NSMenuItem> item) { items_.push_back(std::move(item)); }

  const std::string& title() const { return title_; }
  const std::vector<std::shared_ptr<NSMenuItem>>& items() const { return items_; }

 private:
  std::string title_;
  std::vector<std::shared_ptr<NSMenuItem>> items_;
};

}  // namespace platform
