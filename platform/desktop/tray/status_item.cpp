// SPDX-License-Identifier: MIT
#include "platform/status_bar.h"

#include <optional>

#include "platform/desktop/application/desktop.h"
#include "platform/desktop/session/application_service.h"
#include "platform/desktop/tray/toolkit_menu.h"
#include "platform/desktop/tray/tray.h"
#include "platform/desktop/views/native_view.h"
#include "platform/desktop/views/symbol_button.h"
#include "platform/desktop/windows/decoration.h"

namespace platform {

using desktop::NoteFrame;
using desktop::ToolkitMenu;

namespace {

/// The one item that a program has, while it looks for trays.
struct Shown {
  const NSView* button = nullptr;
  const desktop::Tray* tray = nullptr;
} shown;

}  // namespace

struct NSStatusItem::Impl {
  std::shared_ptr<NSButton> button = NSButton::buttonWithImage(std::nullopt, {}, {});
  std::shared_ptr<NSMenu> menu;
  std::optional<ToolkitMenu> toolkitMenu;
  std::optional<desktop::Tray> tray;
  QObject whileThere;

  Impl() {
    QAbstractButton& widget = buttonWidget();
    widget.setEnabled(true);
    QObject::connect(&widget, &QAbstractButton::clicked, &whileThere, [this] { openMenuAtButton(); });
  }
  Impl(const Impl&) = delete;
  Impl& operator=(const Impl&) = delete;
  ~Impl() {
    shown = {};
    if (NoteFrame* const frame = NoteFrame::first()) frame->setItemButton(nullptr);
  }

  QAbstractButton& buttonWidget() const { return static_cast<QAbstractButton&>(*button->native().widget); }

  void openMenuAtButton() {
    if (!toolkitMenu) return;
    QMenu& opened = toolkitMenu->menu();
    const QRect place = buttonWidget().rect();
    const QPoint corner =
        opened.isRightToLeft() ? place.bottomRight() - QPoint(opened.sizeHint().width() - 1, 0) : place.bottomLeft();
    opened.popup(buttonWidget().mapToGlobal(corner));
  }

  void setMenu(const std::shared_ptr<NSMenu>& opened) {
    menu = opened;
    toolkitMenu.emplace(menu, [](const std::function<void()>& command) { desktop::requests().add(command); });
    // Whoever came to the button by its key goes on typing.
    QObject::connect(&toolkitMenu->menu(), &QMenu::aboutToHide, &buttonWidget(),
                     [this] { buttonWidget().window()->setFocus(); });
    desktop::offerToOtherPrograms(menu);
    // Nobody needs the tray to see the note, and to find one takes the bus.
    desktop::afterFirstFrame(whileThere, [this] {
      const auto performFirstItem = [this] {
        desktop::requests().add([first = menu->items().front()] { first->performAction(); });
      };
      tray.emplace(button->image(), toolkitMenu->menu(), performFirstItem,
                   [this](bool inTray) { placeButton(inTray); });
      shown = {button.get(), &*tray};
    });
  }

  /// Without a tray the item is in the title bar.
  void placeButton(bool inTray) {
    if (NoteFrame* const frame = NoteFrame::first()) frame->setItemButton(inTray ? nullptr : &buttonWidget());
  }
};

NSStatusItem::NSStatusItem() : impl_(std::make_unique<Impl>()) {}
NSStatusItem::~NSStatusItem() = default;

std::optional<desktop::Anchor> desktop::placeInTray(const NSView& button) {
  return &button == shown.button ? shown.tray->place() : std::nullopt;
}

NSStatusBar& NSStatusBar::systemStatusBar() {
  static NSStatusBar bar;
  return bar;
}

std::shared_ptr<NSStatusItem> NSStatusBar::statusItemWithLength(double /*length*/) {
  return std::shared_ptr<NSStatusItem>(new NSStatusItem);
}

void NSStatusItem::setAutosaveName(std::string_view /*name*/) {}
const std::shared_ptr<NSButton>& NSStatusItem::button() const { return impl_->button; }
void NSStatusItem::setMenu(const std::shared_ptr<NSMenu>& menu) { impl_->setMenu(menu); }

}  // namespace platform
