// SPDX-License-Identifier: MIT
#include "platform/application.h"

#include <QApplication>
#include <QPointer>
#include <QScreen>
#include <QSemaphore>
#include <QSessionManager>
#include <QThread>
#include <QTimer>
#include <algorithm>
#include <chrono>
#include <cstdlib>
#include <optional>
#include <utility>

#include "platform/application_metadata.h"
#include "platform/desktop/application/desktop.h"
#include "platform/desktop/application/single_instance.h"
#include "platform/desktop/application/termination_signals.h"
#include "platform/desktop/application/theme_follower.h"
#include "platform/desktop/application/toolkit_application.h"
#include "platform/desktop/dbus/bus.h"
#include "platform/desktop/files/settings_file.h"
#include "platform/desktop/language/strings.h"
#include "platform/desktop/language/translations.h"
#include "platform/desktop/session/application_service.h"
#include "platform/desktop/session/wake_signals.h"
#include "platform/desktop/shortcuts/key_names.h"
#include "platform/desktop/tray/toolkit_menu.h"
#include "platform/desktop/views/accessibility.h"
#include "platform/desktop/windows/decoration.h"

namespace platform {

using desktop::WindowSystem;

namespace {

constexpr std::chrono::milliseconds longestLastSave{5000};  // that a thread of Qt waits for before it ends us

/// What the functions of desktop.h reach, while the application object lives.
struct Shared {
  WindowSystem* windowSystem = nullptr;
  desktop::RequestQueue* requests = nullptr;
  desktop::GlobalKeys* globalKeys = nullptr;
  desktop::KeyNames* keyNames = nullptr;
  desktop::Bus* sessionBus = nullptr;
  desktop::Bus* systemBus = nullptr;
  bool owesFocus = false;
  std::vector<std::shared_ptr<NSObject>> shown;
  std::vector<std::shared_ptr<NSObject>> closed;  ///< and not let go of yet
  std::vector<QPointer<QWidget>> hiddenWindows;   ///< with the program, with which they come back
  bool firstFrameDrawn = false;
  std::vector<std::pair<QPointer<QObject>, std::function<void()>>> afterFirstFrame;
  QList<QAction*> mainMenuCommands;
  QList<QAction*> applicationMenuCommands;
} shared;

/// The windows that the user sees of the program. Its icon in an X11 tray is one only for Qt.
QWidgetList visibleWindows() {
  QWidgetList windows = QApplication::topLevelWidgets();
  windows.removeIf([](const QWidget* window) {
    return !window->isVisible() || (window->windowFlags() & Qt::BypassWindowManagerHint) != 0;
  });
  return windows;
}

}  // namespace

struct NSApplication::Impl {
  desktop::UniqueFd noteLock = desktop::becomeTheOneInstance();
  desktop::TerminationSignals signals;
  desktop::Bus sessionBus{QDBusConnection::SessionBus};
  desktop::Bus systemBus{QDBusConnection::SystemBus};
  std::unique_ptr<desktop::ToolkitApplication> toolkit = desktop::ToolkitApplication::start(sessionBus);
  desktop::Translations translations;
  desktop::KeyNames keyNames;
  desktop::ThemeFollower themeFollower;
  std::unique_ptr<WindowSystem> windowSystem = WindowSystem::forThisDisplay();
  desktop::RequestQueue requests{*windowSystem};
  std::unique_ptr<desktop::GlobalKeys> globalKeys = desktop::GlobalKeys::forThisDisplay();
  std::optional<desktop::ToolkitMenu> mainMenu;
  std::unique_ptr<desktop::ApplicationService> service;
  std::unique_ptr<desktop::WakeSignals> wakeSignals;
  std::weak_ptr<NSApplicationDelegate> delegate;
  bool terminated = false;

  /// For the exit handler, which gets no argument.
  inline static Impl* current = nullptr;
  /// Free once the delegate has done what it does at the end; Qt's threads may wait for that while this goes.
  inline static QSemaphore lastSaves{0};

