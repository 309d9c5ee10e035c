// SPDX-License-Identifier: MIT
#include "platform/status_bar.h"

#include <QCoreApplication>
#include <QMoveEvent>
#include <optional>

#include "platform/desktop/session/exported_actions.h"
#include "platform/desktop/tray/qt_menu.h"
#include "platform/desktop/tray/status_bar.h"
#include "platform/desktop/tray/tray.h"
#include "platform/desktop/views/native_view.h"
#include "platform/desktop/views/symbol_button.h"
#include "platform/desktop/windows/first_frame.h"
#include "platform/desktop/windows/main_window.h"
#include "platform/desktop/windows/program_windows.h"

namespace platform {

using desktop::MainWindow;
using desktop::QtMenu;
using desktop::StatusBar;
using desktop::Tray;

struct NSStatusItem::Impl {
  StatusBar& bar = StatusBar::instance();
  std::shared_ptr<NSButton> button = NSButton::buttonWithImage(std::nullopt, {}, {});
  std::shared_ptr<NSMenu> menu;
  std::optional<QtMenu> qtMenu;
  std::optional<Tray> tray;
  QObject whileThere;

  Impl() {
    QAbstractButton& widget = buttonWidget();
    widget.setEnabled(true);
    QObject::connect(&widget, &QAbstractButton::clicked, &whileThere, [this] { openMenuAtButton(); });
    button->native().trayAnchor = [this] { return tray ? tray->anchor() : std::nullopt; };
  }
  Impl(const Impl&) = delete;
  Impl& operator=(const Impl&) = delete;
  ~Impl() {
    button->native().trayAnchor = [] { return std::nullopt; };
    putIntoTitleBar(nullptr);
  }

  QAbstractButton& buttonWidget() const { return static_cast<QAbstractButton&>(*button->native().widget); }

  void openMenuAtButton() {
    if (!qtMenu) return;
    QMenu& opened = qtMenu->menu();
    const QRect place = buttonWidget().rect();
    const QPoint corner =
        opened.isRightToLeft() ? place.bottomRight() - QPoint(opened.sizeHint().width() - 1, 0) : place.bottomLeft();
    opened.popup(buttonWidget().mapToGlobal(corner));
  }

  void setMenu(const std::shared_ptr<NSMenu>& opened) {
    menu = opened;
    qtMenu.emplace(menu, [this](const std::function<void()>& command) { bar.requests.add(command); });
    // A user who came to the button by the keyboard goes on typing in the text.
    QObject::connect(&qtMenu->menu(), &QMenu::aboutToHide, &buttonWidget(),
                     [this] { buttonWidget().window()->setFocus(); });
    bar.exportedActions.setMenu(menu);
    bar.firstFrame.then(whileThere, [this] { lookForTrays(); });
  }

  void lookForTrays() {
    const auto performFirstItem = [this] {
      bar.requests.add([first = menu->items().front()] { first->performAction(); });
    };
    // Without a tray the item is in the title bar.
    tray.emplace(bar.sessionBus, button->image(), qtMenu->menu(), performFirstItem, [this](bool inTray) {
      putIntoTitleBar(inTray ? nullptr : &buttonWidget());
      // Lets followers of the button look again: the widget itself does not change when it comes into the tray and was
      // nowhere before.
      QMoveEvent moved(buttonWidget().pos(), buttonWidget().pos());
      QCoreApplication::sendEvent(&buttonWidget(), &moved);
    });
  }

  void putIntoTitleBar(QWidget* shown) {
    if (MainWindow* const window = bar.windows.mainWindow()) window->titleBar().setItemButton(shown);
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
