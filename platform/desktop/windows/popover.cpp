// SPDX-License-Identifier: MIT
#include "platform/popover.h"

#include <QPushButton>
#include <QStyle>
#include <utility>

#include "platform/button.h"
#include "platform/desktop/language/key_names.h"
#include "platform/desktop/views/native_view.h"
#include "platform/desktop/views/widget_tree.h"
#include "platform/desktop/windows/bubble.h"
#include "platform/desktop/windows/main_window.h"
#include "platform/desktop/windows/program_windows.h"

namespace platform {

using desktop::Bubble;
using desktop::KeyNames;
using desktop::MainWindow;
using desktop::ProgramWindows;

namespace {

/// The button below a view whose key is Return; null if there is none.
NSButton* defaultButton(const NSView& view) {
  for (const auto& subview : view.subviews()) {
    auto* const button = dynamic_cast<NSButton*>(subview.get());
    if (button != nullptr && button->keyEquivalent() == "\r") return button;
    if (NSButton* const below = defaultButton(*subview)) return below;
  }
  return nullptr;
}

QRect globalRect(const QWidget& widget) { return {widget.mapToGlobal(QPoint()), widget.size()}; }

/// The view's place in the tray or in the main window; the end of that window's title bar while neither is known.
desktop::Anchor placeOf(const NSView& anchor) {
  if (const auto inTray = anchor.native().trayAnchor()) return *inTray;
  const QWidget& widget = *anchor.native().widget;
  const MainWindow* const window = ProgramWindows::instance().mainWindow();
  if (widget.parentWidget() != nullptr || window == nullptr) return {globalRect(widget), true};
  QRect end = widget.rect();
  const QRect whole = globalRect(*window);
  end.moveTopRight(whole.topRight());
  end = QStyle::visualRect(window->layoutDirection(), whole, end);
  return {end, false};
}

}  // namespace

struct NSPopover::Impl {
  ProgramWindows& windows = ProgramWindows::instance();
  std::unique_ptr<Bubble> bubble;  ///< from the first show on
  bool shown = false;

  void build(NSView& content, NSView& anchor, bool transient) {
    desktop::buildWidgets(content);
    bubble = std::make_unique<Bubble>(windows, *content.native().widget, transient);
    bubble->setWindowTitle(anchor.native().widget->accessibleName());
    if (NSButton* const button = defaultButton(content)) {
      if (auto* const push = qobject_cast<QPushButton*>(button->native().widget.get())) push->setDefault(true);
      bubble->onCloseRequest = [button] { button->performClick(); };
    }
    QObject::connect(
        &KeyNames::instance(), &KeyNames::renamed, bubble.get(),
        [&content](const QString& before, const QString& now) { desktop::renameKeys(content, before, now); });
    // The program uses only edges that mean the lower side of the anchor.
    bubble->follow(*anchor.native().widget);
    const bool canPoint = transient || windows.system().canPosition();
    bubble->pointAt([weak = std::weak_ptr(anchor.shared_from_this()), last = placeOf(anchor), canPoint]() mutable {
      if (const auto alive = std::static_pointer_cast<NSView>(weak.lock())) last = placeOf(*alive);
      // A window that cannot be placed cannot point at anything.
      last.exact &= canPoint;
      return last;
    });
  }

  void showTransient(const NSPopover& popover) {
    bubble->onHide = [this, &popover] {
      // A user who came to the anchor by the keyboard goes on typing in the text.
      if (MainWindow* const window = windows.mainWindow()) window->setFocus();
      closed(popover);
    };
    bubble->show();
  }

  void showCompanion() {
    MainWindow* const window = windows.mainWindow();
    bubble->onEscape = [this] {
      if (windows.mainWindow() != nullptr) windows.mainWindow()->close();
    };
    if (window != nullptr && !window->isVisible()) return windows.showCompanionLater(*bubble);
    windows.showCompanion(*bubble);
    windows.activateCompanion(*bubble);
  }

  void closed(const NSPopover& popover) {
    if (std::exchange(shown, false)) windows.release(popover);
  }
};

NSPopover::NSPopover() : impl_(std::make_unique<Impl>()) {}
NSPopover::~NSPopover() = default;

void NSPopover::showRelativeToRect(NSRect /*rect*/, NSView& anchor, NSRectEdge /*preferredEdge*/) {
  if (impl_->bubble) return;
  const bool transient = behavior_ == NSPopoverBehaviorTransient;
  impl_->build(*controller_->view(), anchor, transient);
  impl_->shown = true;
  impl_->windows.keepWhileShown(shared_from_this());
  transient ? impl_->showTransient(*this) : impl_->showCompanion();
}

void NSPopover::performClose(NSObject* /*sender*/) {
  if (!impl_->shown) return;
  impl_->windows.hideCompanion(*impl_->bubble);
  impl_->closed(*this);
}

}  // namespace platform
