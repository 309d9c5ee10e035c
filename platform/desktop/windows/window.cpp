// SPDX-License-Identifier: MIT
#include "platform/window.h"

#include <QGuiApplication>
#include <QScreen>
#include <QTimer>
#include <algorithm>
#include <chrono>
#include <optional>
#include <utility>

#include "platform/desktop/base/strings.h"
#include "platform/desktop/text/note_editor.h"
#include "platform/desktop/views/native_view.h"
#include "platform/desktop/windows/main_window.h"
#include "platform/desktop/windows/program_windows.h"
#include "platform/desktop/windows/screens.h"
#include "platform/user_defaults.h"

namespace platform {

using desktop::MainWindow;
using desktop::ProgramWindows;

namespace {

constexpr std::chrono::milliseconds frameSaveDelay{500};  // a drag is over when nothing has moved for this long

}  // namespace

struct NSWindow::Impl {
  ProgramWindows& windows = ProgramWindows::instance();
  std::shared_ptr<NSView> content;  // before the widget, which shows it
  MainWindow widget;
  std::weak_ptr<NSWindowDelegate> delegate;
  std::weak_ptr<NSView> firstResponder;
  std::string autosaveKey;
  NSRect place;  ///< where the frame was last put
  QTimer saveFrameLater;
  std::optional<desktop::Home> home;  ///< while the window is away from it, and the user has not moved it since
  // Not while it is being shown: the window system would put it back.
  desktop::ScreenChanges screenChanges{[this](const QScreen& screen) { leave(screen); },
                                       [this] { windows.whenSettled(widget, [this] { followScreens(); }); }};

  Impl(NSWindow& owner, NSRect contentRect) : content(std::make_shared<NSView>(NSRect{})), widget(windows, owner) {
    widget.setContent(*content->native().widget);
    widget.onCloseRequest = [this] { askToClose(); };
    widget.onGeometryChange = [this] { geometryChanged(); };
    widget.onHide = [this] { settleBeforeHiding(); };
    widget.onUnusedKey = [this](QKeyEvent& key) { passToFirstResponder(key); };
    saveFrameLater.setSingleShot(true);
    saveFrameLater.setInterval(frameSaveDelay);
    QObject::connect(&saveFrameLater, &QTimer::timeout, [this] { saveFrame(); });
    setFrame(contentRect);
  }
  Impl(const Impl&) = delete;
  Impl& operator=(const Impl&) = delete;

  ~Impl() { saveFrame(); }

  void setFrame(NSRect rect) {
    place = rect;
    widget.setGeometry(desktop::toQt(rect));
    content->setFrame({{}, rect.size});
  }

  void askToClose() {
    const auto answerer = delegate.lock();
    if (!answerer || answerer->windowShouldClose(widget.owner())) widget.hide();
  }

  /// Where the display does not tell positions, the last one that was set.
  NSRect placed(const QRect& geometry) const {
    NSRect rect = desktop::fromQt(geometry);
    if (!windows.system().canPosition()) rect.origin = {place.minX(), place.maxY() - rect.size.height};
    return rect;
  }

  bool isSizedByDesktop() const { return widget.isMaximized() || widget.isFullScreen(); }

  QRect frame() const { return desktop::toQt(placed(widget.geometry())); }

  void leave(const QScreen& screen) {
    if (home || widget.zoom().isOn() || isSizedByDesktop() || !screen.geometry().contains(frame().center())) return;
    home = {screen.name(), screen.geometry(), frame(), std::nullopt};
  }

  /// All of the window on one screen, and back to its home.
  void followScreens() {
    if (widget.zoom().isOn()) return widget.zoom().fill();
    if (isSizedByDesktop()) return;
    const QRect wish = home && home->isBack() ? std::exchange(home, std::nullopt)->frame : frame();
    const QRect whole = desktop::wholeOnScreens(wish);
    if (whole != frame()) setFrame(desktop::fromQt(whole));
    if (!home) return;
    home->awayFrame.reset();
    saveFrameLater.start();  // which learns where it comes to rest
  }

  void geometryChanged() {
    content->setFrame({{}, {double(widget.width()), double(widget.height())}});
    if (!autosaveKey.empty() && widget.isVisible()) saveFrameLater.start();
  }

  /// Whether the window, at rest, is where it went when its screen did. If the user has moved it since, it is at home
  /// where it is now.
  bool restsAway() {
    if (home && !home->awayFrame) home->awayFrame = frame();
    if (home && home->awayFrame != frame()) home.reset();
    return home.has_value();
  }

