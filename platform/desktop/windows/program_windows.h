// SPDX-License-Identifier: MIT
#pragma once

#include <QAction>
#include <QList>
#include <QPointer>
#include <QWidget>
#include <functional>
#include <memory>
#include <vector>

#include "platform/desktop/base/singleton.h"
#include "platform/desktop/windows/request_queue.h"
#include "platform/desktop/windows/window_system.h"
#include "platform/window.h"

namespace platform::desktop {

class MainWindow;

/// Shows, hides and activates the program's windows: main windows (the program makes one, for its note) and their
/// companions (popovers, the update window), which belong to the first main window. When all are hidden, the program
/// that was active before gets the keyboard back.
class ProgramWindows : public Singleton<ProgramWindows> {
 public:
  /// Both outlive this.
  ProgramWindows(WindowSystem& system, RequestQueue& requests) : system_(system), requests_(requests) {}

  WindowSystem& system() const { return system_; }

  /// Called by each main window at its construction and destruction.
  void add(MainWindow& window) { mainWindows_.push_back(&window); }
  void remove(MainWindow& window) { std::erase(mainWindows_, &window); }
  /// The first main window; null if there is none.
  MainWindow* mainWindow() const { return mainWindows_.empty() ? nullptr : mainWindows_.front(); }
  /// The main window that has the keyboard; null if none has it.
  std::shared_ptr<NSWindow> keyWindow() const;

  /// Shows a main window, or moves it to the user's workspace if it is shown, and gives it the keyboard.
  void show(MainWindow& window);
  /// Shows a companion, as a transient of the main window if that is shown: window managers keep it above.
  void showCompanion(QWidget& window);
  /// Shows a companion at the next `activate`, unless it is shown or hidden before.
  void showCompanionLater(QWidget& window) { hidden_.emplace_back(&window); }
  /// Gives a companion that is shown the keyboard.
  void activateCompanion(QWidget& window);
  /// Gives the first companion that is shown the keyboard. False if there is none.
  bool activateAnyCompanion();
  /// Hides a companion, through the queue of requests. If it has the keyboard, the main window gets it before, if that
  /// is shown.
  void hideCompanion(QWidget& window);
  /// Gives the main window the keyboard if it is shown.
  void activateMainWindow();

  /// Shows the companions that `hide` has hidden, and activates each main window that is shown.
  void activate();
  /// Hides all windows, and gives the keyboard back to the program that had it before.
  void hide();
  bool areShown() const;
  /// Takes the step through the queue of requests, at once or later; not at all if the window is gone.
  void whenSettled(QWidget& window, std::function<void()> step);

  /// While suspended, main windows are not kept above others: a dialog of the desktop would open below them.
  void suspendKeepAbove(bool suspended);
  /// To be called after a change of `window.state`.
  void applyState(MainWindow& window);

  /// The actions whose shortcuts work in main windows (all of the main menu), and those that work in companions (the
  /// application menu; editing there is left to Qt's own shortcuts).
  void setCommands(const QList<QAction*>& all, const QList<QAction*>& ofApplication);
  const QList<QAction*>& companionCommands() const { return companionCommands_; }

  /// Holds what is shown until it is released. A released object is destroyed by the event loop, since its own code may
  /// be running now, when its window is hidden; those that are held at the end are destroyed before Qt's application.
  void keepWhileShown(std::shared_ptr<NSObject> object) { shown_.push_back(std::move(object)); }
  void release(const NSObject& object);

 private:
  WindowState stateOf(const MainWindow& window) const;

  WindowSystem& system_;
  RequestQueue& requests_;
  std::vector<MainWindow*> mainWindows_;
  std::vector<QPointer<QWidget>> hidden_;  ///< companions that the next `activate` shows
  bool keepAboveSuspended_ = false;
  QList<QAction*> commands_;
  QList<QAction*> companionCommands_;
  std::vector<std::shared_ptr<NSObject>> shown_;
  std::vector<std::shared_ptr<NSObject>> released_;  ///< to be destroyed by the event loop
};

}  // namespace platform::desktop
