// SPDX-License-Identifier: MIT
#include "platform/desktop/session/gnome_overview.h"

#include <QDBusConnection>
#include <QDBusMessage>
#include <QDBusPendingReply>
#include <QDBusVariant>
#include <QTimer>
#include <chrono>

#include "platform/desktop/dbus/bus.h"
#include "platform/desktop/session/session_environment.h"

namespace platform::desktop {
namespace {

constexpr int mostQuestions = 40;
constexpr std::chrono::milliseconds betweenQuestions{25};  // the overview closes with an animation
const QString shell = QStringLiteral("org.gnome.Shell");
const QString shellPath = QStringLiteral("/org/gnome/Shell");
const QString overviewActive = QStringLiteral("OverviewActive");

void leave(const QDBusConnection& bus) {
  QDBusMessage call = QDBusMessage::createMethodCall(
      shell, shellPath, QStringLiteral("org.freedesktop.DBus.Properties"), QStringLiteral("Set"));
  bus.send(call << shell << overviewActive << QVariant::fromValue(QDBusVariant(false)));
}

/// Leaves the overview if it is shown, and asks again until it is not, `questions` times at most.
void leave(QObject& context, const std::function<void()>& then, int questions) {
  const QDBusConnection bus = QDBusConnection::sessionBus();
  onReply(bus.asyncCall(getProperty(shell, shellPath, shell, overviewActive)), context,
          [&context, bus, then, questions](const QDBusPendingReply<QDBusVariant>& answer) {
            const bool active = answer.isValid() && answer.value().variant().toBool();
            if (!active || questions <= 1) return then();
            leave(bus);
            QTimer::singleShot(betweenQuestions, &context,
                               [&context, then, questions] { leave(context, then, questions - 1); });
          });
}

}  // namespace

void leaveGnomeOverview(QObject& context, const std::function<void()>& then) {
  if (!isSessionOf(gnome)) return then();
  leave(context, then, mostQuestions);
}

}  // namespace platform::desktop
