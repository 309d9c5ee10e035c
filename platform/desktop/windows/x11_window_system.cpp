// SPDX-License-Identifier: MIT
#include "platform/desktop/windows/x11_window_system.h"

#include <xcb/xcb_icccm.h>

#include <QApplication>
#include <QWindow>
#include <algorithm>
#include <array>
#include <chrono>
#include <string>
#include <utility>
#include <vector>

#include "platform/desktop/x11/x11.h"

namespace platform::desktop {
namespace {

constexpr auto focusingNewWindowsOnly = "wlroots wm";
constexpr std::chrono::seconds longestActivation{1};  // after that the window manager is taken to have refused
constexpr unsigned syntheticEvent = 0x80;  // the bit of an event's type that SendEvent sets, as window managers do

// In _MOTIF_WM_HINTS: which of its fields count, and the functions of the second one.
enum MotifFlags : std::uint32_t { hasFunctions = 1, hasDecorations = 2 };
enum MotifFunctions : std::uint32_t { resize = 2, move = 4, maximize = 16, close = 32 };

xcb_window_t idOf(const QWidget& window) { return static_cast<xcb_window_t>(window.winId()); }

bool isOurs(xcb_window_t id) {
  const auto windows = QGuiApplication::topLevelWindows();
  return std::any_of(windows.begin(), windows.end(),
                     [id](const QWindow* window) { return window->handle() != nullptr && window->winId() == id; });
}

void repaintAll() {
  for (QWidget* const window : QApplication::topLevelWidgets()) window->update();
}

}  // namespace

X11WindowSystem::X11WindowSystem(xcb_connection_t* connection, bool isXWayland)
    : connection_(connection),
      ewmh_(connection),
      compositor_(connection, "_NET_WM_CM_S" + std::to_string(x11::screenNumber()), repaintAll),
      escapeKey_(connection),
      managementAtom_(x11::atom(connection, "WM_STATE")),
      motifHintsAtom_(x11::atom(connection, "_MOTIF_WM_HINTS")),
      root_(x11::rootWindow(connection)),
      isXWayland_(isXWayland) {
  deadline_.setSingleShot(true);
  deadline_.setInterval(longestActivation);
  QObject::connect(&deadline_, &QTimer::timeout, [this] { settle(); });
  updateWindowManager();
  updateActiveWindow();
}

void X11WindowSystem::prepareToShow(QWidget& window, WindowState state) {
  const xcb_window_t id = idOf(window);
  // In some window managers a hidden window stays the active one.
  if (active_ == id) active_ = XCB_NONE;
  if (managed_) requestedPositions_[id] = window.pos();
  ewmh_.setType(id, ewmh_->_NET_WM_WINDOW_TYPE_UTILITY);
  leaveWindowGroup(id);
  if (window.windowFlags().testFlag(Qt::FramelessWindowHint)) forbidMinimizing(id);
  // A window manager wipes these when a window is withdrawn.
  std::vector<xcb_atom_t> states{ewmh_->_NET_WM_STATE_SKIP_TASKBAR, ewmh_->_NET_WM_STATE_SKIP_PAGER};
  if (state.aboveOthers) states.push_back(ewmh_->_NET_WM_STATE_ABOVE);
  if (state.onEveryWorkspace) states.push_back(ewmh_->_NET_WM_STATE_STICKY);
  ewmh_.setStates(id, states);
  ewmh_.setOnEveryWorkspace(id, state.onEveryWorkspace);
}

void X11WindowSystem::applyState(QWidget& window, WindowState state) {
  const xcb_window_t id = idOf(window);
  ewmh_.requestState(id, state.aboveOthers, ewmh_->_NET_WM_STATE_ABOVE);
  ewmh_.requestState(id, state.onEveryWorkspace, ewmh_->_NET_WM_STATE_STICKY);
  ewmh_.requestWorkspace(id, state.onEveryWorkspace ? x11::everyWorkspace : ewmh_.currentWorkspace());
  xcb_flush(connection_);
}

void X11WindowSystem::activate(QWidget& window) {
  const xcb_window_t id = idOf(window);
  window.raise();
  if (!managed_) window.activateWindow();
  if (focusesNewWindowsOnly_ && active_ != id && ewmh_.isManaged(id)) remap(id);
  ewmh_.requestActive(id, XCB_NONE);
  xcb_flush(connection_);
  if (active_ != id) expect({id, true});
}

void X11WindowSystem::prepareToHide(QWidget& window, NextActive next) {
  const xcb_window_t id = idOf(window);
  requestedPositions_.erase(id);
  if (!isActive(window)) return;
  expect({id, false});
  if (next == NextActive::DesktopsChoice || previous_ == XCB_NONE || !canBeSeen(previous_)) return;
  // Unmapped here, since the request has to follow at once: a user who went to another program in between would be sent
  // back. Qt's own unmapping changes nothing then, and flushes both.
  xcb_unmap_window(connection_, id);
  ewmh_.requestActive(previous_, active_);
}

bool X11WindowSystem::isActive(const QWidget& window) {
  const xcb_window_t id = idOf(window);
  if (expectation_ && expectation_->window == id) return expectation_->active;
  if (!managed_) return window.isActiveWindow();
  // In some window managers a window on another workspace stays the active one.
  return active_ == id && ewmh_.isOnCurrentWorkspace(id);
}

bool X11WindowSystem::take(xcb_generic_event_t& event) {
  if (event.response_type == (XCB_CONFIGURE_NOTIFY | syntheticEvent))
    moveToRequestedPosition(x11::as<xcb_configure_notify_event_t>(event).window);
  if (x11::typeOf(event) != XCB_PROPERTY_NOTIFY) return false;
  const auto& change = x11::as<xcb_property_notify_event_t>(event);
  if (change.window == root_ && change.atom == ewmh_->_NET_ACTIVE_WINDOW) updateActiveWindow();
  if (change.window == root_ && change.atom == ewmh_->_NET_SUPPORTING_WM_CHECK) updateWindowManager();
  // A window manager removes WM_STATE of a hidden window, or sets it to Withdrawn, when it no longer manages it.
  const bool awaited = expectation_ && !expectation_->active && change.window == expectation_->window;
  if (awaited && change.atom == managementAtom_ && !ewmh_.isManaged(change.window)) settle();
  return false;
}

void X11WindowSystem::updateWindowManager() {
  managed_ = ewmh_.hasWindowManager();
  focusesNewWindowsOnly_ = managed_ && ewmh_.windowManagerName() == focusingNewWindowsOnly;
}

void X11WindowSystem::updateActiveWindow() {
  const xcb_window_t active = ewmh_.activeWindow();
  // A panel that was clicked may take the keyboard, but nobody works in it.
  if (active != XCB_NONE && ewmh_.isPanel(active)) return;
  active_ = active;
  if (active == XCB_NONE && !isXWayland_) return;
  const xcb_window_t before = std::exchange(lastActive_, active);
  if (!isOurs(active)) previous_ = active;
  if (expectation_ && expectation_->active && expectation_->window == active) {
    if (!ewmh_.isAbove(active, before)) raise(active);
    settle();
  }
}

void X11WindowSystem::expect(Expectation expectation) {
  if (!managed_) return;
  expectation_ = expectation;
  deadline_.start();
}

void X11WindowSystem::settle() {
  if (expectation_->active) requestedPositions_.clear();  // from now on the user moves windows
  expectation_.reset();
  deadline_.stop();
  if (onSettled) onSettled();
}

/// Window managers hide an inactive program's utility windows once its group has another member.
void X11WindowSystem::leaveWindowGroup(xcb_window_t window) {
  xcb_icccm_wm_hints_t hints{};
  xcb_icccm_get_wm_hints_reply(connection_, xcb_icccm_get_wm_hints(connection_, window), &hints, nullptr);
  xcb_icccm_wm_hints_set_window_group(&hints, window);
  xcb_icccm_set_wm_hints(connection_, window, &hints);
}

/// A window that is in no taskbar could not be restored. Qt sets no such hints for frameless windows.
void X11WindowSystem::forbidMinimizing(xcb_window_t window) {
  constexpr std::array<std::uint32_t, 5> hints{hasFunctions | hasDecorations, resize | move | maximize | close};
  xcb_change_property(connection_, XCB_PROP_MODE_REPLACE, window, motifHintsAtom_, motifHintsAtom_, 32, hints.size(),
                      hints.data());
}

/// Makes the window a new one for the window manager. Qt does not hear of it.
void X11WindowSystem::remap(xcb_window_t window) {
  xcb_unmap_window(connection_, window);
  xcb_map_window(connection_, window);
}

/// Only for a window that lies below the one before it: this may come when the user has already gone to another window,
/// and cover that. mutter puts a new window just below the active one, and leaves it there when it gives it the
/// keyboard.
void X11WindowSystem::raise(xcb_window_t window) {
  constexpr std::uint32_t above = XCB_STACK_MODE_ABOVE;
  xcb_configure_window(connection_, window, XCB_CONFIG_WINDOW_STACK_MODE, &above);
  xcb_flush(connection_);
}

/// At each show i3 moves a window by the size of a decoration that it then does not draw.
void X11WindowSystem::moveToRequestedPosition(xcb_window_t id) {
  const auto requested = requestedPositions_.find(id);
  QWidget* const window = requested == requestedPositions_.end() ? nullptr : QWidget::find(id);
  if (window == nullptr) return;
  // Later: Qt handles this event after us.
  const auto move = [window, position = requested->second] { window->move(position); };
  QMetaObject::invokeMethod(window, move, Qt::QueuedConnection);
}

/// Not every mapped window: mutter leaves minimised ones mapped, KWin on Wayland those of other workspaces.
bool X11WindowSystem::canBeSeen(xcb_window_t window) {
  const x11::Reply<xcb_get_window_attributes_reply_t> attributes(
      xcb_get_window_attributes_reply(connection_, xcb_get_window_attributes(connection_, window), nullptr));
  return attributes && attributes->map_state == XCB_MAP_STATE_VIEWABLE &&
         ewmh_.managementState(window) == XCB_ICCCM_WM_STATE_NORMAL && ewmh_.isOnCurrentWorkspace(window);
}

}  // namespace platform::desktop
