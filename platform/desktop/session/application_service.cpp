// SPDX-License-Identifier: MIT
#include "platform/desktop/session/application_service.h"

#include <QDBusConnection>
#include <algorithm>
#include <utility>

#include "platform/application_metadata.h"
#include "platform/desktop/application/desktop.h"
#include "platform/desktop/dbus/bus.h"
#include "platform/desktop/language/strings.h"
#include "platform/desktop/shortcuts/gnome_shortcuts.h"
#include "platform/desktop/windows/window_system.h"

namespace platform::desktop {

namespace {

/// The bus's service file sets it. What the bus sets itself is inherited by all that its services start.
constexpr auto startedForRequest = "QUILLBERRY_STARTED_FOR_REQUEST";

std::weak_ptr<NSMenu> offeredMenu;

/// The first command that is `wanted`; null if none is offered.
template <typename Wanted>
std::shared_ptr<NSMenuItem> offeredCommand(const Wanted& wanted) {
  const auto menu = offeredMenu.lock();
  if (!menu) return nullptr;
  const auto& items = menu->items();
  const auto found = std::find_if(items.begin(), items.end(),
                                  [&](const auto& item) { return !item->action().name.empty() && wanted(*item); });
  return found == items.end() ? nullptr : *found;
}

}  // namespace

std::shared_ptr<NSMenuItem> offeredAction(const QString& name, const QVariantList& parameter, QString& refusal) {
  auto command = offeredCommand([&](const NSMenuItem& item) { return toQString(item.action().name) == name; });
  if (!command) {
    refusal = QStringLiteral("There is no action \"%1\".").arg(name);
  } else if (!parameter.isEmpty()) {
    refusal = QStringLiteral("The action %1 takes no parameter.").arg(name);
    command.reset();
  }
  return command;
}

void offerToOtherPrograms(const std::shared_ptr<NSMenu>& menu) { offeredMenu = menu; }

std::shared_ptr<NSMenuItem> offeredCommandWithKey(std::string_view keyEquivalent, unsigned modifierMask) {
  return offeredCommand([&](const NSMenuItem& item) {
    return item.keyEquivalent() == keyEquivalent && item.keyEquivalentModifierMask() == modifierMask;
  });
}

QString serviceName() { return toQString(metadata::identifier); }
QString servicePath() { return u'/' + serviceName().replace(u'.', u'/'); }
QString activationTokenKey() { return QStringLiteral("activation-token"); }
QString serviceInterface() { return QStringLiteral("org.freedesktop.Application"); }

ApplicationService::ApplicationService(std::function<void()> activate)
    : activate_(std::move(activate)), owesRequest_(qEnvironmentVariableIsSet(startedForRequest)) {
  qunsetenv(startedForRequest);  // else it would be inherited by all that we start
  sessionBus().whenItAnswers(*this, [this] { appear(); });
}

void ApplicationService::appear() {
  QDBusConnection bus = QDBusConnection::sessionBus();
  // The object first: who finds the name finds the object.
  if (!bus.registerObject(servicePath(), this, QDBusConnection::ExportScriptableInvokables)) return;
  constexpr uint doNotQueue = 4;  // behind another process that has the name
  bus.send(callOfTheBus(QStringLiteral("RequestName")) << serviceName() << doNotQueue);
}

ApplicationService::~ApplicationService() {
  // The next start may come before the connection ends.
  if (sessionBus().answersWithin(std::chrono::milliseconds::zero()))
    QDBusConnection::sessionBus().send(callOfTheBus(QStringLiteral("ReleaseName")) << serviceName());
}

void ApplicationService::Activate(const QVariantMap& platformData) {
  owesRequest_ = false;
  takeActivationToken(platformData.value(activationTokenKey()).toString());
  requests().add(activate_);
}

void ApplicationService::Open(const QStringList& /*uris*/, const QVariantMap& /*platformData*/) {
  sendErrorReply(QDBusError::NotSupported, QStringLiteral("Quillberry has one note and opens no files."));
}

void ApplicationService::ActivateAction(const QString& name, const QVariantList& parameter,
                                        const QVariantMap& platformData) {
  QString refusal;
  const auto command = offeredAction(name, parameter, refusal);
  const bool isFirstRequest = std::exchange(owesRequest_, false);
  if (!command) {
    sendErrorReply(QDBusError::InvalidArgs, refusal);
  } else if (!isFirstRequest || command != offeredMenu.lock()->items().front()) {
    const QString token = platformData.value(activationTokenKey()).toString();
    leaveGnomeOverview(*this, [command, token] {
      takeActivationToken(token);
      requests().add([command] { command->performAction(); });
    });
  }
}

}  // namespace platform::desktop
