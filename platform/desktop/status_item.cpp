#include "platform/status_bar.h"

#include <optional>

#include "platform/desktop/application_service.h"
#include "platform/desktop/decoration.h"
#include "platform/desktop/desktop.h"
#include "platform/desktop/native_view.h"
#include "platform/desktop/symbol_button.h"
#include "platform/desktop/toolkit_menu.h"
#include "platform/desktop/tray.h"

namespace platform {

using desktop::NoteFrame;
using desktop::ToolkitMenu;

struct NSStatusItem::Impl {
  std::shared_ptr<NSButton> button = NSButton::buttonWithImage(std::nullopt, {}, {});
  std::shared_ptr<NSMenu> menu;
  std::optional<ToolkitMenu> toolkitMenu;
  std::optional<desktop::Tray> tray;
  QObject whileThere;

  Impl() {
    QAbstractButton& widget = buttonWidget();
    widget.setEnabled(true);
    QObject::connect(&widget, &QAbstractButton::clicked, [this] { openMenuAtButton(); });
  }
  Impl(const Impl&) = delete;
  Impl& operator=(const Impl&) = delete;
  ~Impl() {
    if (NoteFrame* const frame = NoteFrame::first()) frame->setItemButton(nullptr);
  }

  QAbstractButton& buttonWidget() const { return static_cast<QAbstractButton&>(*button->native().widget); }

  void openMenuAtButton() {
    if (toolkitMenu) toolkitMenu->menu().popup(buttonWidget().mapToGlobal(buttonWidget().rect().bottomLeft()));
  }

  void setMenu(const std::shared_ptr<NSMenu>& shown) {
    menu = shown;
    toolkitMenu.emplace(menu);
    desktop::offerToOtherPrograms(menu);
    // Nobody needs the tray to see the note, and to find one takes the bus.
    desktop::afterFirstFrame(whileThere, [this] {
      const auto performFirstItem = [this] {
        desktop::requests().add([first = menu->items().front()] { first->performAction(); });
      };
      tray.emplace(button->image(), toolkitMenu->menu(), performFirstItem,
                   [this](bool inTray) { placeButton(inTray); });
    });
  }

  /// Without a tray the item is in the title bar.
  void placeButton(bool inTray) {
    if (NoteFrame* const frame = NoteFrame::first()) frame->setItemButton(inTray ? nullptr : &buttonWidget());
  }
};

NSStatusItem::NSStatusItem() : impl_(std::make_unique<Impl>()) {}
NSStatusItem::~NSStatusItem() = default;

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
