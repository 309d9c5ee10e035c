// SPDX-License-Identifier: MIT
#include "platform/desktop/windows/program_windows.h"

#include <QApplication>
#include <QTimer>
#include <QWindow>
#include <algorithm>
#include <utility>

#include "platform/desktop/windows/main_window.h"

namespace platform::desktop {
namespace {

/// The program's visible windows, without the icon in an X11 tray, which Qt counts as one.
QWidgetList visibleWindows() {
  QWidgetList windows = QApplication::topLevelWidgets();
  windows.removeIf([](const QWidget* window) {
    return !window->isVisible() || (window->windowFlags() & Qt::BypassWindowManagerHint) != 0;
  });
  return windows;
}

}  // namespace

std::shared_ptr<NSWindow> ProgramWindows::keyWindow() const {
  const auto found = std::find_if(mainWindows_.begin(), mainWindows_.end(), [this](const auto* window) {
    return window->isVisible() && system_.isActive(*window);
  });
  return found == mainWindows_.end() ? nullptr
                                     : std::static_pointer_cast<NSWindow>((*found)->owner().shared_from_this());
}

WindowState ProgramWindows::stateOf(const MainWindow& window) const {
  return {window.state.aboveOthers && !keepAboveSuspended_, window.state.onEveryWorkspace};
}

void ProgramWindows::applyState(MainWindow& window) {
  if (window.isVisible()) system_.applyState(window, stateOf(window));
}

void ProgramWindows::show(MainWindow& window) {
  if (!window.isVisible()) {
    system_.prepareToShow(window, stateOf(window));
    window.addActions(commands_);
    window.show();
  }
  // To the current workspace: not every window manager switches to the one of an activated window.
  applyState(window);
  system_.activate(window);
}

void ProgramWindows::showCompanion(QWidget& window) {
  std::erase(hidden_, &window);
  const MainWindow* const owner = mainWindow();
  const WindowState state = owner != nullptr ? stateOf(*owner) : WindowState{};
  system_.prepareToShow(window, state);
  window.winId();  // creates the native window
  window.windowHandle()->setTransientParent(owner != nullptr && owner->isVisible() ? owner->windowHandle() : nullptr);
  window.show();
  system_.applyState(window, state);
}

void ProgramWindows::activateCompanion(QWidget& window) {
  system_.activate(window);
  // mutter moves an activated transient window to this workspace, together with its parent.
  MainWindow* const owner = mainWindow();
  if (owner == nullptr || !owner->isVisible() || !owner->state.onEveryWorkspace) return;
  applyState(*owner);
  system_.applyState(window, stateOf(*owner));
}

bool ProgramWindows::activateAnyCompanion() {
  const QWidgetList windows = visibleWindows();
  const auto found = std::find_if(windows.begin(), windows.end(),
                                  [](const QWidget* window) { return window->windowType() == Qt::Dialog; });
  if (found == windows.end()) return false;
  activateCompanion(**found);
  return true;
}

void ProgramWindows::hideCompanion(QWidget& window) {
  // The keyboard first: xfwm4 would pass that of a window that it unmanages on to another program, at any moment.
  if (system_.isActive(window)) activateMainWindow();
  whenSettled(window, [this, &window] {
    system_.prepareToHide(window, NextActive::DesktopsChoice);
    std::erase(hidden_, &window);
    window.hide();
  });
}

void ProgramWindows::activateMainWindow() {
  if (mainWindow() != nullptr && mainWindow()->isVisible()) system_.activate(*mainWindow());
}

void ProgramWindows::activate() {
  const auto companions = std::exchange(hidden_, {});
  for (const auto& window : companions) {
    if (!window.isNull()) showCompanion(*window);
  }
  for (MainWindow* const window : mainWindows_) {
    if (window->isVisible() && !system_.isActive(*window)) system_.activate(*window);
  }
  // Again, through the queue: i3 and xfwm4 give the keyboard to companions when they map them.
  if (!companions.empty()) requests_.add([this] { activateMainWindow(); });
}

void ProgramWindows::hide() {
  system_.setActivationToken({});
  for (QWidget* const window : visibleWindows()) {
    if (window->windowType() == Qt::Dialog) {
      hidden_.emplace_back(window);
      system_.prepareToHide(*window, NextActive::Previous);
    }
    window->hide();
  }
}

void ProgramWindows::whenSettled(QWidget& window, std::function<void()> step) {
  requests_.add([window = QPointer(&window), step = std::move(step)] {
    if (!window.isNull()) step();
  });
}

bool ProgramWindows::areShown() const { return !visibleWindows().isEmpty(); }

void ProgramWindows::suspendKeepAbove(bool suspended) {
  if (std::exchange(keepAboveSuspended_, suspended) == suspended) return;
  for (MainWindow* const window : mainWindows_) applyState(*window);
}

void ProgramWindows::setCommands(const QList<QAction*>& all, const QList<QAction*>& ofApplication) {
  commands_ = all;
  companionCommands_ = ofApplication;
}

void ProgramWindows::release(const NSObject& object) {
  const auto kept = std::find_if(shown_.begin(), shown_.end(), [&](const auto& each) { return each.get() == &object; });
  if (kept == shown_.end()) return;
  released_.push_back(std::move(*kept));
  shown_.erase(kept);
  QTimer::singleShot(0, qApp, [this] { requests_.add([this] { released_.clear(); }); });
}

}  // namespace platform::desktop
