// SPDX-License-Identifier: MIT
#include "platform/desktop/session/x11_screen_watch.h"

#include <xcb/screensaver.h>

#include <QApplication>
#include <QScreen>
#include <algorithm>
#include <utility>

#include "platform/desktop/x11/x11.h"

namespace platform::desktop {

using x11::Reply;

X11ScreenWatch::X11ScreenWatch(xcb_connection_t* connection)
    : connection_(connection), root_(x11::rootWindow(connection)) {
  const auto* const extension = xcb_get_extension_data(connection_, &xcb_screensaver_id);
  if (extension != nullptr && extension->present != 0) {
    saverEvent_ = extension->first_event + XCB_SCREENSAVER_NOTIFY;
    xcb_screensaver_select_input(connection_, root_, XCB_SCREENSAVER_EVENT_NOTIFY_MASK);
    const Reply<xcb_screensaver_query_info_reply_t> saver(
        xcb_screensaver_query_info_reply(connection_, xcb_screensaver_query_info(connection_, root_), nullptr));
    saverOn_ = saver && saver->state == XCB_SCREENSAVER_STATE_ON;
  }
}

void X11ScreenWatch::whenUnlocked(std::function<void()> then) {
  waiting_.push_back(std::move(then));
  runWaiting();
}

void X11ScreenWatch::runWaiting() {
  lockers_ = watchLockers();
  if (!lockers_.empty()) return;
  for (const auto& then : std::exchange(waiting_, {})) then();
}

bool X11ScreenWatch::take(xcb_generic_event_t& event) {
  const unsigned type = x11::typeOf(event);
  if (saverEvent_ && type == *saverEvent_) {
    const auto& change = x11::as<xcb_screensaver_notify_event_t>(event);
    // The server reports each reset, and media players reset the saver every few seconds.
    const bool wasOn = std::exchange(saverOn_, change.state != XCB_SCREENSAVER_STATE_OFF);
    if (wasOn && !saverOn_ && onScreenSaverEnded) onScreenSaverEnded();
  } else if (type == XCB_UNMAP_NOTIFY || type == XCB_DESTROY_NOTIFY) {
    // Both events have the window at the same offset.
    const xcb_window_t gone = x11::as<xcb_unmap_notify_event_t>(event).window;
    if (std::find(lockers_.begin(), lockers_.end(), gone) != lockers_.end()) runWaiting();
  }
  return false;
}

std::vector<xcb_window_t> X11ScreenWatch::watchLockers() {
  const Reply<xcb_query_tree_reply_t> tree(
      xcb_query_tree_reply(connection_, xcb_query_tree(connection_, root_), nullptr));
  if (!tree) return {};
  const xcb_window_t* const windows = xcb_query_tree_children(tree.get());
  std::vector<xcb_window_t> found(windows, windows + xcb_query_tree_children_length(tree.get()));
  const auto coversNothing = [this](xcb_window_t window) {
    return !isOfOtherProgram(window) || !coversAScreen(window);
  };
  std::erase_if(found, coversNothing);
  if (found.empty() || !keyboardIsTaken()) return {};
  // Select the events first, then check again: so nothing is missed in between.
  for (const xcb_window_t window : found) {
    const std::uint32_t events = XCB_EVENT_MASK_STRUCTURE_NOTIFY;
    const auto wish = xcb_change_window_attributes_checked(connection_, window, XCB_CW_EVENT_MASK, &events);
    const Reply<xcb_generic_error_t> gone(xcb_request_check(connection_, wish));
  }
  std::erase_if(found, coversNothing);
  return found;
}

/// The only way to find out is to try a grab. Not while a menu of ours is open: it would lose the keyboard by that.
bool X11ScreenWatch::keyboardIsTaken() {
  if (QApplication::activePopupWidget() != nullptr) return false;
  const auto request =
      xcb_grab_keyboard(connection_, 0, root_, XCB_CURRENT_TIME, XCB_GRAB_MODE_ASYNC, XCB_GRAB_MODE_ASYNC);
  const Reply<xcb_grab_keyboard_reply_t> reply(xcb_grab_keyboard_reply(connection_, request, nullptr));
  if (reply && reply->status == XCB_GRAB_STATUS_SUCCESS) xcb_ungrab_keyboard(connection_, XCB_CURRENT_TIME);
  return reply && reply->status == XCB_GRAB_STATUS_ALREADY_GRABBED;
}

/// Neither ours nor the X server's own, such as the overlay window of a compositor.
bool X11ScreenWatch::isOfOtherProgram(xcb_window_t window) {
  constexpr std::uint32_t idBits = 0x1FFFFFFF;
  const xcb_setup_t& setup = *xcb_get_setup(connection_);
  const std::uint32_t owner = window & idBits & ~setup.resource_id_mask;
  return owner != 0 && owner != setup.resource_id_base;
}

/// Whether it is visible over a whole screen, and not managed by the window manager.
bool X11ScreenWatch::coversAScreen(xcb_window_t window) {
  const auto askAttributes = xcb_get_window_attributes(connection_, window);
  const auto askGeometry = xcb_get_geometry(connection_, window);
  const Reply<xcb_get_window_attributes_reply_t> attributes(
      xcb_get_window_attributes_reply(connection_, askAttributes, nullptr));
  const Reply<xcb_get_geometry_reply_t> geometry(xcb_get_geometry_reply(connection_, askGeometry, nullptr));
  if (!attributes || !geometry) return false;
  if (attributes->override_redirect == 0 || attributes->map_state != XCB_MAP_STATE_VIEWABLE ||
      attributes->_class != XCB_WINDOW_CLASS_INPUT_OUTPUT)
    return false;
  const auto screens = QGuiApplication::screens();
  return std::any_of(screens.begin(), screens.end(), [&](const QScreen* screen) {
    // A screen's size in points is rounded.
    const double point = screen->devicePixelRatio();
    const QSizeF size = QSizeF(screen->size()) * point;
    return geometry->width + point > size.width() && geometry->height + point > size.height();
  });
}

}  // namespace platform::desktop
