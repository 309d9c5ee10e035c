// SPDX-License-Identifier: MIT
#pragma once

#include <QAction>
#include <QList>
#include <QObject>
#include <memory>
#include <optional>
#include <string_view>
#include <vector>

#include "platform/desktop/shortcuts/global_shortcuts.h"
#include "platform/desktop/shortcuts/portal_session.h"

namespace platform::desktop {

class Bus;
class FirstFrame;
class ExportedActions;
class ProgramWindows;

/// Hot keys that the desktop listens for: by its portal, now or when one appears, or by GNOME's custom shortcuts if
/// GNOME's portal has none. The desktop is asked after the first frame. It shows each hot key under the title of the
/// menu's command with the same keys, and the user may choose other keys there.
class PortalGlobalShortcuts : public QObject, public GlobalShortcuts {
 public:
  /// The arguments outlive this.
  PortalGlobalShortcuts(RequestQueue& requests, Bus& sessionBus, FirstFrame& firstFrame, ProgramWindows& windows,
                        const ExportedActions& actions);

 private:
  struct HotKey {
    std::string_view letter;
    std::uint32_t modifiers;
    std::function<void()> pressed;
    QKeySequence keys;
    QString id;  ///< empty until the portal has been asked for it
    std::unique_ptr<QAction> inOwnWindows;
  };
  /// A hot key as the desktop is told of it.
  struct Described {
    QString action;
    QString title;
    QString trigger;  ///< the keys in the portal's notation
    QString gnome;    ///< the keys in the notation of GNOME's settings
  };

  bool listen(std::uint32_t keyCode, std::uint32_t modifiers, std::function<void()> pressed) override;
  void listenInOwnWindows(HotKey& hotKey);
  void findPortal();
  void usePortal();
  void openSession(const Portal& portal);
  QList<Described> describeHotKeys();
  const HotKey* hotKeyOf(const QString& id) const;
  void onKeysChanged(const QString& id, const QString& keys);
  void press(const QString& id, const QString& activationToken);

  Bus& sessionBus_;
  FirstFrame& firstFrame_;
  ProgramWindows& windows_;
  const ExportedActions& actions_;
  std::vector<HotKey> hotKeys_;
  std::optional<PortalSession> session_;  ///< with the portal that runs now, if one does
};

}  // namespace platform::desktop
