// SPDX-License-Identifier: MIT
#pragma once

#include <QAction>
#include <QDBusConnection>
#include <QDBusServiceWatcher>
#include <QList>
#include <QObject>
#include <memory>
#include <optional>
#include <string_view>
#include <vector>

#include "platform/desktop/shortcuts/global_keys.h"
#include "platform/desktop/shortcuts/portal_shortcuts.h"

namespace platform::desktop {

class Bus;
class FirstFrame;
class OfferedCommands;
class ProgramWindows;

/// Shortcuts that the desktop gives, once the first frame has been drawn: its portal, now or whenever there is one, or
/// GNOME's own settings where its portal has none. It is told of each as the menu's command with the same key, and the
/// user may choose another one for it.
class PortalGlobalKeys : public QObject, public GlobalKeys {
 public:
  /// What it is given outlives it.
  PortalGlobalKeys(RequestQueue& requests, Bus& sessionBus, FirstFrame& firstFrame, ProgramWindows& windows,
                   const OfferedCommands& commands);
  ~PortalGlobalKeys() override;

 private:
  struct HotKey {
    std::string_view letter;
    std::uint32_t modifiers;
    std::function<void()> pressed;
    QKeySequence keys;
    QString id;  ///< none before the portal is told of it
    std::unique_ptr<QAction> inOwnWindows;
  };
  /// A hot key in the words of the desktop.
  struct Described {
    QString action;
    QString title;
    QString trigger;  ///< as the portal writes the keys
    QString gnome;    ///< and GNOME's settings
  };

  bool grab(std::uint32_t keyCode, std::uint32_t modifiers, std::function<void()> pressed) override;
  void listenInOwnWindows(HotKey& hotKey);
  void findPortal();
  void usePortal();
  void findOwner(const QDBusConnection& bus);
  void useShortcutsOf(const Portal& portal);
  QList<Described> describeHotKeys();
  const HotKey* hotKeyOf(const QString& id) const;
  void rename(const QString& id, const QString& keys);
  void press(const QString& id, const QString& activationToken);

  ProgramWindows& windows_;
  const OfferedCommands& commands_;
  std::vector<HotKey> hotKeys_;
  QDBusServiceWatcher nameWatch_;
  std::optional<PortalShortcuts> shortcuts_;  ///< of the portal that runs now, if one does
};

}  // namespace platform::desktop
