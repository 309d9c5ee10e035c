// SPDX-License-Identifier: MIT
#include "platform/desktop/application/qt_application.h"

#include <QAccessible>
#include <QEvent>
#include <algorithm>
#include <array>
#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <optional>

#include "platform/desktop/dbus/bus.h"
#include "platform/desktop/session/session_environment.h"

namespace platform::desktop {
namespace {

constexpr std::chrono::milliseconds longestAnswerOfBus{2000};

/// While Qt looks for a display: it would abort where there is none.
void endWithoutDisplay(QtMsgType type, const QMessageLogContext& /*context*/, const QString& message) {
  if (type == QtFatalMsg) {
    std::fputs("Quillberry: there is no display that it could run on.\n", stderr);
    std::_Exit(EXIT_FAILURE);
  }
  if (type == QtCriticalMsg) std::fprintf(stderr, "%s\n", qPrintable(message));
}

std::unique_ptr<QtApplication> makeApplication() {
  static int argc = 1;
  static char name[] = "quillberry";
  static char* argv[] = {name, nullptr};
  const auto usual = qInstallMessageHandler(endWithoutDisplay);
  auto application = std::make_unique<QtApplication>(argc, argv);
  qInstallMessageHandler(usual);
  return application;
}

/// Sets an environment variable, and restores it on destruction.
class TemporaryVariable {
 public:
  TemporaryVariable(const char* name, const char* value)
      : name_(name), wasSet_(qEnvironmentVariableIsSet(name)), before_(qgetenv(name)) {
    qputenv(name, value);
  }
  TemporaryVariable(const TemporaryVariable&) = delete;
  TemporaryVariable& operator=(const TemporaryVariable&) = delete;
  ~TemporaryVariable() { wasSet_ ? qputenv(name_, before_) : qunsetenv(name_); }

 private:
  const char* name_;
  bool wasSet_;
  QByteArray before_;
};

/// Prefers XWayland where there is one: only through X11 can a window stay on top and on every workspace. The variable
/// is restored afterwards, so that programs that we start are not affected.
std::optional<TemporaryVariable> preferXWayland() {
  constexpr auto plugin = "QT_QPA_PLATFORM";
  if (!qEnvironmentVariableIsEmpty(plugin) || qEnvironmentVariableIsEmpty("DISPLAY")) return std::nullopt;
  return std::optional<TemporaryVariable>(std::in_place, plugin,
                                          qEnvironmentVariableIsEmpty("WAYLAND_DISPLAY") ? "xcb" : "xcb;wayland");
}

/// Where Qt would load GTK for its theme: GDK ends the process itself when the display is lost, without exit handlers
/// and so without the last save. GTK would also take half as long again to start.
bool wouldLoadGtk() {
  constexpr std::array desktopsOfGtk{"GNOME", "X-CINNAMON", "PANTHEON", "UNITY", "MATE", "XFCE", "LXDE"};
  return std::any_of(desktopsOfGtk.begin(), desktopsOfGtk.end(),
                     [](const char* desktop) { return isSessionOf(QLatin1String(desktop)); });
}

}  // namespace

std::unique_ptr<QtApplication> QtApplication::start(Bus& sessionBus) {
  const std::optional<TemporaryVariable> plugin = preferXWayland();
  sessionBus.answersWithin(longestAnswerOfBus);
  // Some of the other platform themes read colours over the bus. A theme that the user has named is loaded anyway.
  QGuiApplication::setDesktopSettingsAware(!sessionBus.isSilent() && !wouldLoadGtk());
  std::optional<TemporaryVariable> noAssistiveTechnology;
  if (sessionBus.isSilent()) noAssistiveTechnology.emplace("AT_SPI_BUS_ADDRESS", "disabled:");
  auto application = makeApplication();
  if (sessionBus.isSilent()) QAccessible::isActive();  // looks for assistive technology now
  QGuiApplication::setDesktopSettingsAware(true);
  return application;
}

bool QtApplication::event(QEvent* event) {
  if (event->type() != QEvent::Quit || !onQuit) return QApplication::event(event);
  onQuit();
  return true;
}

}  // namespace platform::desktop
