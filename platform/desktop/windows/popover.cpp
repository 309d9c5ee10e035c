// SPDX-License-Identifier: MIT
#include "platform/popover.h"

#include <QPushButton>
#include <QStyle>
#include <utility>

#include "platform/button.h"
#include "platform/desktop/application/desktop.h"
#include "platform/desktop/shortcuts/key_names.h"
#include "platform/desktop/views/native_view.h"
#include "platform/desktop/views/view_realizer.h"
#include "platform/desktop/windows/bubble.h"
#include "platform/desktop/windows/decoration.h"

namespace platform {

using desktop::Bubble;
using desktop::NoteFrame;

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

/// In the tray, in the note's window, or at its end while it is not known yet in which of them.
desktop::Anchor placeOf(const NSView& anchor) {
  if (const auto inTray = desktop::placeInTray(anchor)) return *inTray;
  const QWidget& widget = *anchor.native().widget;
  const NoteFrame* const note = NoteFrame::first();
  if (widget.parentWidget() != nullptr || note == nullptr) return {globalRect(widget), true};
  QRect end = widget.rect();
  const QRect whole = globalRect(*note);
  end.moveTopRight(whole.topRight());
  end = QStyle::visualRect(note->layoutDirection(), whole, end);
  return {end, false};
}

}  // namespace

struct NSPopover::Impl {
  std::unique_ptr<Bubble> bubble;  ///< from the first show on
  bool shown = false;

  void show(bool transient) {
    const NoteFrame* const note = NoteFrame::first();
    if (transient) {
      bubble->show();
    } else if (note != nullptr && !note->isVisible()) {
      desktop::showWithProgram(*bubble);
    } else {
      NoteFrame::showBeside(*bubble);
      NoteFrame::activateBeside(*bubble);
    }
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
    auto* const push = qobject_cast<QPushButton*>(button->native().widget.get());
    if (push != nullptr) push->setDefault(true);  // so that a screen reader says so
    bubble.onReturn = [button] { button->performClick(); };
  }
  if (transient) {
    bubble.onHide = [this] {
      // Whoever came to its anchor by the key goes on typing.
      if (NoteFrame* const note = NoteFrame::first()) note->setFocus();
      impl_->closed(*this);
    };
  } else {
    bubble.onEscape = [] {
      if (NoteFrame* const note = NoteFrame::first()) note->close();
    };
  }
  QObject::connect(
      &desktop::keyNames(), &desktop::KeyNames::renamed, &bubble,
      [&content](const QString& before, const QString& now) { desktop::renameKeys(content, before, now); });
  // Both edges that the program names are the lower ones of their anchors.
  bubble.follow(*anchor.native().widget);
  bubble.pointAt([weak = std::weak_ptr(anchor.shared_from_this()), last = placeOf(anchor)]() mutable {
    if (const auto alive = std::static_pointer_cast<NSView>(weak.lock())) last = placeOf(*alive);
    return last;
  });
  impl_->show(transient);
}

void NSPopover::performClose(NSObject* /*sender*/) {
  if (!impl_->shown) return;
  NoteFrame::hideBeside(*impl_->bubble);
  impl_->closed(*this);
}

}  // namespace platform
