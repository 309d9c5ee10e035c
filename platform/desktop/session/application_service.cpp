// SPDX-License-Identifier: MIT
#include "platform/desktop/session/application_service.h"

#include <QDBusConnection>
#include <chrono>
#include <utility>

#include "platform/desktop/dbus/bus.h"
#include "platform/desktop/dbus/bus_names.h"
#include "platform/desktop/session/exported_actions.h"
#include "platform/desktop/session/gnome_overview.h"
#include "platform/desktop/windows/request_queue.h"
#include "platform/desktop/windows/window_system.h"

namespace platform::desktop {
namespace {

/// Set by our D-Bus service file. (The bus's own variables are inherited by whatever its services start, so they do not
/// tell.)
constexpr auto startedForRequest = "QUILLBERRY_STARTED_FOR_REQUEST";

}  // namespace

ApplicationService::ApplicationService(Bus& sessionBus, WindowSystem& windowSystem, RequestQueue& requests,
                                       const ExportedActions& actions, std::function<void()> activate)
    : sessionBus_(sessionBus),
      windowSystem_(windowSystem),
      requests_(requests),
      actions_(actions),
      activate_(std::move(activate)),
      startedForRequest_(qEnvironmentVariableIsSet(startedForRequest)) {
  qunsetenv(startedForRequest);  // else it would be inherited by all that we start
  sessionBus_.whenItAnswers(*this, [this] { registerOnBus(); });
}

void ApplicationService::registerOnBus() {
  QDBusConnection bus = QDBusConnection::sessionBus();
  // The object first, so that whoever sees the name finds the object.
  if (!bus.registerObject(servicePath(), this, QDBusConnection::ExportScriptableInvokables)) return;
  constexpr uint doNotQueue = 4;  // the flag DBUS_NAME_FLAG_DO_NOT_QUEUE
  bus.send(callOfTheBus(QStringLiteral("RequestName")) << serviceName() << doNotQueue);
}

ApplicationService::~ApplicationService() {
  // At once: a new start may come before the connection is closed.
  if (sessionBus_.answersWithin(std::chrono::milliseconds::zero()))
    QDBusConnection::sessionBus().send(callOfTheBus(QStringLiteral("ReleaseName")) << serviceName());
}

void ApplicationService::Activate(const QVariantMap& platformData) {
  startedForRequest_ = false;
  windowSystem_.setActivationToken(platformData.value(activationTokenKey()).toString());
  requests_.add(activate_);
}

void ApplicationService::Open(const QStringList& /*uris*/, const QVariantMap& /*platformData*/) {
  sendErrorReply(QDBusError::NotSupported, QStringLiteral("Quillberry has one note and opens no files."));
}

void ApplicationService::ActivateAction(const QString& name, const QVariantList& parameter,
                                        const QVariantMap& platformData) {
  QString refusal;
  const auto command = actions_.named(name, parameter, refusal);
  const bool isAwaited = std::exchange(startedForRequest_, false);
  if (!command) return sendErrorReply(QDBusError::InvalidArgs, refusal);
  if (isAwaited && actions_.isFirst(*command)) return keys_[name].called([] {});
  const QString token = platformData.value(activationTokenKey()).toString();
  keys_[name].called([this, command, token] {
    leaveGnomeOverview(*this, [this, command, token] {
      windowSystem_.setActivationToken(token);
      requests_.add([command] { command->performAction(); });
    });
  });
}

}  // namespace platform::desktop
