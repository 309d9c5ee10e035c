// SPDX-License-Identifier: MIT
#include "platform/desktop/tray/tray_hosts.h"

#include <QDBusConnection>
#include <QDBusMessage>
#include <QDBusPendingReply>
#include <QDBusVariant>
#include <utility>

#include "platform/desktop/dbus/bus.h"
#include "platform/desktop/x11/x11.h"

namespace platform::desktop {
namespace {

const QString watcherName = QStringLiteral("org.kde.StatusNotifierWatcher");
const QString watcherPath = QStringLiteral("/StatusNotifierWatcher");

}  // namespace

TrayHosts::TrayHosts(Bus& sessionBus, std::function<void()> onChange) : onChange_(std::move(onChange)) {
  if (auto* const connection = x11::connection()) {
    const auto tray = "_NET_SYSTEM_TRAY_S" + std::to_string(x11::screenNumber());
    trayWatch_ = std::make_unique<SelectionWatch>(connection, tray, [this] { setXEmbedTray(trayWatch_->isOwned()); });
    setXEmbedTray(trayWatch_->isOwned());
  }
  if (!sessionBus.answersWithin(std::chrono::milliseconds::zero())) setNotifierHost(false);
  sessionBus.whenItAnswers(*this, [this] { watchNotifierHosts(); });
}

TrayHosts::~TrayHosts() = default;

void TrayHosts::watchNotifierHosts() {
  QDBusConnection bus = QDBusConnection::sessionBus();
  watcherWatch_.setConnection(bus);
  watcherWatch_.addWatchedService(watcherName);
  connect(&watcherWatch_, &QDBusServiceWatcher::serviceOwnerChanged, this, &TrayHosts::askNotifierWatcher);
  for (const char* const signal : {"StatusNotifierHostRegistered", "StatusNotifierHostUnregistered"}) {
    bus.connect({}, watcherPath, watcherName, QLatin1String(signal), this, SLOT(askNotifierWatcher()));
  }
  askNotifierWatcher();
}

void TrayHosts::askNotifierWatcher() {
  QDBusMessage question =
      getProperty(watcherName, watcherPath, watcherName, QStringLiteral("IsStatusNotifierHostRegistered"));
  question.setAutoStartService(false);
  onReply(QDBusConnection::sessionBus().asyncCall(question), *this,
          [this](const QDBusPendingReply<QDBusVariant>& answer) {
            setNotifierHost(answer.isValid() && answer.value().variant().toBool());
            if (answer.error().type() == QDBusError::NoReply) askNotifierWatcher();  // it may only be slow
          });
}

void TrayHosts::setNotifierHost(bool present) {
  const bool changed = std::exchange(notifierHost_, present) != present;
  if (!std::exchange(known_, true) || changed) onChange_();
}

void TrayHosts::setXEmbedTray(bool present) {
  const bool changed = std::exchange(xembedTray_, present) != present;
  if (known_ && changed) onChange_();
}

}  // namespace platform::desktop