  /// The frame as the user last made it. What was saved stays for a maximised window, and for one that is away.
  void saveFrame() {
    saveFrameLater.stop();
    if (autosaveKey.empty() || isSizedByDesktop() || restsAway()) return;
    const NSRect rect = placed(widget.zoom().geometryWithout());
    const NSRect screen = screenOfFrame(rect, desktop::screens()).frame;
    NSUserDefaults::standardUserDefaults().setString(stringFromFrame({rect, screen}), autosaveKey);
  }

  void settleBeforeHiding() {
    for (auto* const editor : widget.findChildren<desktop::NoteEditor*>()) editor->commitComposition();
    if (saveFrameLater.isActive()) saveFrame();
  }

  /// Keys that no control has used, such as Escape, go to the first responder.
  void passToFirstResponder(QKeyEvent& key) {
    if (key.key() != Qt::Key_Escape) return;
    const auto first = firstResponder.lock();
    auto* const editor = first ? dynamic_cast<desktop::NoteEditor*>(first->native().widget.get()) : nullptr;
    if (editor != nullptr && !editor->hasFocus() && editor->onKey) editor->onKey(key);
  }
};

NSWindow::NSWindow(NSRect contentRect, unsigned /*styleMask*/, NSBackingStoreType /*backing*/, bool /*defer*/)
    : impl_(std::make_unique<Impl>(*this, contentRect)) {}
NSWindow::~NSWindow() = default;

// There is one kind of title bar.
void NSWindow::setTitlebarAppearsTransparent(bool /*transparent*/) {}
void NSWindow::setReleasedWhenClosed(bool /*released*/) {}

void NSWindow::setMinSize(NSSize size) {
  impl_->widget.setMinimumSize(static_cast<int>(size.width), static_cast<int>(size.height));
}

void NSWindow::setDelegate(const std::weak_ptr<NSWindowDelegate>& delegate) { impl_->delegate = delegate; }

void NSWindow::center() {
  QRect rect = impl_->widget.geometry();
  rect.moveCenter(desktop::roomOf(*QGuiApplication::primaryScreen()).center());
  impl_->setFrame(desktop::fromQt(rect));
}

void NSWindow::setFrameAutosaveName(std::string_view name) {
  impl_->autosaveKey = "NSWindow Frame " + std::string(name);
  const auto text = NSUserDefaults::standardUserDefaults().stringForKey(impl_->autosaveKey);
  const auto kept = text ? frameFromString(*text) : std::nullopt;
  if (!kept) return;
  NSRect rect = frameOnScreens(*kept, desktop::screens());
  const QSize smallest = impl_->widget.minimumSize();
  rect.size = {std::max(rect.size.width, double(smallest.width())),
               std::max(rect.size.height, double(smallest.height()))};
  impl_->setFrame(rect);
}

NSView& NSWindow::contentView() { return *impl_->content; }

void NSWindow::makeKeyAndOrderFront(NSObject* /*sender*/) { impl_->windows.show(impl_->widget); }

void NSWindow::orderOut(NSObject* /*sender*/) { impl_->widget.hide(); }

void NSWindow::makeFirstResponder(NSView& view) {
  impl_->firstResponder = std::static_pointer_cast<NSView>(view.shared_from_this());
  QWidget& widget = *view.native().widget;
  impl_->widget.setFocusProxy(&widget);
  widget.setFocus();
}

std::shared_ptr<NSView> NSWindow::firstResponder() const { return impl_->firstResponder.lock(); }

bool NSWindow::isVisible() const { return impl_->widget.isVisible() && !impl_->widget.isMinimized(); }
bool NSWindow::isKeyWindow() const {
  return impl_->widget.isVisible() && impl_->windows.system().isActive(impl_->widget);
}

void NSWindow::setLevel(int level) {
  impl_->widget.state.aboveOthers = level >= NSFloatingWindowLevel;
  impl_->windows.applyState(impl_->widget);
}

void NSWindow::setCollectionBehavior(unsigned behavior) {
  impl_->widget.state.onEveryWorkspace = (behavior & NSWindowCollectionBehaviorCanJoinAllSpaces) != 0;
  impl_->windows.applyState(impl_->widget);
}

void NSWindow::setTitle(std::string_view title) { impl_->widget.setWindowTitle(desktop::toQString(title)); }

}  // namespace platform
