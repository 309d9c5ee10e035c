// SPDX-License-Identifier: MIT
#include "platform/window.h"

#include <QGuiApplication>
#include <QScreen>
#include <QTimer>
#include <algorithm>
#include <chrono>

#include "platform/desktop/application/desktop.h"
#include "platform/desktop/language/strings.h"
#include "platform/desktop/text/note_editor.h"
#include "platform/desktop/views/native_view.h"
#include "platform/desktop/windows/decoration.h"
#include "platform/desktop/windows/screen_changes.h"
#include "platform/user_defaults.h"

namespace platform {

using desktop::NoteFrame;
using desktop::windowSystem;

namespace {

/// Every window that there is.
std::vector<NSWindow*> windows;

constexpr std::chrono::milliseconds frameKeepDelay{500};  // a drag is over when nothing has moved for this long

}  // namespace

struct NSWindow::Impl {
  NSWindow& owner;
  std::shared_ptr<NSView> content;  // before the frame, which has it inside
  NoteFrame frame;
  std::weak_ptr<NSWindowDelegate> delegate;
  std::weak_ptr<NSView> firstResponder;
  std::string autosaveKey;
  NSRect place;  ///< where the frame was last put
  QTimer keepFrameLater;
  desktop::ScreenChanges screenChanges{[this] { stayOnScreens(); }};

  Impl(NSWindow& window, NSRect contentRect) : owner(window), content(std::make_shared<NSView>(NSRect{})) {
    frame.setContent(*content->native().widget);
    frame.onCloseRequest = [this] { askToClose(); };
    frame.onGeometryChange = [this] { geometryChanged(); };
    frame.onAboutToHide = [this] { aboutToHide(); };
    frame.onUnusedKey = [this](QKeyEvent& key) { passToFirstResponder(key); };
    keepFrameLater.setSingleShot(true);
    keepFrameLater.setInterval(frameKeepDelay);
    QObject::connect(&keepFrameLater, &QTimer::timeout, [this] { keepFrame(); });
    setFrame(contentRect);
  }
  Impl(const Impl&) = delete;
  Impl& operator=(const Impl&) = delete;

  ~Impl() { keepFrame(); }

  void setFrame(NSRect rect) {
    place = rect;
    frame.setGeometry(desktop::toToolkit(rect));
    content->setFrame({{}, rect.size});
  }

  void askToClose() {
    const auto answerer = delegate.lock();
    if (!answerer || answerer->windowShouldClose(owner)) frame.hide();
  }

  /// A window whose display tells no places counts as where it was put.
  NSRect placed(const QRect& geometry) const {
    NSRect rect = desktop::fromToolkit(geometry);
    if (!windowSystem().hasPlaces()) rect.origin = {place.minX(), place.maxY() - rect.size.height};
    return rect;
  }

  void stayOnScreens() {
    if (frame.isZoomed()) return frame.zoomAnew();
    const NSRect now = placed(frame.geometry());
    const NSRect whole = frameWholeOnScreens(now, desktop::screens());
    if (!(whole == now)) setFrame(whole);
  }

  void geometryChanged() {
    content->setFrame({{}, {double(frame.width()), double(frame.height())}});
    if (!autosaveKey.empty() && frame.isVisible()) keepFrameLater.start();
  }

  /// The frame as the user last made it; a maximised window remembers the one before.
  void keepFrame() {
    keepFrameLater.stop();
    if (autosaveKey.empty() || frame.isMaximized() || frame.isFullScreen()) return;
    const NSRect rect = placed(frame.unzoomedGeometry());
    const NSRect screen = screenOfFrame(rect, desktop::screens()).frame;
    NSUserDefaults::standardUserDefaults().setString(stringFromFrame({rect, screen}), autosaveKey);
  }

  void aboutToHide() {
    if (windowSystem().isActive(frame)) desktop::oweFocusToPreviousProgram();
    windowSystem().prepareToHide(frame);
    for (auto* const editor : frame.findChildren<desktop::NoteEditor*>()) editor->commitComposition();
    if (keepFrameLater.isActive()) keepFrame();
  }

