// SPDX-License-Identifier: MIT
#include "platform/desktop/shortcuts/portal_global_keys.h"

#include <QDBusPendingReply>
#include <algorithm>
#include <utility>

#include "platform/desktop/dbus/bus.h"
#include "platform/desktop/language/key_names.h"
#include "platform/desktop/language/strings.h"
#include "platform/desktop/session/gnome_overview.h"
#include "platform/desktop/session/offered_commands.h"
#include "platform/desktop/session/session_environment.h"
#include "platform/desktop/shortcuts/gnome_shortcuts.h"
#include "platform/desktop/windows/first_frame.h"
#include "platform/desktop/windows/note_window.h"
#include "platform/desktop/windows/program_windows.h"
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
  Qt::KeyboardModifier ofQt;
  std::string_view ofTrigger;
  std::string_view ofGnome;
};
constexpr Modifier knownModifiers[] = {
    {cmdKey, NSEventModifierFlagCommand, Qt::ControlModifier, "CTRL+", "<Control>"},
    {optionKey, NSEventModifierFlagOption, Qt::AltModifier, "ALT+", "<Alt>"},
};

/// Not a service that is slow or fails: what is added to GNOME's settings stays.
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

PortalGlobalKeys::PortalGlobalKeys(RequestQueue& requests, Bus& sessionBus, FirstFrame& firstFrame,
                                   ProgramWindows& windows, const OfferedCommands& commands)
    : GlobalKeys(requests), windows_(windows), commands_(commands) {
  firstFrame.then(*this, [this, &sessionBus] { sessionBus.whenItAnswers(*this, [this] { findPortal(); }); });
}

PortalGlobalKeys::~PortalGlobalKeys() { QDBusConnection::disconnectFromBus(connectionName); }

bool PortalGlobalKeys::grab(std::uint32_t keyCode, std::uint32_t modifiers, std::function<void()> pressed) {
  const std::string_view letter = letterOf(keyCode);
  if (letter.empty()) return false;
  hotKeys_.push_back({letter, modifiers, std::move(pressed), {}, {}, std::make_unique<QAction>()});
  listenInOwnWindows(hotKeys_.back());
  return true;
}

/// Whoever gives the keys takes them before a window of ours sees them; where nobody does, they act there at least.
void PortalGlobalKeys::listenInOwnWindows(HotKey& hotKey) {
  Qt::KeyboardModifiers modifiers;
  for (const Modifier& modifier : knownModifiers)
    modifiers.setFlag(modifier.ofQt, (hotKey.modifiers & modifier.ofHotKey) != 0);
  const auto key = static_cast<Qt::Key>(QChar::fromLatin1(hotKey.letter.front()).toUpper().unicode());
  hotKey.keys = QKeyCombination(modifiers, key);
  hotKey.inOwnWindows->setShortcut(hotKey.keys);
  hotKey.inOwnWindows->setShortcutContext(Qt::ApplicationShortcut);
  hotKey.inOwnWindows->setAutoRepeat(false);
  connect(hotKey.inOwnWindows.get(), &QAction::triggered, [pressed = hotKey.pressed] { pressed(); });
  if (windows_.note() != nullptr) windows_.note()->addAction(hotKey.inOwnWindows.get());
}

/// GNOME's own part of the portal is asked there: where that has no shortcuts, the portal takes those of another
/// desktop that is installed, which never hear a key.
void PortalGlobalKeys::findPortal() {
  if (hotKeys_.empty()) return;
  if (!isSessionOf(gnome)) return usePortal();
  const QDBusMessage question = getProperty(
      QStringLiteral("org.freedesktop.impl.portal.desktop.gnome"), QStringLiteral("/org/freedesktop/portal/desktop"),
      QStringLiteral("org.freedesktop.impl.portal.GlobalShortcuts"), QStringLiteral("version"));
  onReply(QDBusConnection::sessionBus().asyncCall(question), *this, [this](const QDBusPendingCall& answer) {
    if (!saysThereIsNone(answer.error())) return usePortal();
    for (const Described& hotKey : describeHotKeys()) addToGnomeShortcuts(hotKey.action, hotKey.title, hotKey.gnome);
  });
}

