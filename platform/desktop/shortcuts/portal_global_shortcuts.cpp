// SPDX-License-Identifier: MIT
#include "platform/desktop/shortcuts/portal_global_shortcuts.h"

#include <QDBusConnection>
#include <QDBusPendingCall>
#include <algorithm>
#include <utility>

#include "platform/desktop/base/strings.h"
#include "platform/desktop/dbus/bus.h"
#include "platform/desktop/language/key_names.h"
#include "platform/desktop/session/exported_actions.h"
#include "platform/desktop/session/gnome_overview.h"
#include "platform/desktop/session/session_environment.h"
#include "platform/desktop/shortcuts/gnome_shortcuts.h"
#include "platform/desktop/windows/first_frame.h"
#include "platform/desktop/windows/main_window.h"
#include "platform/desktop/windows/program_windows.h"
#include "platform/hot_key.h"

namespace platform::desktop {
namespace {

const QString connectionName = QStringLiteral("portal");

/// The key's letter, since the portal does not know physical keys. Empty for keys that the program does not use.
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
  Qt::KeyboardModifier ofQt;
  std::string_view ofTrigger;
  std::string_view ofGnome;
};
constexpr Modifier knownModifiers[] = {
    {cmdKey, NSEventModifierFlagCommand, Qt::ControlModifier, "CTRL+", "<Control>"},
    {optionKey, NSEventModifierFlagOption, Qt::AltModifier, "ALT+", "<Alt>"},
};

/// False for a service that is only slow or failing: shortcuts that are added to GNOME's settings stay there.
bool saysThereIsNone(const QDBusError& error) {
  switch (error.type()) {
    case QDBusError::InvalidArgs:
    case QDBusError::ServiceUnknown:
    case QDBusError::UnknownInterface:
    case QDBusError::UnknownMethod:
    case QDBusError::UnknownObject:
    case QDBusError::UnknownProperty:
      return true;
    default:
      return false;
  }
}

}  // namespace

PortalGlobalShortcuts::PortalGlobalShortcuts(RequestQueue& requests, Bus& sessionBus, FirstFrame& firstFrame,
                                             ProgramWindows& windows, const ExportedActions& actions)
    : GlobalShortcuts(requests),
      sessionBus_(sessionBus),
      firstFrame_(firstFrame),
      windows_(windows),
      actions_(actions) {}

bool PortalGlobalShortcuts::listen(std::uint32_t keyCode, std::uint32_t modifiers, std::function<void()> pressed) {
  const std::string_view letter = letterOf(keyCode);
  if (letter.empty()) return false;
  if (hotKeys_.empty()) firstFrame_.then(*this, [this] { sessionBus_.whenItAnswers(*this, [this] { findPortal(); }); });
  hotKeys_.push_back({letter, modifiers, std::move(pressed), {}, {}, std::make_unique<QAction>()});
  listenInOwnWindows(hotKeys_.back());
  return true;
}

/// Where the desktop listens for the keys, our windows never see them; where it does not, they work in these at least.
void PortalGlobalShortcuts::listenInOwnWindows(HotKey& hotKey) {
  Qt::KeyboardModifiers modifiers;
  for (const Modifier& modifier : knownModifiers)
    modifiers.setFlag(modifier.ofQt, (hotKey.modifiers & modifier.ofHotKey) != 0);
  const auto key = static_cast<Qt::Key>(QChar::fromLatin1(hotKey.letter.front()).toUpper().unicode());
  hotKey.keys = QKeyCombination(modifiers, key);
  hotKey.inOwnWindows->setShortcut(hotKey.keys);
  hotKey.inOwnWindows->setShortcutContext(Qt::ApplicationShortcut);
  hotKey.inOwnWindows->setAutoRepeat(false);
  connect(hotKey.inOwnWindows.get(), &QAction::triggered, [pressed = hotKey.pressed] { pressed(); });
  if (windows_.mainWindow() != nullptr) windows_.mainWindow()->addAction(hotKey.inOwnWindows.get());
}