  Impl() {
    lastSaves.acquire(lastSaves.available());  // left by one before
    current = this;
    shared.windowSystem = windowSystem.get();
    shared.requests = &requests;
    shared.globalKeys = globalKeys.get();
    shared.keyNames = &keyNames;
    shared.sessionBus = &sessionBus;
    shared.systemBus = &systemBus;
    QApplication::setQuitOnLastWindowClosed(false);
    QApplication::setLayoutDirection(translations.direction());
    QApplication::setApplicationName(desktop::toQString(metadata::name));
    QApplication::setDesktopFileName(desktop::toQString(metadata::identifier));
    QApplication::setApplicationVersion(desktop::toQString(metadata::version));
    toolkit->onQuit = [this] { terminate(); };
    signals.deliverTo([this] { terminate(); });
    obeySessionManager();
    desktop::describeWindowsToAssistiveTechnology();
  }
  Impl(const Impl&) = delete;
  Impl& operator=(const Impl&) = delete;
  ~Impl() {
    // All is saved. Qt may take some seconds more to hand the clipboard over, and a start meanwhile need not wait.
    if (noteLock) noteLock.close();
    current = nullptr;
    shared = {};
  }

  /// Every end comes by here; where the compositor is lost, nothing else of the program runs any more.
  void tellOfTermination() {
    if (const auto told = delegate.lock()) told->applicationWillTerminate();
    desktop::SettingsFile::ofProgram().write();
  }

  void terminate() {
    if (terminated) return;
    tellOfTerminationOnce();
    // Not quit(): that asks the windows, and one that refuses would keep the process.
    QCoreApplication::exit(EXIT_SUCCESS);
  }

  /// Qt ends the process itself when the display goes away: on X11 so that exit handlers run, on Wayland at
  /// once, after a last warning.
  static void noteLossOfDisplay() {
    std::atexit(tellOfTerminationOnce);
    if (QGuiApplication::platformName().startsWith(QLatin1String("wayland"))) qInstallMessageHandler(hearLastWarning);
  }

  /// Stays installed to the end of the process: any thread may be in it.
  static void hearLastWarning(QtMsgType type, const QMessageLogContext& context, const QString& message) {
    std::fprintf(stderr, "%s\n", qPrintable(qFormatLogMessage(type, context, message)));
    if (message.startsWith(QLatin1String("The Wayland connection"))) saveFromAnyThread();
  }

  /// Comes back when all is saved: several threads warn of the same loss, and Qt ends the process after any.
  static void saveFromAnyThread() {
    if (lastSaves.available() > 0) return;
    if (QThread::currentThread() == qApp->thread()) return tellOfTerminationOnce();
    QMetaObject::invokeMethod(qApp, [] { tellOfTerminationOnce(); });
    if (lastSaves.tryAcquire(1, static_cast<int>(longestLastSave.count()))) lastSaves.release();
  }

  static void tellOfTerminationOnce() {
    if (current == nullptr || std::exchange(current->terminated, true)) return;
    current->tellOfTermination();
    lastSaves.release();
  }

  /// A session that asks to save may end or go on; it tells later. It never has to wait for us.
  void obeySessionManager() {
    const auto save = [this](QSessionManager& session) {
      session.setRestartHint(QSessionManager::RestartNever);
      tellOfTermination();
    };
    QObject::connect(toolkit.get(), &QGuiApplication::commitDataRequest, toolkit.get(), save, Qt::DirectConnection);
    QObject::connect(toolkit.get(), &QGuiApplication::saveStateRequest, toolkit.get(), save, Qt::DirectConnection);
  }

  /// What needs a bus: nobody needs it to see the note.
  void firstFrameDrawn(NSApplication& app) {
    service = std::make_unique<desktop::ApplicationService>([this, &app] { reopen(app); });
    wakeSignals = std::make_unique<desktop::WakeSignals>();
    shared.firstFrameDrawn = true;
    for (const auto& [context, work] : std::exchange(shared.afterFirstFrame, {})) {
      if (!context.isNull()) work();
    }
  }

