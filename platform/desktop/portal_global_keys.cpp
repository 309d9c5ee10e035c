// SPDX-License-Identifier: MIT
#include "platform/desktop/portal_global_keys.h"

#include <QDBusPendingCallWatcher>
#include <QDBusPendingReply>
#include <QDBusServiceWatcher>
#include <algorithm>
#include <optional>
#include <string_view>
#include <utility>
#include <vector>

#include "platform/desktop/application_service.h"
#include "platform/desktop/desktop.h"
#include "platform/desktop/portal_shortcuts.h"
#include "platform/desktop/strings.h"
#include "platform/desktop/window_system.h"
#include "platform/hot_key.h"

namespace platform::desktop {
namespace {

const QString connectionName = QStringLiteral("portal");

/// The character of a key: the portal knows no physical ones. Empty for a key that the program does not name.
std::string_view letterOf(std::uint32_t virtualKeyCode) {
  switch (virtualKeyCode) {
    case kVK_ANSI_N:
      return "n";
    case kVK_ANSI_P:
      return "p";
    default:
      return {};
  }
}

struct Modifier {
  std::uint32_t ofHotKey;
  unsigned ofMenu;
  std::string_view ofTrigger;
};
constexpr Modifier knownModifiers[] = {
    {cmdKey, NSEventModifierFlagCommand, "CTRL+"},
    {optionKey, NSEventModifierFlagOption, "ALT+"},
    {shiftKey, NSEventModifierFlagShift, "SHIFT+"},
    {controlKey, NSEventModifierFlagControl, "LOGO+"},
};

class PortalGlobalKeys : public QObject, public GlobalKeys {
 public:
  PortalGlobalKeys() = default;
  PortalGlobalKeys(const PortalGlobalKeys&) = delete;
  PortalGlobalKeys& operator=(const PortalGlobalKeys&) = delete;
  ~PortalGlobalKeys() override { QDBusConnection::disconnectFromBus(connectionName); }

  bool listen(std::uint32_t keyCode, std::uint32_t modifiers, std::function<void()> pressed) override {
    const std::string_view letter = letterOf(keyCode);
    if (letter.empty()) return false;
    if (hotKeys_.empty()) afterFirstFrame(*this, [this] { findPortal(); });
    hotKeys_.push_back({letter, modifiers, std::move(pressed), {}});
    return true;
  }

 private:
  struct HotKey {
    std::string_view letter;
    std::uint32_t modifiers;
    std::function<void()> pressed;
    QString id;  ///< none before the portal is told of it
  };

  void findPortal() {
    if (!sessionBusExists()) return;
    // The portal takes a program's name only from a connection on which it was asked for nothing else before; the
    // toolkit may ask it for the desktop's colours on the shared one.
    QDBusConnection bus = QDBusConnection::connectToBus(QDBusConnection::SessionBus, connectionName);
    if (!bus.isConnected()) return;
    nameWatch_.setConnection(bus);
    nameWatch_.addWatchedService(Portal::name());
    connect(&nameWatch_, &QDBusServiceWatcher::serviceOwnerChanged, this,
            [this, bus](const QString& /*name*/, const QString& /*oldOwner*/, const QString& owner) {
              useShortcutsOf({bus, owner});
            });
    wakePortal(bus);
  }

  /// The bus starts a portal that is installed.
  void wakePortal(const QDBusConnection& bus) {
    const Portal portal{bus, Portal::name()};
    const QDBusMessage ping = portal.call(QStringLiteral("org.freedesktop.DBus.Peer"), QStringLiteral("Ping"));
    auto* const call = new QDBusPendingCallWatcher(bus.asyncCall(ping), this);
    connect(call, &QDBusPendingCallWatcher::finished, this, [this, call, bus] {
      if (!call->isError()) findOwner(bus);
      call->deleteLater();
    });
  }

  /// The bus is asked: not every version of the toolkit tells whose an answer is.
  void findOwner(const QDBusConnection& bus) {
    const QString busName = QStringLiteral("org.freedesktop.DBus");
    QDBusMessage question = QDBusMessage::createMethodCall(busName, QStringLiteral("/org/freedesktop/DBus"), busName,
                                                           QStringLiteral("GetNameOwner"));
    question << Portal::name();
    auto* const call = new QDBusPendingCallWatcher(bus.asyncCall(question), this);
    connect(call, &QDBusPendingCallWatcher::finished, this, [this, call, bus] {
      const QDBusPendingReply<QString> owner = *call;
      if (owner.isValid()) useShortcutsOf({bus, owner.value()});
      call->deleteLater();
    });
  }

  /// `portal` has no owner when there is none.
  void useShortcutsOf(const Portal& portal) {
    if (shortcuts_ && shortcuts_->portal().owner == portal.owner) return;
    shortcuts_.reset();
    const QList<PortalShortcut> wanted = portal.owner.isEmpty() ? QList<PortalShortcut>() : describeHotKeys();
    if (wanted.isEmpty()) return;
    shortcuts_.emplace(portal, wanted, [this](const QString& id, const QString& token) { press(id, token); });
  }

  /// Each by the menu's command with the same key; a hot key without one has no name that the user would know.
  QList<PortalShortcut> describeHotKeys() {
    QList<PortalShortcut> described;
    for (HotKey& hotKey : hotKeys_) {
      unsigned menuModifiers = 0;
      QString trigger;
      for (const Modifier& modifier : knownModifiers) {
        if ((hotKey.modifiers & modifier.ofHotKey) == 0) continue;
        menuModifiers |= modifier.ofMenu;
        trigger += toQString(modifier.ofTrigger);
      }
      const auto command = offeredCommandWithKey(hotKey.letter, menuModifiers);
      if (!command) continue;
      hotKey.id = toQString(command->action().name);
      described.append({hotKey.id,
                        {{QStringLiteral("description"), toQString(command->title())},
                         {QStringLiteral("preferred_trigger"), trigger + toQString(hotKey.letter)}}});
    }
    return described;
  }

  void press(const QString& id, const QString& activationToken) {
    const auto hotKey =
        std::find_if(hotKeys_.begin(), hotKeys_.end(), [&](const HotKey& each) { return each.id == id; });
    if (id.isEmpty() || hotKey == hotKeys_.end()) return;
    takeActivationToken(activationToken);
    hotKey->pressed();
  }

  std::vector<HotKey> hotKeys_;
  QDBusServiceWatcher nameWatch_;
  std::optional<PortalShortcuts> shortcuts_;  ///< of the portal that runs now, if one does
};

}  // namespace

std::unique_ptr<GlobalKeys> makePortalGlobalKeys() { return std::make_unique<PortalGlobalKeys>(); }

}  // namespace platform::desktop
