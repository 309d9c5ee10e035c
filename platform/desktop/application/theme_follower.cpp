// SPDX-License-Identifier: MIT
#include "platform/desktop/application/theme_follower.h"

#include <QApplication>
#include <QDBusConnection>
#include <QDBusPendingReply>
#include <QEvent>
#include <QStyle>

#include "platform/desktop/dbus/bus.h"
#include "platform/desktop/session/session_environment.h"
#include "platform/desktop/windows/first_frame.h"
#include "platform/user_defaults.h"

namespace platform::desktop {
namespace {

/// A setting of a D-Bus service, which signals its changes.
struct Source {
  QString service;
  QString path;
  QString interface;
  QString read;     ///< the call that answers with it
  QString changed;  ///< the signal
  QString group;
  QString key;
};

Source portal() {
  return {QStringLiteral("org.freedesktop.portal.Desktop"),
          QStringLiteral("/org/freedesktop/portal/desktop"),
          QStringLiteral("org.freedesktop.portal.Settings"),
          QStringLiteral("Read"),
          QStringLiteral("SettingChanged"),
          QStringLiteral("org.freedesktop.appearance"),
          QStringLiteral("color-scheme")};
}

/// In Xfce only the theme is dark or light, and no portal reports it.
Source xfceSettings() {
  const QString name = QStringLiteral("org.xfce.Xfconf");
  return {name,
          QStringLiteral("/org/xfce/Xfconf"),
          name,
          QStringLiteral("GetProperty"),
          QStringLiteral("PropertyChanged"),
          QStringLiteral("xsettings"),
          QStringLiteral("/Net/ThemeName")};
}

constexpr auto remembered = "colorSchemeIsDark";

bool isDark(const QPalette& palette) {
  return palette.color(QPalette::Window).lightness() < palette.color(QPalette::WindowText).lightness();
}

/// For styles that have light colours only.
QPalette darkPalette() {
  QPalette palette(QColor(0x3A, 0x3A, 0x3C), QColor(0x2B, 0x2B, 0x2D));
  palette.setColor(QPalette::Base, QColor(0x1E, 0x1E, 0x1F));
  palette.setColor(QPalette::AlternateBase, QColor(0x2B, 0x2B, 0x2D));
  for (const auto role : {QPalette::WindowText, QPalette::Text, QPalette::ButtonText, QPalette::ToolTipText})
    palette.setColor(role, QColor(0xF0, 0xF0, 0xF0));
  palette.setColor(QPalette::ToolTipBase, QColor(0x3A, 0x3A, 0x3C));
  palette.setColor(QPalette::PlaceholderText, QColor(0x9A, 0x9A, 0x9C));
  palette.setColor(QPalette::Highlight, QColor(0x2F, 0x65, 0xC8));
  palette.setColor(QPalette::HighlightedText, Qt::white);
  palette.setColor(QPalette::Link, QColor(0x7A, 0xB0, 0xFF));
  for (const auto role : {QPalette::WindowText, QPalette::Text, QPalette::ButtonText})
    palette.setColor(QPalette::Disabled, role, QColor(0x8A, 0x8A, 0x8C));
  return palette;
}

}  // namespace

ThemeFollower::ThemeFollower() : styleNamesTheColors_(QApplication::palette() == qApp->style()->standardPalette()) {
  qApp->installEventFilter(this);
}

void ThemeFollower::followDesktop(FirstFrame& firstFrame, Bus& sessionBus) {
  if (NSUserDefaults::standardUserDefaults().boolForKey(remembered)) scheme_ = Scheme::Dark;
  if (scheme_ == Scheme::Dark) applyScheme();
  firstFrame.then(*this, [this, &sessionBus] { sessionBus.whenItAnswers(*this, [this] { listenToDesktop(); }); });
}

bool ThemeFollower::eventFilter(QObject* watched, QEvent* event) {
  if (event->type() == QEvent::ThemeChange) applyScheme();
  return QObject::eventFilter(watched, event);
}

void ThemeFollower::listenToDesktop() {
  const Source source = isSessionOf(xfce) ? xfceSettings() : portal();
  const QDBusConnection bus = QDBusConnection::sessionBus();
  QDBusMessage question = QDBusMessage::createMethodCall(source.service, source.path, source.interface, source.read);
  question << source.group << source.key;
  using Answer = QDBusPendingReply<QDBusVariant>;
  const auto take = [this](const Answer& answer) {
    if (!answer.isError()) setScheme(schemeIn(answer.value().variant()));
  };
  // This starts the service. A desktop that has no such setting has no preference; one that times out may have one.
  onReply(bus.asyncCall(question), *this, [this, take](const Answer& answer) {
    if (answer.isError() && answer.error().type() != QDBusError::NoReply) setScheme(Scheme::NoPreference);
    take(answer);
  });
  // And again once its signals are heard: they may have begun after that answer.
  connectToOwner(bus, source.service, source.path, source.interface, source.changed, {source.group, source.key},
                 QStringLiteral("ssv"), *this, SLOT(onSettingChanged(QString, QString, QDBusVariant)),
                 [this, bus, question, take] { onReply(bus.asyncCall(question), *this, take); });
}

void ThemeFollower::onSettingChanged(const QString& /*group*/, const QString& /*key*/, const QDBusVariant& value) {
  setScheme(schemeIn(value.variant()));
}

/// From the portal's number, which comes inside two variants, or from the name of an Xfce theme.
ThemeFollower::Scheme ThemeFollower::schemeIn(const QVariant& value) {
  if (value.canConvert<QDBusVariant>()) return schemeIn(value.value<QDBusVariant>().variant());
  if (value.typeId() != QMetaType::QString) return static_cast<Scheme>(value.toUInt());
  const bool dark = value.toString().split(u'-').contains(QStringLiteral("dark"), Qt::CaseInsensitive);
  return dark ? Scheme::Dark : Scheme::NoPreference;
}

void ThemeFollower::setScheme(Scheme scheme) {
  if (scheme == scheme_) return;
  scheme_ = scheme;
  NSUserDefaults::standardUserDefaults().setBool(scheme == Scheme::Dark, remembered);
  applyScheme();
}

/// Uses the platform theme's own colours if they are as dark or light as they should be.
void ThemeFollower::applyScheme() {
  const QPalette light = qApp->style()->standardPalette();
  QApplication::setPalette(styleNamesTheColors_ ? light : QPalette());
  const bool dark = isDark(QApplication::palette());
  if (scheme_ == Scheme::Dark && !dark) QApplication::setPalette(darkPalette());
  if (scheme_ == Scheme::Light && dark) QApplication::setPalette(light);
}

}  // namespace platform::desktop
