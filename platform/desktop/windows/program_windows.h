// SPDX-License-Identifier: MIT
#pragma once

#include <QAction>
#include <QList>
#include <QPointer>
#include <QWidget>
#include <memory>
#include <vector>

#include "platform/desktop/one_in_process.h"
#include "platform/desktop/windows/request_queue.h"
#include "platform/desktop/windows/window_system.h"
#include "platform/window.h"

namespace platform::desktop {

class NoteWindow;

/// The program's windows: the note's, and those that are shown beside it (popovers, the update window). How they come
/// and go together, get the keyboard, and give it back to the program that had it before.
class ProgramWindows : public OneInProcess<ProgramWindows> {
 public:
  /// Both outlive this.
  ProgramWindows(WindowSystem& system, RequestQueue& requests) : system_(system), requests_(requests) {}

  WindowSystem& system() const { return system_; }

  /// A note's window tells of itself for as long as it lives.
  void add(NoteWindow& window) { notes_.push_back(&window); }
  void remove(NoteWindow& window) { std::erase(notes_, &window); }
  /// The note's window that was made first; null if there is none.
  NoteWindow* note() const { return notes_.empty() ? nullptr : notes_.front(); }
  /// The one that has the keyboard, if there is one.
  std::shared_ptr<NSWindow> keyWindow() const;

  /// Shows a note's window, which need not be hidden, where it belongs, and gives it the keyboard.
  void show(NoteWindow& window);
  /// Shows another window of the program, which belongs to the note's while that is shown: window managers keep it
  /// above.
  void showBeside(QWidget& window);
  /// Shows such a window when the program, hidden now, comes back; unless it is shown or hidden before.
  void showBesideLater(QWidget& window) { hidden_.emplace_back(&window); }
  /// Gives such a window, which is shown, the keyboard; without one to name, the first there is. False if there is
  /// none.
  void activateBeside(QWidget& window);
  bool activateBeside();
  /// Hides such a window. If it had the keyboard, the note's gets it, should that be shown.
  void hideBeside(QWidget& window);
  /// Gives the note's window the keyboard, should it be shown.
  void activateNote();

  /// Brings all windows back that were hidden with the program, and gives the note's the keyboard.
  void activate();
  /// Hides all windows, and gives the keyboard back to the program that had it before.
  void hide();
  bool areShown() const;
  /// Before a window is taken off the screen, by whomever.
  void prepareToHide(QWidget& window);

  /// Whether the note's window stays above all others no longer, while something that the desktop asks would lie below.
  void giveWay(bool givesWay);
  /// Places a note's window that is shown where it belongs now.
  void place(NoteWindow& window);

  /// The commands of the main menu, whose shortcuts the note's window has. The windows beside it have those of the
  /// application menu alone: what edits there are Qt's own shortcuts.
  void setCommands(const QList<QAction*>& all, const QList<QAction*>& ofApplication);
  const QList<QAction*>& commandsBeside() const { return commandsBeside_; }

  /// Keeps what is shown until it is released, on a later turn of the loop: its own code may be running now. What is
  /// kept at the end is gone before Qt is.
  void keepWhileShown(std::shared_ptr<NSObject> object) { shown_.push_back(std::move(object)); }
  void release(const NSObject& object);

 private:
  Placement placementOf(const NoteWindow& window) const;

  WindowSystem& system_;
  RequestQueue& requests_;
  std::vector<NoteWindow*> notes_;
  std::vector<QPointer<QWidget>> hidden_;  ///< with the program, with which they come back
  bool givesWay_ = false;
  bool owesFocus_ = false;  ///< a window with the keyboard has been hidden, and the program before it is due
  QList<QAction*> commands_;
  QList<QAction*> commandsBeside_;
  std::vector<std::shared_ptr<NSObject>> shown_;
  std::vector<std::shared_ptr<NSObject>> released_;  ///< and still there until the next turn
};

}  // namespace platform::desktop
