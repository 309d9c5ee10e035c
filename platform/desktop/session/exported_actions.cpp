// SPDX-License-Identifier: MIT
#include "platform/desktop/session/exported_actions.h"

#include <algorithm>

#include "platform/desktop/base/strings.h"

namespace platform::desktop {
namespace {

/// The first command that is `wanted`; null if there is none.
template <typename Wanted>
std::shared_ptr<NSMenuItem> findCommand(const std::shared_ptr<NSMenu>& menu, const Wanted& wanted) {
  if (!menu) return nullptr;
  const auto& items = menu->items();
  const auto found = std::find_if(items.begin(), items.end(),
                                  [&](const auto& item) { return !item->action().name.empty() && wanted(*item); });
  return found == items.end() ? nullptr : *found;
}

}  // namespace

std::shared_ptr<NSMenuItem> ExportedActions::named(const QString& name, const QVariantList& parameter,
                                                   QString& refusal) const {
  auto command =
      findCommand(menu_.lock(), [&](const NSMenuItem& item) { return toQString(item.action().name) == name; });
  if (!command) {
    refusal = QStringLiteral("There is no action \"%1\".").arg(name);
  } else if (!parameter.isEmpty()) {
    refusal = QStringLiteral("The action %1 takes no parameter.").arg(name);
    command.reset();
  }
  return command;
}

std::shared_ptr<NSMenuItem> ExportedActions::withKey(std::string_view keyEquivalent, unsigned modifierMask) const {
  return findCommand(menu_.lock(), [&](const NSMenuItem& item) {
    return item.keyEquivalent() == keyEquivalent && item.keyEquivalentModifierMask() == modifierMask;
  });
}

bool ExportedActions::isFirst(const NSMenuItem& command) const {
  const auto menu = menu_.lock();
  return menu && menu->items().front().get() == &command;
}

}  // namespace platform::desktop
