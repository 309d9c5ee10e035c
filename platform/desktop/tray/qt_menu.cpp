// SPDX-License-Identifier: MIT
#include "platform/desktop/tray/qt_menu.h"

#include <QKeySequence>
#include <utility>

#include "platform/desktop/base/strings.h"
#include "platform/desktop/language/key_names.h"

namespace platform::desktop {
namespace {

QKeySequence shortcutOf(const NSMenuItem& item) {
  if (item.keyEquivalent().empty()) return {};
  const unsigned mask = item.keyEquivalentModifierMask();
  Qt::KeyboardModifiers modifiers;
  modifiers.setFlag(Qt::ShiftModifier, (mask & NSEventModifierFlagShift) != 0);
  modifiers.setFlag(Qt::ControlModifier, (mask & NSEventModifierFlagCommand) != 0);
  modifiers.setFlag(Qt::AltModifier, (mask & NSEventModifierFlagOption) != 0);
  const char16_t letter = toQString(item.keyEquivalent()).at(0).toUpper().unicode();
  return QKeyCombination(modifiers, static_cast<Qt::Key>(letter));
}

/// With ampersands doubled: a single one would mark a mnemonic for Qt.
QString withoutMnemonics(const std::string& title) { return toQString(title).replace(u'&', QStringLiteral("&&")); }

}  // namespace

QtMenu::QtMenu(std::shared_ptr<NSMenu> menu, Run run)
    : source_(std::move(menu)), run_(std::move(run)), menu_(withoutMnemonics(source_->title())) {
  for (const auto& item : source_->items()) addItem(item);
}

QtMenu::~QtMenu() {
  for (const auto& item : source_->items()) item->onStateChange = nullptr;
}

void QtMenu::addItem(const std::shared_ptr<NSMenuItem>& item) {
  if (item->submenu()) {
    submenus_.push_back(std::make_unique<QtMenu>(item->submenu(), run_));
    menu_.addMenu(&submenus_.back()->menu());
    return;
  }
  actions_.push_back(std::make_unique<QAction>(withoutMnemonics(item->title())));
  QAction* const action = actions_.back().get();
  action->setSeparator(item->isSeparatorItem());
  // The user may have chosen other keys at the desktop, or may do so later.
  const auto showKeys = [action, keys = shortcutOf(*item)] { action->setShortcut(KeyNames::instance().keysFor(keys)); };
  showKeys();
  QObject::connect(&KeyNames::instance(), &KeyNames::renamed, action, showKeys);
  // The item's state decides the check mark, not the toggle that Qt makes of a choice.
  item->onStateChange = [action, shown = item.get()] {
    action->setCheckable(shown->isCheckable());
    action->setChecked(shown->state() == NSControlStateValueOn);
  };
  item->onStateChange();
  QObject::connect(action, &QAction::triggered, [run = run_, item] {
    run([item] {
      item->performAction();
      if (item->onStateChange) item->onStateChange();
    });
  });
  menu_.addAction(action);
}

QList<QAction*> QtMenu::commands() const {
  QList<QAction*> all;
  for (const auto& action : actions_) {
    if (!action->isSeparator()) all.append(action.get());
  }
  for (const auto& submenu : submenus_) all.append(submenu->commands());
  return all;
}

}  // namespace platform::desktop
