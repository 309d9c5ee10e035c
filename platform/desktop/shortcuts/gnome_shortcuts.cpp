// SPDX-License-Identifier: MIT
#include "platform/desktop/shortcuts/gnome_shortcuts.h"

#include "platform/desktop/dbus/bus_names.h"
#include "platform/desktop/files/module.h"
#include "platform/desktop/shortcuts/gnome_settings.h"
#include "platform/user_defaults.h"

namespace platform::desktop {

void addToGnomeShortcuts(const QString& action, const QString& title, const QString& binding) {
  NSUserDefaults& defaults = NSUserDefaults::standardUserDefaults();
  const std::string wasAdded = "didAddGnomeShortcut " + action.toStdString();
  if (defaults.boolForKey(wasAdded)) return;
  QString failure;
  const auto add = reinterpret_cast<AddGnomeShortcut>(
      loadFromModule(moduleFolders(), QLatin1String(gnomeModule), addGnomeShortcutName, failure));
  const QByteArray folder = "quillberry-" + action.toUtf8();
  const QByteArray command = QStringLiteral("gapplication action %1 %2").arg(serviceName(), action).toUtf8();
  const QByteArray name = title.toUtf8();
  const QByteArray keys = binding.toUtf8();
  const GnomeShortcut shortcut{folder.constData(), name.constData(), command.constData(), keys.constData()};
  if (add != nullptr && add(shortcut)) defaults.setBool(true, wasAdded);
}

}  // namespace platform::desktop