/// In GNOME the portal's own backend is asked first: if that has no global shortcuts, the portal would use the backend
/// of another installed desktop, which never gets a key press.
void PortalGlobalShortcuts::findPortal() {
  if (!isSessionOf(gnome)) return usePortal();
  const QDBusMessage question = getProperty(
      QStringLiteral("org.freedesktop.impl.portal.desktop.gnome"), QStringLiteral("/org/freedesktop/portal/desktop"),
      QStringLiteral("org.freedesktop.impl.portal.GlobalShortcuts"), QStringLiteral("version"));
  onReply(QDBusConnection::sessionBus().asyncCall(question), *this, [this](const QDBusPendingCall& answer) {
    if (!saysThereIsNone(answer.error())) return usePortal();
    for (const Described& hotKey : describeHotKeys()) addToGnomeShortcuts(hotKey.action, hotKey.title, hotKey.gnome);
  });
}

void PortalGlobalShortcuts::usePortal() {
  // The portal takes a program's id only from a connection on which it has had no other call. On the shared one Qt may
  // have read the color scheme.
  const QDBusConnection bus = QDBusConnection::connectToBus(QDBusConnection::SessionBus, connectionName);
  if (!bus.isConnected()) return;
  // Not in a destructor: without a connection this would start Qt's D-Bus thread at the program's end.
  connect(this, &QObject::destroyed, [] { QDBusConnection::disconnectFromBus(connectionName); });
  followOwner(bus, Portal::name(), *this, [this, bus](const QString& owner) { openSession({bus, owner}); });
  constexpr uint noFlags = 0;
  bus.send(callOfTheBus(QStringLiteral("StartServiceByName")) << Portal::name() << noFlags);
}

/// `portal.owner` is empty if no portal runs any more.
void PortalGlobalShortcuts::openSession(const Portal& portal) {
  if (session_ && session_->portal().owner == portal.owner) return;
  session_.reset();
  windows_.suspendKeepAbove(false);
  if (portal.owner.isEmpty()) return;
  QList<PortalShortcut> wanted;
  for (const Described& hotKey : describeHotKeys()) {
    wanted.append(
        {hotKey.action,
         {{QStringLiteral("description"), hotKey.title}, {QStringLiteral("preferred_trigger"), hotKey.trigger}}});
  }
  if (wanted.isEmpty()) return;
  session_.emplace(
      portal, wanted, [this](const QString& id, const QString& token) { press(id, token); },
      [this](const QString& id, const QString& keys) { onKeysChanged(id, keys); },
      // GNOME 48 opens its dialog below windows that are kept above.
      [this](bool asks) { windows_.suspendKeepAbove(asks); });
}

/// Named after the menu's command with the same keys. A hot key without such a command is left out.
QList<PortalGlobalShortcuts::Described> PortalGlobalShortcuts::describeHotKeys() {
  QList<Described> described;
  for (HotKey& hotKey : hotKeys_) {
    unsigned menuModifiers = 0;
    QString trigger;
    QString binding;
    for (const Modifier& modifier : knownModifiers) {
      if ((hotKey.modifiers & modifier.ofHotKey) == 0) continue;
      menuModifiers |= modifier.ofMenu;
      trigger += toQString(modifier.ofTrigger);
      binding += toQString(modifier.ofGnome);
    }
    const auto command = actions_.withKey(hotKey.letter, menuModifiers);
    if (!command) continue;
    hotKey.id = toQString(command->action().name);
    const QString letter = toQString(hotKey.letter);
    described.append({hotKey.id, toQString(command->title()), trigger + letter, binding + letter});
  }
  return described;
}

/// Null if no hot key has that id.
const PortalGlobalShortcuts::HotKey* PortalGlobalShortcuts::hotKeyOf(const QString& id) const {
  const auto hotKey = std::find_if(hotKeys_.begin(), hotKeys_.end(), [&](const HotKey& each) { return each.id == id; });
  return id.isEmpty() || hotKey == hotKeys_.end() ? nullptr : &*hotKey;
}

void PortalGlobalShortcuts::onKeysChanged(const QString& id, const QString& keys) {
  if (const HotKey* const hotKey = hotKeyOf(id)) KeyNames::instance().replaceKeys(hotKey->keys, keys);
}

void PortalGlobalShortcuts::press(const QString& id, const QString& activationToken) {
  const HotKey* const hotKey = hotKeyOf(id);
  if (hotKey == nullptr) return;
  leaveGnomeOverview(*this, [this, activationToken, pressed = hotKey->pressed] {
    windows_.system().setActivationToken(activationToken);
    pressed();
  });
}

}  // namespace platform::desktop
