// SPDX-License-Identifier: MIT
#include "platform/desktop/toolkit_application.h"

#include <QAccessible>
#include <QEvent>
#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <optional>

#include "platform/desktop/bus.h"

namespace platform::desktop {
namespace {

constexpr std::chrono::milliseconds patienceWithBus{500};

/// While the toolkit looks for a display: it would abort where there is none.
void endWithoutDisplay(QtMsgType type, const QMessageLogContext& /*context*/, const QString& message) {
  if (type == QtFatalMsg) {
    std::fputs("Quillberry: there is no display that it could run on.\n", stderr);
    std::_Exit(EXIT_FAILURE);
  }
  if (type == QtCriticalMsg) std::fprintf(stderr, "%s\n", qPrintable(message));
}

std::unique_ptr<ToolkitApplication> makeApplication() {
  static int argc = 1;
  static char name[] = "quillberry";
  static char* argv[] = {name, nullptr};
  const auto usual = qInstallMessageHandler(endWithoutDisplay);
  auto application = std::make_unique<ToolkitApplication>(argc, argv);
  qInstallMessageHandler(usual);
  return application;
}

/// A variable of the environment with another value, for a while.
class Setting {
 public:
  Setting(const char* name, const char* value)
      : name_(name), wasSet_(qEnvironmentVariableIsSet(name)), before_(qgetenv(name)) {
    qputenv(name, value);
  }
  Setting(const Setting&) = delete;
  Setting& operator=(const Setting&) = delete;
  ~Setting() { wasSet_ ? qputenv(name_, before_) : qunsetenv(name_); }

 private:
  const char* name_;
  bool wasSet_;
  QByteArray before_;
};

/// XWayland is preferred where there is one: only through it can a window stay on top and on every workspace. Whatever
/// we start chooses for itself.
std::optional<Setting> preferXWayland() {
  constexpr auto plugin = "QT_QPA_PLATFORM";
  if (!qEnvironmentVariableIsEmpty(plugin) || qEnvironmentVariableIsEmpty("DISPLAY")) return std::nullopt;
  return std::optional<Setting>(std::in_place, plugin,
                                qEnvironmentVariableIsEmpty("WAYLAND_DISPLAY") ? "xcb" : "xcb;wayland");
}

}  // namespace

std::unique_ptr<ToolkitApplication> ToolkitApplication::start(Bus& sessionBus) {
  const std::optional<Setting> plugin = preferXWayland();
  sessionBus.answersWithin(patienceWithBus);
  if (!sessionBus.isSilent()) return makeApplication();
  // The themes of some desktops ask the bus for colours.
  const Setting noTheme("QT_QPA_PLATFORMTHEME", "generic");
  const Setting noAssistiveTechnology("AT_SPI_BUS_ADDRESS", "disabled:");
  auto application = makeApplication();
  QAccessible::isActive();  // looks for assistive technology now
  return application;
}

bool ToolkitApplication::event(QEvent* event) {
  if (event->type() != QEvent::Quit || !onQuit) return QApplication::event(event);
  onQuit();
  return true;
}

}  // namespace platform::desktop
