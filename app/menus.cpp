// SPDX-License-Identifier: MIT
#include "app/app_delegate.h"
#include "platform/localized_string.h"
#include "platform/user_defaults.h"

namespace quillberry {

using namespace platform;

namespace {

constexpr unsigned commandShift = NSEventModifierFlagCommand | NSEventModifierFlagShift;
constexpr unsigned commandOption = NSEventModifierFlagCommand | NSEventModifierFlagOption;
constexpr auto statusItemName = "Quillberry";
constexpr double preferredPosition = 30;  // of a user who has not moved the item

/// Adds a command; the modifiers of its key are Command alone unless said otherwise.
std::shared_ptr<NSMenuItem> add(NSMenu& menu, std::string title, Selector action, std::string keyEquivalent,
                                unsigned modifiers = NSEventModifierFlagCommand) {
  auto item = std::make_shared<NSMenuItem>(std::move(title), action, std::move(keyEquivalent));
  item->setKeyEquivalentModifierMask(modifiers);
  menu.addItem(item);
  return item;
}

/// Adds an entry whose only purpose is its submenu.
void addSubmenu(NSMenu& menu, std::shared_ptr<NSMenu> submenu) {
  auto item = std::make_shared<NSMenuItem>();
  item->setSubmenu(std::move(submenu));
  menu.addItem(std::move(item));
}

void addQuit(NSMenu& menu) { add(menu, NSLocalizedString("Quit Quillberry"), {"terminate"}, "q"); }

}  // namespace

void AppDelegate::buildMainMenu() {
  auto application = std::make_shared<NSMenu>();
  addQuit(*application);

  auto edit = std::make_shared<NSMenu>(NSLocalizedString("Edit"));
  add(*edit, NSLocalizedString("Undo"), {"undo"}, "z");
  add(*edit, NSLocalizedString("Redo"), {"redo"}, "z", commandShift);
  edit->addItem(NSMenuItem::separatorItem());
  add(*edit, NSLocalizedString("Cut"), {"cut"}, "x");
  add(*edit, NSLocalizedString("Copy"), {"copy"}, "c");
  add(*edit, NSLocalizedString("Paste"), {"paste"}, "v");
  add(*edit, NSLocalizedString("Select All"), {"selectAll"}, "a");

  const auto menu = std::make_shared<NSMenu>();
  addSubmenu(*menu, std::move(application));
  addSubmenu(*menu, std::move(edit));
  NSApplication::sharedApplication()->setMainMenu(menu);
}

void AppDelegate::buildStatusItem() {
  // The item takes its position when it gets its name: the default has to be there by then.
  NSUserDefaults::standardUserDefaults().registerDefaults(
      {{std::string("NSStatusItem Preferred Position ") + statusItemName, preferredPosition}});
  statusItem = NSStatusBar::systemStatusBar().statusItemWithLength(NSSquareStatusItemLength);
  statusItem->setAutosaveName(statusItemName);
  auto image = NSImage::imageWithSystemSymbolName("note.text", "Quillberry");
  if (image) image->setTemplate(true);
  if (const auto& button = statusItem->button()) button->setImage(image);

  const auto menu = std::make_shared<NSMenu>();
  const auto controller = self();
  add(*menu, NSLocalizedString("Show / Hide Note"), {"toggleWindow"}, "n", commandOption)->setTarget(controller);
  pinMenuItem = add(*menu, NSLocalizedString("Keep on Top"), {"togglePin"}, "p", commandOption);
  pinMenuItem->setTarget(controller);
  wakeMenuItem = add(*menu, NSLocalizedString("Show on Screen Wake"), {"toggleShowOnWake"}, "");
  wakeMenuItem->setTarget(controller);
  wakeMenuItem->setState(showOnWake ? NSControlStateValueOn : NSControlStateValueOff);
  if (loginItemsExist()) {
    loginMenuItem = add(*menu, NSLocalizedString("Start at Login"), {"toggleLaunchAtLogin"}, "");
    loginMenuItem->setTarget(controller);
    showLoginItemStatus();
  }
  menu->addItem(NSMenuItem::separatorItem());
  add(*menu, NSLocalizedString("Check for Updates…"), {"checkForUpdates"}, "")->setTarget(updaterController);
  menu->addItem(NSMenuItem::separatorItem());
  addQuit(*menu);
  statusItem->setMenu(menu);
}

}  // namespace quillberry
