// SPDX-License-Identifier: MIT
#pragma once

#include <QString>
#include <QVariant>
#include <memory>
#include <string_view>

#include "platform/menu.h"

namespace platform::desktop {

/// The commands that the program offers to the desktop beside its menu, by the names of their selectors: those of the
/// status item's menu.
class OfferedCommands {
 public:
  /// Held weakly.
  void setMenu(const std::shared_ptr<NSMenu>& menu) { menu_ = menu; }

  /// The command whose selector is `name`. Null, for the reason put into `refusal`, if none is offered, or if a
  /// parameter came along: none of them takes one.
  std::shared_ptr<NSMenuItem> named(const QString& name, const QVariantList& parameter, QString& refusal) const;
  /// The command with that key, with exactly these modifiers; null if there is none.
  std::shared_ptr<NSMenuItem> withKey(std::string_view keyEquivalent, unsigned modifierMask) const;
  bool isFirst(const NSMenuItem& command) const;

 private:
  std::weak_ptr<NSMenu> menu_;
};

}  // namespace platform::desktop
