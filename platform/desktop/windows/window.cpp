// SPDX-License-Identifier: MIT
#include "platform/window.h"

#include <QGuiApplication>
#include <QScreen>
#include <QTimer>
#include <algorithm>
#include <chrono>

#include "platform/desktop/language/strings.h"
#include "platform/desktop/text/note_editor.h"
#include "platform/desktop/views/native_view.h"
#include "platform/desktop/windows/note_window.h"
#include "platform/desktop/windows/program_windows.h"
#include "platform/desktop/windows/screens.h"
#include "platform/user_defaults.h"

namespace platform {

using desktop::NoteWindow;
using desktop::ProgramWindows;

namespace {

constexpr std::chrono::milliseconds frameSaveDelay{500};  // a drag is over when nothing has moved for this long

}  // namespace

struct NSWindow::Impl {
  ProgramWindows& windows = ProgramWindows::instance();
  std::shared_ptr<NSView> content;  // before the frame, which has it inside
  NoteWindow frame;
  std::weak_ptr<NSWindowDelegate> delegate;
  std::weak_ptr<NSView> firstResponder;
  std::string autosaveKey;
  NSRect place;  ///< where the frame was last put
  QTimer saveFrameLater;
  desktop::ScreenChanges screenChanges{[this] { stayOnScreens(); }};

  Impl(NSWindow& owner, NSRect contentRect) : content(std::make_shared<NSView>(NSRect{})), frame(windows, owner) {
    frame.setContent(*content->native().widget);
    frame.onCloseRequest = [this] { askToClose(); };
    frame.onGeometryChange = [this] { geometryChanged(); };
    frame.onHide = [this] { settleBeforeHiding(); };
    frame.onUnusedKey = [this](QKeyEvent& key) { passToFirstResponder(key); };
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
    frame.setGeometry(desktop::toQt(rect));
    content->setFrame({{}, rect.size});
  }

  void askToClose() {
    const auto answerer = delegate.lock();
    if (!answerer || answerer->windowShouldClose(frame.owner())) frame.hide();
  }

  /// A window whose display tells no places counts as where it was put.
  NSRect placed(const QRect& geometry) const {
    NSRect rect = desktop::fromQt(geometry);
    if (!windows.system().hasPlaces()) rect.origin = {place.minX(), place.maxY() - rect.size.height};
    return rect;
  }

  void stayOnScreens() {
    if (frame.zoom().isOn()) return frame.zoom().fill();
    const NSRect now = placed(frame.geometry());
    const NSRect whole = frameWholeOnScreens(now, desktop::screens());
    if (!(whole == now)) setFrame(whole);
  }

  void geometryChanged() {
    content->setFrame({{}, {double(frame.width()), double(frame.height())}});
    if (!autosaveKey.empty() && frame.isVisible()) saveFrameLater.start();
  }

  /// The frame as the user last made it; a maximised window remembers the one before.
  void saveFrame() {
    saveFrameLater.stop();
    if (autosaveKey.empty() || frame.isMaximized() || frame.isFullScreen()) return;
    const NSRect rect = placed(frame.zoom().geometryWithout());
    const NSRect screen = screenOfFrame(rect, desktop::screens()).frame;
    NSUserDefaults::standardUserDefaults().setString(stringFromFrame({rect, screen}), autosaveKey);
  }

  void settleBeforeHiding() {
    for (auto* const editor : frame.findChildren<desktop::NoteEditor*>()) editor->commitComposition();
    if (saveFrameLater.isActive()) saveFrame();
  }

  /// Escape puts the note away from every control in it.
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
  impl_->setFrame(desktop::fromQt(rect));
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

void NSWindow::makeKeyAndOrderFront(NSObject* /*sender*/) { impl_->windows.show(impl_->frame); }

void NSWindow::orderOut(NSObject* /*sender*/) { impl_->frame.hide(); }

void NSWindow::makeFirstResponder(NSView& view) {
  impl_->firstResponder = std::static_pointer_cast<NSView>(view.shared_from_this());
  QWidget& widget = *view.native().widget;
  impl_->frame.setFocusProxy(&widget);
  widget.setFocus();
}

std::shared_ptr<NSView> NSWindow::firstResponder() const { return impl_->firstResponder.lock(); }

bool NSWindow::isVisible() const { return impl_->frame.isVisible() && !impl_->frame.isMinimized(); }
bool NSWindow::isKeyWindow() const {
  return impl_->frame.isVisible() && impl_->windows.system().isActive(impl_->frame);
}

void NSWindow::setLevel(int level) {
  impl_->frame.placement.aboveOthers = level >= NSFloatingWindowLevel;
  impl_->windows.place(impl_->frame);
}

void NSWindow::setCollectionBehavior(unsigned behavior) {
  impl_->frame.placement.onEveryWorkspace = (behavior & NSWindowCollectionBehaviorCanJoinAllSpaces) != 0;
  impl_->windows.place(impl_->frame);
}

void NSWindow::setTitle(std::string_view title) { impl_->frame.setWindowTitle(desktop::toQString(title)); }

}  // namespace platform
