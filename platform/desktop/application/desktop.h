// SPDX-License-Identifier: MIT
#pragma once

#include <QAction>
#include <QList>
#include <functional>
#include <memory>
#include <optional>
#include <vector>

#include "platform/desktop/application/request_queue.h"
#include "platform/desktop/shortcuts/global_keys.h"
#include "platform/desktop/windows/window_system.h"
#include "platform/frame_autosave.h"
#include "platform/window.h"

/// What the parts of the desktop platform share while the application object lives.
namespace platform::desktop {

struct Anchor;
class Bus;
class KeyNames;

WindowSystem& windowSystem();

/// In the program's coordinates: y grows upward from the lower edge of the first screen.
std::vector<Screen> screens();
NSRect fromToolkit(const QRect&);
QRect toToolkit(NSRect);

/// What the user asks for from outside the program's windows.
RequestQueue& requests();
GlobalKeys& globalKeys();
KeyNames& keyNames();

/// The buses; each is used only once it answers.
Bus& sessionBus();
Bus& systemBus();

/// Keeps what is shown until it is let go of, on a later turn of the loop: its own code may be running now. What is
/// kept at the end is gone before Qt is.
void keepWhileShown(std::shared_ptr<NSObject> object);
void letGo(const NSObject& object);

/// Shows a window beside the note when the program, hidden now, comes back; unless it is shown or closed before.
void showWithProgram(QWidget& window);
/// Takes a window out of those: it is there already, or has been closed.
void leaveHidden(const QWidget& window);

/// Where the status item whose button this is has its place; none if it is in no tray, or the view is another one.
std::optional<Anchor> placeInTray(const NSView& button);

/// Runs `work` once the first frame has been drawn, or soon if it has; not if `context` is gone by then.
void afterFirstFrame(QObject& context, std::function<void()> work);

/// The commands of the main menu, whose shortcuts the note's window has. The windows beside it have those of the
/// application menu, the first in it: what edits there are Qt's own shortcuts.
QList<QAction*> mainMenuCommands();
QList<QAction*> applicationMenuCommands();

/// The program's window that has the keyboard, if there is one.
std::shared_ptr<NSWindow> keyWindow();

/// Whether the program is about to hide while it had the keyboard, so that the program before it is due.
/// Set when a window with the keyboard is taken off the screen; read and cleared by the hiding application.
void oweFocusToPreviousProgram();

}  // namespace platform::desktop