  /// Escape puts the note away from every control in it.
  void passToFirstResponder(QKeyEvent& key) {
    if (key.key() != Qt::Key_Escape) return;
    const auto first = firstResponder.lock();
    auto* const editor = first ? dynamic_cast<desktop::NoteEditor*>(first->native().widget.get()) : nullptr;
    if (editor != nullptr && !editor->hasFocus() && editor->onKey) editor->onKey(key);
  }

  void applyPlacement() {
    if (frame.isVisible()) windowSystem().place(frame, frame.placementNow());
  }
};

NSWindow::NSWindow(NSRect contentRect, unsigned /*styleMask*/, NSBackingStoreType /*backing*/, bool /*defer*/)
    : impl_(std::make_unique<Impl>(*this, contentRect)) {
  windows.push_back(this);
}

NSWindow::~NSWindow() { std::erase(windows, this); }

// The frame has one look of a title bar, and belongs to its window.
void NSWindow::setTitlebarAppearsTransparent(bool /*transparent*/) {}
void NSWindow::setReleasedWhenClosed(bool /*released*/) {}

void NSWindow::setMinSize(NSSize size) {
  impl_->frame.setMinimumSize(static_cast<int>(size.width), static_cast<int>(size.height));
}

void NSWindow::setDelegate(const std::weak_ptr<NSWindowDelegate>& delegate) { impl_->delegate = delegate; }

void NSWindow::center() {
  QRect rect = impl_->frame.geometry();
  rect.moveCenter(QGuiApplication::primaryScreen()->availableGeometry().center());
  impl_->setFrame(desktop::fromToolkit(rect));
}

void NSWindow::setFrameAutosaveName(std::string_view name) {
  impl_->autosaveKey = "NSWindow Frame " + std::string(name);
  const auto text = NSUserDefaults::standardUserDefaults().stringForKey(impl_->autosaveKey);
  const auto kept = text ? frameFromString(*text) : std::nullopt;
  if (!kept) return;
  NSRect rect = frameOnScreens(*kept, desktop::screens());
  const QSize smallest = impl_->frame.minimumSize();
  rect.size = {std::max(rect.size.width, double(smallest.width())),
               std::max(rect.size.height, double(smallest.height()))};
  impl_->setFrame(rect);
}

NSView& NSWindow::contentView() { return *impl_->content; }

void NSWindow::makeKeyAndOrderFront(NSObject* /*sender*/) {
  NoteFrame& frame = impl_->frame;
  if (!frame.isVisible()) {
    windowSystem().prepareToShow(frame, frame.placementNow());
    frame.addActions(desktop::mainMenuCommands());
    frame.show();
  }
  // To where the user is: not every window manager leads the user to a window on another workspace.
  windowSystem().place(frame, frame.placementNow());
  windowSystem().activate(frame);
}

void NSWindow::orderOut(NSObject* /*sender*/) { impl_->frame.hide(); }

void NSWindow::makeFirstResponder(NSView& view) {
  impl_->firstResponder = std::static_pointer_cast<NSView>(view.shared_from_this());
  QWidget& widget = *view.native().widget;
  impl_->frame.setFocusProxy(&widget);
  widget.setFocus();
}

std::shared_ptr<NSView> NSWindow::firstResponder() const { return impl_->firstResponder.lock(); }

bool NSWindow::isVisible() const { return impl_->frame.isVisible() && !impl_->frame.isMinimized(); }
bool NSWindow::isKeyWindow() const { return impl_->frame.isVisible() && windowSystem().isActive(impl_->frame); }

void NSWindow::setLevel(int level) {
  impl_->frame.placement.aboveOthers = level >= NSFloatingWindowLevel;
  impl_->applyPlacement();
}

void NSWindow::setCollectionBehavior(unsigned behavior) {
  impl_->frame.placement.onEveryWorkspace = (behavior & NSWindowCollectionBehaviorCanJoinAllSpaces) != 0;
  impl_->applyPlacement();
}

std::shared_ptr<NSWindow> desktop::keyWindow() {
  const auto found =
      std::find_if(windows.begin(), windows.end(), [](const NSWindow* window) { return window->isKeyWindow(); });
  return found == windows.end() ? nullptr : std::static_pointer_cast<NSWindow>((*found)->shared_from_this());
}

void NSWindow::setTitle(std::string_view title) { impl_->frame.setWindowTitle(desktop::toQString(title)); }

}  // namespace platform
