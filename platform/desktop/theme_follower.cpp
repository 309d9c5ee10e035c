// SPDX-License-Identifier: MIT
#include "platform/desktop/theme_follower.h"

#include <QApplication>
#include <QDBusConnection>
#include <QDBusMessage>
#include <QDBusPendingCallWatcher>
#include <QDBusPendingReply>
#include <QEvent>
#include <QStyle>

#include "platform/desktop/bus.h"
#include "platform/desktop/desktop.h"
#include "platform/user_defaults.h"

namespace platform::desktop {
namespace {

const QString portal = QStringLiteral("org.freedesktop.portal.Desktop");
const QString portalPath = QStringLiteral("/org/freedesktop/portal/desktop");
const QString settings = QStringLiteral("org.freedesktop.portal.Settings");
const QString appearance = QStringLiteral("org.freedesktop.appearance");
const QString colorScheme = QStringLiteral("color-scheme");
constexpr auto remembered = "colorSchemeIsDark";

bool isDark(const QPalette& palette) {
  return palette.color(QPalette::Window).lightness() < palette.color(QPalette::WindowText).lightness();
}

/// For a style that has light colours alone.
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

void ThemeFollower::followPortal() {
  if (NSUserDefaults::standardUserDefaults().boolForKey(remembered)) scheme_ = Scheme::Dark;
  if (scheme_ == Scheme::Dark) applyScheme();
  afterFirstFrame(*this, [this] { sessionBus().whenItAnswers(*this, [this] { askPortal(); }); });
}

bool ThemeFollower::eventFilter(QObject* watched, QEvent* event) {
  if (event->type() == QEvent::ThemeChange) applyScheme();
  return QObject::eventFilter(watched, event);
}

void ThemeFollower::askPortal() {
  QDBusConnection bus = QDBusConnection::sessionBus();
  bus.connect(portal, portalPath, settings, QStringLiteral("SettingChanged"), {appearance, colorScheme},
              QStringLiteral("ssv"), this, SLOT(onSettingChanged(QString, QString, QDBusVariant)));
  QDBusMessage question = QDBusMessage::createMethodCall(portal, portalPath, settings, QStringLiteral("Read"));
  question << appearance << colorScheme;
  auto* const call = new QDBusPendingCallWatcher(bus.asyncCall(question), this);
  connect(call, &QDBusPendingCallWatcher::finished, this, [this, call] {
    const QDBusPendingReply<QDBusVariant> answer = *call;
    // The value is wrapped twice. A desktop that does not say has no preference.
    if (answer.isValid()) setScheme(answer.value().variant().value<QDBusVariant>().variant());
    call->deleteLater();
  });
}

void ThemeFollower::onSettingChanged(const QString& /*group*/, const QString& /*key*/, const QDBusVariant& value) {
  setScheme(value.variant());
}

void ThemeFollower::setScheme(const QVariant& value) {
  const auto scheme = static_cast<Scheme>(value.toUInt());
  if (scheme == scheme_) return;
  scheme_ = scheme;
  NSUserDefaults::standardUserDefaults().setBool(scheme == Scheme::Dark, remembered);
  applyScheme();
}

/// The theme's own colours, as far as they are dark or light as they should be.
void ThemeFollower::applyScheme() {
  const QPalette light = qApp->style()->standardPalette();
  QApplication::setPalette(styleNamesTheColors_ ? light : QPalette());
  const bool dark = isDark(QApplication::palette());
  if (scheme_ == Scheme::Dark && !dark) QApplication::setPalette(darkPalette());
  if (scheme_ == Scheme::Light && dark) QApplication::setPalette(light);
}

}  // namespace platform::desktop
