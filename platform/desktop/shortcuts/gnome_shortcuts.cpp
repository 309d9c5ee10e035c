// SPDX-License-Identifier: MIT
#include "platform/desktop/shortcuts/gnome_shortcuts.h"

#include <QDBusConnection>
#include <QDBusMessage>
#include <QDBusPendingCallWatcher>
#include <QDBusPendingReply>
#include <QDBusVariant>
#include <QTimer>
#include <chrono>

#include "platform/desktop/application/module.h"
#include "platform/desktop/session/application_service.h"
#include "platform/desktop/session/session_environment.h"
#include "platform/desktop/shortcuts/gnome_settings.h"
#include "platform/user_defaults.h"

namespace platform::desktop {
namespace {

constexpr int mostQuestions = 40;
constexpr std::chrono::milliseconds betweenQuestions{25};  // the overview goes gently

/// A call about GNOME Shell's overview; the caller adds what else there is to say.
QDBusMessage overviewCall(const QString& method) {
  const QString shell = QStringLiteral("org.gnome.Shell");
  QDBusMessage call = QDBusMessage::createMethodCall(shell, QStringLiteral("/org/gnome/Shell"),
                                                     QStringLiteral("org.freedesktop.DBus.Properties"), method);
  return call << shell << QStringLiteral("OverviewActive");
}

/// Asks until there is none.
void askForOverview(QObject& context, const std::function<void()>& then, int questions) {
  const QDBusConnection bus = QDBusConnection::sessionBus();
  auto* const call = new QDBusPendingCallWatcher(bus.asyncCall(overviewCall(QStringLiteral("Get"))), &context);
  QObject::connect(call, &QDBusPendingCallWatcher::finished, &context, [&context, call, bus, then, questions] {
    call->deleteLater();
    const QDBusPendingReply<QDBusVariant> answer = *call;
    const bool active = answer.isValid() && answer.value().variant().toBool();
    if (!active || questions <= 1) return then();
    bus.send(overviewCall(QStringLiteral("Set")) << QVariant::fromValue(QDBusVariant(false)));
    QTimer::singleShot(betweenQuestions, &context,
                       [&context, then, questions] { askForOverview(context, then, questions - 1); });
  });
}

}  // namespace

void addToGnomeShortcuts(const QString& action, const QString& title, const QString& binding) {
  NSUserDefaults& defaults = NSUserDefaults::standardUserDefaults();
  const std::string wasAdded = "didAddGnomeShortcut " + action.toStdString();
  if (defaults.boolForKey(wasAdded)) return;
  QString failure;
  const auto add = reinterpret_cast<AddGnomeShortcut>(
      loadFromModule(moduleFolders(), QLatin1String(gnomeModule), addGnomeShortcutName, failure));
  const QByteArray folder = "quillberry-" + action.toUtf8();
  const QByteArray command = QStringLiteral("gapplication action %1 %2").arg(serviceName(), action).toUtf8();
  const QByteArray name = title.toUtf8();
  const QByteArray keys = binding.toUtf8();
  const GnomeShortcut shortcut{folder.constData(), name.constData(), command.constData(), keys.constData()};
  if (add != nullptr && add(shortcut)) defaults.setBool(true, wasAdded);
}

void leaveGnomeOverview(QObject& context, const std::function<void()>& then) {
  if (!isSessionOf(gnome)) return then();
  askForOverview(context, then, mostQuestions);
}

}  // namespace platform::desktop
