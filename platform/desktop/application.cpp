#include "platform/application.h"

#include <QApplication>
#include <QScreen>
#include <QSessionManager>
#include <QTimer>
#include <algorithm>
#include <cstdio>
#include <cstdlib>

#include "platform/application_metadata.h"
#include "platform/desktop/application_service.h"
#include "platform/desktop/desktop.h"
#include "platform/desktop/single_instance.h"
#include "platform/desktop/strings.h"
#include "platform/desktop/termination_signals.h"

namespace platform {

using desktop::WindowSystem;

namespace {

/// XWayland is preferred where there is one: only through it can a window stay on top and on every workspace.
void choosePlatformPlugin() {
  if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM") && !qEnvironmentVariableIsEmpty("DISPLAY")) {
    qputenv("QT_QPA_PLATFORM", "xcb");
  }
}

/// While the toolkit looks for a display: it would abort where there is none.
void endWithoutDisplay(QtMsgType type, const QMessageLogContext& /*context*/, const QString& message) {
  if (type == QtFatalMsg) {
    std::fputs("Quillberry: there is no display that it could run on.\n", stderr);
    std::_Exit(EXIT_FAILURE);
  }
  if (type == QtCriticalMsg) std::fprintf(stderr, "%s\n", qPrintable(message));
}

/// The toolkit's application, but for its way to quit: it would first close the windows, which never close.
class ToolkitApplication : public QApplication {
 public:
  using QApplication::QApplication;

  std::function<void()> onQuit;

  bool event(QEvent* event) override {
    if (event->type() != QEvent::Quit || !onQuit) return QApplication::event(event);
    onQuit();
    return true;
  }
};

std::unique_ptr<ToolkitApplication> makeToolkitApplication() {
  static int argc = 1;
  static char name[] = "quillberry";
  static char* argv[] = {name, nullptr};
  choosePlatformPlugin();
  const auto usual = qInstallMessageHandler(endWithoutDisplay);
  auto application = std::make_unique<ToolkitApplication>(argc, argv);
  qInstallMessageHandler(usual);
  return application;
}

/// What the functions of desktop.h reach, while the application object lives.
struct Shared {
  WindowSystem* windowSystem = nullptr;
  bool owesFocus = false;
} shared;

}  // namespace

struct NSApplication::Impl {
  desktop::UniqueFd noteLock = desktop::becomeTheOneInstance();
  desktop::TerminationSignals signals;
  std::unique_ptr<ToolkitApplication> toolkit = makeToolkitApplication();
  std::unique_ptr<WindowSystem> windowSystem = WindowSystem::forThisDisplay();
  std::unique_ptr<desktop::ApplicationService> service;
  std::weak_ptr<NSApplicationDelegate> delegate;
  bool terminated = false;

  /// For the exit handler, which gets no argument.
  inline static Impl* current = nullptr;

  Impl() {
    current = this;
    shared.windowSystem = windowSystem.get();
    QApplication::setQuitOnLastWindowClosed(false);
    QApplication::setApplicationName(desktop::toQString(metadata::name));
    QApplication::setDesktopFileName(desktop::toQString(metadata::identifier));
    QApplication::setApplicationVersion(desktop::toQString(metadata::version));
    toolkit->onQuit = [this] { terminate(); };
    signals.deliverTo([this] { terminate(); });
    obeySessionManager();
  }
  Impl(const Impl&) = delete;
  Impl& operator=(const Impl&) = delete;
  ~Impl() { current = nullptr; }

  void tellOfTermination() {
    if (const auto told = delegate.lock()) told->applicationWillTerminate();
  }

  void terminate() {
    if (std::exchange(terminated, true)) return;
    tellOfTermination();
    // Not quit(): that asks the windows, and one that refuses would keep the process.
    QCoreApplication::exit(EXIT_SUCCESS);
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

  void reopen(NSApplication& app) {
    const auto windows = QApplication::topLevelWidgets();
    const bool visible =
        std::any_of(windows.begin(), windows.end(), [](QWidget* window) { return window->isVisible(); });
    if (const auto told = delegate.lock()) told->applicationShouldHandleReopen(app, visible);
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
  // The toolkit ends the process itself when the display goes away.
  std::atexit([] {
    if (Impl::current != nullptr && !std::exchange(Impl::current->terminated, true)) Impl::current->tellOfTermination();
  });
  QTimer::singleShot(0, [this] {
    if (const auto told = impl_->delegate.lock()) told->applicationDidFinishLaunching();
    // After the first frame: nobody needs the bus to see the note.
    QTimer::singleShot(0, [this] {
      impl_->service = std::make_unique<desktop::ApplicationService>([this] { impl_->reopen(*this); });
    });
  });
  QApplication::exec();
  impl_->service.reset();
}

void NSApplication::activateIgnoringOtherApps(bool /*ignoringOthers*/) {
  for (QWidget* const window : QApplication::topLevelWidgets()) {
    if (window->isVisible() && window->windowType() == Qt::Window) impl_->windowSystem->activate(*window);
  }
}

void NSApplication::hide(NSObject* /*sender*/) {
  for (QWidget* const window : QApplication::topLevelWidgets()) {
    if (window->isVisible()) window->hide();
  }
  if (std::exchange(shared.owesFocus, false)) impl_->windowSystem->activatePreviousProgram();
}

namespace desktop {

WindowSystem& windowSystem() { return *shared.windowSystem; }
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