  void reopen(NSApplication& app) {
    if (const auto told = delegate.lock()) told->applicationShouldHandleReopen(app, !visibleWindows().isEmpty());
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
  // An accessory is what the window system makes of every window.
}

void NSApplication::setDelegate(const std::weak_ptr<NSApplicationDelegate>& delegate) { impl_->delegate = delegate; }

void NSApplication::run() {
  Impl::noteLossOfDisplay();
  impl_->themeFollower.followDesktop();
  QTimer::singleShot(0, [this] {
    if (const auto told = impl_->delegate.lock()) told->applicationDidFinishLaunching();
    QTimer::singleShot(0, [this] { impl_->firstFrameDrawn(*this); });
  });
  QApplication::exec();
  impl_->service.reset();
}

void NSApplication::setMainMenu(const std::shared_ptr<NSMenu>& menu) {
  impl_->mainMenu.emplace(menu, [](const std::function<void()>& command) { command(); });
  shared.mainMenuCommands = impl_->mainMenu->commands();
  const auto& submenus = impl_->mainMenu->submenus();
  shared.applicationMenuCommands = submenus.empty() ? QList<QAction*>() : submenus.front()->commands();
}

void NSApplication::terminate(NSObject* /*sender*/) { impl_->terminate(); }

std::shared_ptr<NSWindow> NSApplication::keyWindow() const { return desktop::keyWindow(); }
std::shared_ptr<NSApplicationDelegate> NSApplication::delegate() const { return impl_->delegate.lock(); }

void NSApplication::activateIgnoringOtherApps(bool /*ignoringOthers*/) {
  for (const auto& window : std::exchange(shared.hiddenWindows, {})) {
    if (!window.isNull()) desktop::NoteFrame::showBeside(*window);
  }
  for (QWidget* const window : visibleWindows()) {
    if (window->windowType() == Qt::Window) impl_->windowSystem->activate(*window);
  }
}

void NSApplication::hide(NSObject* /*sender*/) {
  desktop::takeActivationToken({});
  for (QWidget* const window : visibleWindows()) {
    if (window->windowType() == Qt::Dialog) shared.hiddenWindows.emplace_back(window);
    if (impl_->windowSystem->isActive(*window)) desktop::oweFocusToPreviousProgram();
    window->hide();
  }
  if (std::exchange(shared.owesFocus, false)) impl_->windowSystem->activatePreviousProgram();
}

namespace desktop {

WindowSystem& windowSystem() { return *shared.windowSystem; }
void keepWhileShown(std::shared_ptr<NSObject> object) { shared.shown.push_back(std::move(object)); }

void letGo(const NSObject& object) {
  auto& shown = shared.shown;
  const auto kept = std::find_if(shown.begin(), shown.end(), [&](const auto& each) { return each.get() == &object; });
  if (kept == shown.end()) return;
  shared.closed.push_back(std::move(*kept));
  shown.erase(kept);
  QTimer::singleShot(0, qApp, [] { shared.closed.clear(); });
}

void showWithProgram(QWidget& window) { shared.hiddenWindows.emplace_back(&window); }
void leaveHidden(const QWidget& window) { std::erase(shared.hiddenWindows, &window); }
RequestQueue& requests() { return *shared.requests; }
GlobalKeys& globalKeys() { return *shared.globalKeys; }
KeyNames& keyNames() { return *shared.keyNames; }
Bus& sessionBus() { return *shared.sessionBus; }
Bus& systemBus() { return *shared.systemBus; }
QList<QAction*> mainMenuCommands() { return shared.mainMenuCommands; }
QList<QAction*> applicationMenuCommands() { return shared.applicationMenuCommands; }

void afterFirstFrame(QObject& context, std::function<void()> work) {
  if (shared.firstFrameDrawn) {
    QTimer::singleShot(0, &context, std::move(work));
  } else {
    shared.afterFirstFrame.emplace_back(&context, std::move(work));
  }
}

void oweFocusToPreviousProgram() { shared.owesFocus = true; }

NSRect fromToolkit(const QRect& rect) {
  const double floor = QGuiApplication::primaryScreen()->geometry().bottom() + 1;
  return {{double(rect.x()), floor - rect.y() - rect.height()}, {double(rect.width()), double(rect.height())}};
}

QRect toToolkit(NSRect rect) {
  const double floor = QGuiApplication::primaryScreen()->geometry().bottom() + 1;
  return QRectF(rect.minX(), floor - rect.maxY(), rect.size.width, rect.size.height).toRect();
}

std::vector<Screen> screens() {
  std::vector<Screen> all;
  for (const QScreen* const screen : QGuiApplication::screens()) {
    all.push_back({fromToolkit(screen->geometry()), fromToolkit(screen->availableGeometry())});
  }
  return all;
}

}  // namespace desktop
}  // namespace platform
