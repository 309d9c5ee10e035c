// SPDX-License-Identifier: MIT
#include "platform/desktop/shortcuts/portal_global_keys.h"

#include <QAction>
#include <QDBusPendingCallWatcher>
#include <QDBusPendingReply>
#include <QDBusServiceWatcher>
#include <algorithm>
#include <optional>
#include <string_view>
#include <utility>
#include <vector>

#include "platform/desktop/application/desktop.h"
#include "platform/desktop/dbus/bus.h"
#include "platform/desktop/language/strings.h"
#include "platform/desktop/session/application_service.h"
#include "platform/desktop/session/session_environment.h"
#include "platform/desktop/shortcuts/gnome_shortcuts.h"
#include "platform/desktop/shortcuts/key_names.h"
#include "platform/desktop/shortcuts/portal_shortcuts.h"
#include "platform/desktop/windows/decoration.h"
#include "platform/desktop/windows/window_system.h"
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

class PortalGlobalKeys : public QObject, public GlobalKeys {
 public:
  PortalGlobalKeys() = default;
  PortalGlobalKeys(const PortalGlobalKeys&) = delete;
  PortalGlobalKeys& operator=(const PortalGlobalKeys&) = delete;
  ~PortalGlobalKeys() override { QDBusConnection::disconnectFromBus(connectionName); }

  bool listen(std::uint32_t keyCode, std::uint32_t modifiers, std::function<void()> pressed) override {
    const std::string_view letter = letterOf(keyCode);
    if (letter.empty()) return false;
    if (hotKeys_.empty()) {
      afterFirstFrame(*this, [this] { sessionBus().whenItAnswers(*this, [this] { findPortal(); }); });
    }
    hotKeys_.push_back({letter, modifiers, std::move(pressed), {}, {}, std::make_unique<QAction>()});
    listenInOwnWindows(hotKeys_.back());
    return true;
  }

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

  /// Whoever gives the keys takes them before a window of ours sees them; where nobody does, they act there at least.
  static void listenInOwnWindows(HotKey& hotKey) {
    Qt::KeyboardModifiers modifiers;
    for (const Modifier& modifier : knownModifiers)
      modifiers.setFlag(modifier.ofQt, (hotKey.modifiers & modifier.ofHotKey) != 0);
    const auto key = static_cast<Qt::Key>(QChar::fromLatin1(hotKey.letter.front()).toUpper().unicode());
    hotKey.keys = QKeyCombination(modifiers, key);
    hotKey.inOwnWindows->setShortcut(hotKey.keys);
    hotKey.inOwnWindows->setShortcutContext(Qt::ApplicationShortcut);
    hotKey.inOwnWindows->setAutoRepeat(false);
    connect(hotKey.inOwnWindows.get(), &QAction::triggered, [pressed = hotKey.pressed] { pressed(); });
    if (NoteFrame* const note = NoteFrame::first()) note->addAction(hotKey.inOwnWindows.get());
  }

  /// Not a service that is slow or fails: what is added to GNOME's settings stays.
  static bool saysThereIsNone(const QDBusError& error) {
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

  /// GNOME's own part of the portal is asked there: where that has no shortcuts, the portal takes those of another
  /// desktop that is installed, which never hear a key.
  void findPortal() {
    if (!isSessionOf(gnome)) return usePortal();
    QDBusMessage question = QDBusMessage::createMethodCall(
        QStringLiteral("org.freedesktop.impl.portal.desktop.gnome"), QStringLiteral("/org/freedesktop/portal/desktop"),
        QStringLiteral("org.freedesktop.DBus.Properties"), QStringLiteral("Get"));
    question << QStringLiteral("org.freedesktop.impl.portal.GlobalShortcuts") << QStringLiteral("version");
    auto* const call = new QDBusPendingCallWatcher(QDBusConnection::sessionBus().asyncCall(question), this);
    connect(call, &QDBusPendingCallWatcher::finished, this, [this, call] {
      if (saysThereIsNone(call->error())) {
        for (const Described& hotKey : describeHotKeys())
          addToGnomeShortcuts(hotKey.action, hotKey.title, hotKey.gnome);
      } else {
        usePortal();
      }
      call->deleteLater();
    });
  }

  void usePortal() {
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
    auto* const call = new QDBusPendingCallWatcher(bus.asyncCall(start), this);
    connect(call, &QDBusPendingCallWatcher::finished, this, [this, call, bus] {
      if (!call->isError()) findOwner(bus);
      call->deleteLater();
    });
  }

  /// The bus is asked: not every version of Qt tells whose an answer is.
  void findOwner(const QDBusConnection& bus) {
    const QDBusMessage question = callOfTheBus(QStringLiteral("GetNameOwner")) << Portal::name();
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
    NoteFrame::giveWay(false);
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
        [](bool asks) { NoteFrame::giveWay(asks); });
  }

  /// Each by the menu's command with the same key; a hot key without one has no name that the user would know.
  QList<Described> describeHotKeys() {
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
      const auto command = offeredCommandWithKey(hotKey.letter, menuModifiers);
      if (!command) continue;
      hotKey.id = toQString(command->action().name);
      const QString letter = toQString(hotKey.letter);
      described.append({hotKey.id, toQString(command->title()), trigger + letter, binding + letter});
    }
    return described;
  }

  /// Null if none has been told by that id.
  const HotKey* hotKeyOf(const QString& id) const {
    const auto hotKey =
        std::find_if(hotKeys_.begin(), hotKeys_.end(), [&](const HotKey& each) { return each.id == id; });
    return id.isEmpty() || hotKey == hotKeys_.end() ? nullptr : &*hotKey;
  }

  void rename(const QString& id, const QString& keys) {
    if (const HotKey* const hotKey = hotKeyOf(id)) keyNames().tell(hotKey->keys, keys);
  }

  void press(const QString& id, const QString& activationToken) {
    const HotKey* const hotKey = hotKeyOf(id);
    if (hotKey == nullptr) return;
    leaveGnomeOverview(*this, [activationToken, pressed = hotKey->pressed] {
      takeActivationToken(activationToken);
      pressed();
    });
  }

  std::vector<HotKey> hotKeys_;
  QDBusServiceWatcher nameWatch_;
  std::optional<PortalShortcuts> shortcuts_;  ///< of the portal that runs now, if one does
};

}  // namespace

std::unique_ptr<GlobalKeys> makePortalGlobalKeys() { return std::make_unique<PortalGlobalKeys>(); }

}  // namespace platform::desktop
