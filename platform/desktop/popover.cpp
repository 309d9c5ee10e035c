#include "platform/popover.h"

#include <QPushButton>
#include <utility>

#include "platform/button.h"
#include "platform/desktop/bubble.h"
#include "platform/desktop/decoration.h"
#include "platform/desktop/desktop.h"
#include "platform/desktop/native_view.h"
#include "platform/desktop/view_realizer.h"

namespace platform {

using desktop::Bubble;

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

}  // namespace

struct NSPopover::Impl {
  std::unique_ptr<Bubble> bubble;  ///< from the first show on
  bool shown = false;

  void show(bool transient) {
    if (transient) {
      bubble->show();
      return;
    }
    desktop::NoteFrame::showBeside(*bubble);
    desktop::windowSystem().activate(*bubble);
  }

  void closed(const NSPopover& popover) {
    if (std::exchange(shown, false)) desktop::letGo(popover);
  }
};

NSPopover::NSPopover() : impl_(std::make_unique<Impl>()) {}
NSPopover::~NSPopover() = default;

void NSPopover::showRelativeToRect(NSRect /*rect*/, NSView& anchor, NSRectEdge /*preferredEdge*/) {
  if (impl_->bubble) return;
  NSView& content = *controller_->view();
  desktop::realize(content);
  const bool transient = behavior_ == NSPopoverBehaviorTransient;
  impl_->bubble = std::make_unique<Bubble>(*content.native().widget, transient);
  Bubble& bubble = *impl_->bubble;
  bubble.setWindowTitle(anchor.native().widget->accessibleName());
  impl_->shown = true;
  desktop::keepWhileShown(shared_from_this());
  if (NSButton* const button = defaultButton(content)) {
    if (auto* const push = qobject_cast<QPushButton*>(button->native().widget.get())) push->setDefault(true);
    bubble.onReturn = [button] { button->performClick(nullptr); };
  }
  if (transient) {
    bubble.onHide = [this] { impl_->closed(*this); };
  } else {
    bubble.onEscape = [] { desktop::hideProgram(); };
  }
  // Both edges that the program names are the lower ones of their anchors.
  const auto inTray = desktop::placeInTray(anchor);
  bubble.pointAt(inTray.value_or(globalRect(*anchor.native().widget)), true);
  impl_->show(transient);
}

void NSPopover::performClose(NSObject* /*sender*/) {
  if (!impl_->shown) return;
  desktop::NoteFrame::hideBeside(*impl_->bubble);
  impl_->closed(*this);
}

}  // namespace platform