void PortalGlobalKeys::usePortal() {
  // The portal takes a program's name only from a connection on which it was asked for nothing else before; Qt may
  // ask it for the desktop's colours on the shared one.
  QDBusConnection bus = QDBusConnection::connectToBus(QDBusConnection::SessionBus, connectionName);
  if (!bus.isConnected()) return;
  nameWatch_.setConnection(bus);
  nameWatch_.addWatchedService(Portal::name());
  connect(&nameWatch_, &QDBusServiceWatcher::serviceOwnerChanged, this,
          [this, bus](const QString& /*name*/, const QString& /*oldOwner*/, const QString& owner) {
            useShortcutsOf({bus, owner});
          });
  constexpr uint noFlags = 0;
  const QDBusMessage start = callOfTheBus(QStringLiteral("StartServiceByName")) << Portal::name() << noFlags;
  onReply(bus.asyncCall(start), *this, [this, bus](const QDBusPendingCall& answer) {
    if (!answer.isError()) findOwner(bus);
  });
}

/// The bus is asked: not every version of Qt tells whose an answer is.
void PortalGlobalKeys::findOwner(const QDBusConnection& bus) {
  const QDBusMessage question = callOfTheBus(QStringLiteral("GetNameOwner")) << Portal::name();
  onReply(bus.asyncCall(question), *this, [this, bus](const QDBusPendingReply<QString>& owner) {
    if (owner.isValid()) useShortcutsOf({bus, owner.value()});
  });
}

/// `portal` has no owner when there is none.
void PortalGlobalKeys::useShortcutsOf(const Portal& portal) {
  if (shortcuts_ && shortcuts_->portal().owner == portal.owner) return;
  shortcuts_.reset();
  windows_.giveWay(false);
  if (portal.owner.isEmpty()) return;
  QList<PortalShortcut> wanted;
  for (const Described& hotKey : describeHotKeys()) {
    wanted.append(
        {hotKey.action,
         {{QStringLiteral("description"), hotKey.title}, {QStringLiteral("preferred_trigger"), hotKey.trigger}}});
  }
  if (wanted.isEmpty()) return;
  shortcuts_.emplace(
      portal, wanted, [this](const QString& id, const QString& token) { press(id, token); },
      [this](const QString& id, const QString& keys) { rename(id, keys); },
      // A dialog of GNOME's comes up below windows that are above all others.
      [this](bool asks) { windows_.giveWay(asks); });
}

/// Each by the menu's command with the same key; a hot key without one has no name that the user would know.
QList<PortalGlobalKeys::Described> PortalGlobalKeys::describeHotKeys() {
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
    const auto command = commands_.withKey(hotKey.letter, menuModifiers);
    if (!command) continue;
    hotKey.id = toQString(command->action().name);
    const QString letter = toQString(hotKey.letter);
    described.append({hotKey.id, toQString(command->title()), trigger + letter, binding + letter});
  }
  return described;
}

/// Null if none has been told by that id.
const PortalGlobalKeys::HotKey* PortalGlobalKeys::hotKeyOf(const QString& id) const {
  const auto hotKey = std::find_if(hotKeys_.begin(), hotKeys_.end(), [&](const HotKey& each) { return each.id == id; });
  return id.isEmpty() || hotKey == hotKeys_.end() ? nullptr : &*hotKey;
}

void PortalGlobalKeys::rename(const QString& id, const QString& keys) {
  if (const HotKey* const hotKey = hotKeyOf(id)) KeyNames::instance().tell(hotKey->keys, keys);
}

void PortalGlobalKeys::press(const QString& id, const QString& activationToken) {
  const HotKey* const hotKey = hotKeyOf(id);
  if (hotKey == nullptr) return;
  leaveGnomeOverview(*this, [this, activationToken, pressed = hotKey->pressed] {
    windows_.system().setActivationToken(activationToken);
    pressed();
  });
}

}  // namespace platform::desktop
