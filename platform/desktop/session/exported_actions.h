// SPDX-License-Identifier: MIT
#pragma once

#include <QString>
#include <QVariant>
#include <memory>
#include <string_view>

#include "platform/menu.h"

namespace platform::desktop {

/// The actions that other programs can call: the commands of the status item's menu, named by their selectors.
class ExportedActions {
 public:
  /// The menu is held weakly.
  void setMenu(const std::shared_ptr<NSMenu>& menu) { menu_ = menu; }

  /// The command whose selector is `name`. Null, with the reason in `refusal`, if there is none, or if there is a
  /// parameter: no command takes one.
  std::shared_ptr<NSMenuItem> named(const QString& name, const QVariantList& parameter, QString& refusal) const;
  /// The command with that key, with exactly these modifiers; null if there is none.
  std::shared_ptr<NSMenuItem> withKey(std::string_view keyEquivalent, unsigned modifierMask) const;
  bool isFirst(const NSMenuItem& command) const;

 private:
  std::weak_ptr<NSMenu> menu_;
};

}  // namespace platform::desktop
