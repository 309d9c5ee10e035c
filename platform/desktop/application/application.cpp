// SPDX-License-Identifier: MIT
#include "platform/application.h"

#include <QSessionManager>
#include <QTimer>
#include <cstdlib>
#include <optional>

#include "platform/application_metadata.h"
#include "platform/desktop/application/last_save.h"
#include "platform/desktop/application/qt_application.h"
#include "platform/desktop/application/single_instance.h"
#include "platform/desktop/application/termination_signals.h"
#include "platform/desktop/application/theme_follower.h"
#include "platform/desktop/application/this_display.h"
#include "platform/desktop/base/strings.h"
#include "platform/desktop/dbus/bus.h"
#include "platform/desktop/files/settings_file.h"
#include "platform/desktop/language/key_names.h"
#include "platform/desktop/language/translations.h"
#include "platform/desktop/session/application_service.h"
#include "platform/desktop/session/exported_actions.h"
#include "platform/desktop/session/wake_signals.h"
#include "platform/desktop/tray/qt_menu.h"
#include "platform/desktop/tray/status_bar.h"
#include "platform/desktop/windows/accessibility.h"
#include "platform/desktop/windows/first_frame.h"
#include "platform/desktop/windows/program_windows.h"

namespace platform {

using namespace desktop;

/// The parts of the desktop platform, each made once and given what it needs of those before it.
struct NSApplication::Impl {
  UniqueFd noteLock = ensureSingleInstance();
  TerminationSignals signals;
  Bus sessionBus{QDBusConnection::SessionBus};
  Bus systemBus{QDBusConnection::SystemBus};
  std::unique_ptr<QtApplication> qt = QtApplication::start(sessionBus);
  Translations translations;
  KeyNames keyNames;
  ThemeFollower themeFollower;
  FirstFrame firstFrame;
  std::unique_ptr<WindowSystem> windowSystem = makeWindowSystem();
  RequestQueue requests{*windowSystem};
  ProgramWindows windows{*windowSystem, requests};
  ExportedActions exportedActions;
  StatusBar statusBar{sessionBus, firstFrame, requests, windows, exportedActions};
  std::unique_ptr<GlobalShortcuts> globalShortcuts =
      makeGlobalShortcuts(requests, sessionBus, firstFrame, windows, exportedActions);
  std::optional<QtMenu> mainMenu;
  std::optional<ApplicationService> service;
  std::optional<WakeSignals> wakeSignals;
  std::weak_ptr<NSApplicationDelegate> delegate;
  LastSave lastSave{[this] { save(); }};

  Impl() {
    QApplication::setQuitOnLastWindowClosed(false);
    QApplication::setLayoutDirection(translations.direction());
    QApplication::setApplicationName(toQString(metadata::name));
    QApplication::setDesktopFileName(toQString(metadata::identifier));
    QApplication::setApplicationVersion(toQString(metadata::version));
    qt->onQuit = [this] { terminate(); };
    signals.deliverTo([this] { terminate(); });
    obeySessionManager();
    describeWindowsToAssistiveTechnology();
  }
  Impl(const Impl&) = delete;
  Impl& operator=(const Impl&) = delete;
  ~Impl() {
    // Everything is saved. Qt may need some seconds to hand the clipboard over; a new start need not wait for that.
    if (noteLock) noteLock.close();
  }

  /// Called at every end of the process; if the compositor is lost, nothing else of the program runs after it.
  void save() const {
    if (const auto told = delegate.lock()) told->applicationWillTerminate();
    SettingsFile::ofProgram().write();
  }

  void terminate() {
    // Not quit(): that asks the windows to close, and ours refuse.
    if (lastSave.run()) QCoreApplication::exit(EXIT_SUCCESS);
  }

  /// The session asks to save and may then end or go on, which it says later. Saving takes no dialog.
  void obeySessionManager() {
    const auto saveForSession = [this](QSessionManager& session) {
      session.setRestartHint(QSessionManager::RestartNever);
      save();
    };
    QObject::connect(qt.get(), &QGuiApplication::commitDataRequest, qt.get(), saveForSession, Qt::DirectConnection);
    QObject::connect(qt.get(), &QGuiApplication::saveStateRequest, qt.get(), saveForSession, Qt::DirectConnection);
  }

  void launch(NSApplication& app) {
    if (const auto told = delegate.lock()) told->applicationDidFinishLaunching();
    QTimer::singleShot(0, qt.get(), [this, &app] { startServices(app); });
  }

  /// Starts what needs a bus, after the first frame.
  void startServices(NSApplication& app) {
    service.emplace(sessionBus, *windowSystem, requests, exportedActions, [this, &app] {
      if (const auto told = delegate.lock()) told->applicationShouldHandleReopen(app, windows.areShown());
    });
    wakeSignals.emplace(sessionBus, systemBus);
    firstFrame.drawn();
  }
};

NSApplication::NSApplication() : impl_(std::make_unique<Impl>()) {}
NSApplication::~NSApplication() = default;

std::shared_ptr<NSApplication> NSApplication::sharedApplication() {
  static std::weak_ptr<NSApplication> theOne;
  if (auto existing = theOne.lock()) return existing;
  std::shared_ptr<NSApplication> made(new NSApplication);
  theOne = made;
  return made;
}

void NSApplication::setActivationPolicy(NSApplicationActivationPolicy /*policy*/) {
  // WindowSystem makes every window an accessory's: in no taskbar and no pager.
}

void NSApplication::setDelegate(const std::weak_ptr<NSApplicationDelegate>& delegate) { impl_->delegate = delegate; }

void NSApplication::run() {
  LastSave::runAtLossOfDisplay();
  impl_->themeFollower.followDesktop(impl_->firstFrame, impl_->sessionBus);
  QTimer::singleShot(0, [this] { impl_->launch(*this); });
  QApplication::exec();
  impl_->service.reset();
}

void NSApplication::setMainMenu(const std::shared_ptr<NSMenu>& menu) {
  impl_->mainMenu.emplace(menu, [](const std::function<void()>& command) { command(); });
  const auto& submenus = impl_->mainMenu->submenus();
  impl_->windows.setCommands(impl_->mainMenu->commands(),
                             submenus.empty() ? QList<QAction*>() : submenus.front()->commands());
}

void NSApplication::terminate(NSObject* /*sender*/) { impl_->terminate(); }

std::shared_ptr<NSWindow> NSApplication::keyWindow() const { return impl_->windows.keyWindow(); }
std::shared_ptr<NSApplicationDelegate> NSApplication::delegate() const { return impl_->delegate.lock(); }

void NSApplication::activateIgnoringOtherApps(bool /*ignoringOthers*/) { impl_->windows.activate(); }
void NSApplication::hide(NSObject* /*sender*/) { impl_->windows.hide(); }

}  // namespace platform
