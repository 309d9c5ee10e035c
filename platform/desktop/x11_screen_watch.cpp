#include "platform/desktop/x11_screen_watch.h"

#include <xcb/screensaver.h>

#include <QCoreApplication>
#include <QGuiApplication>
#include <QScreen>
#include <algorithm>
#include <utility>

#include "platform/desktop/x11.h"

namespace platform::desktop {

using x11::Reply;

X11ScreenWatch::X11ScreenWatch(xcb_connection_t* connection)
    : connection_(connection), root_(x11::rootWindow(connection)) {
  const auto* const extension = xcb_get_extension_data(connection_, &xcb_screensaver_id);
  if (extension != nullptr && extension->present != 0) {
    saverEvent_ = extension->first_event + XCB_SCREENSAVER_NOTIFY;
    xcb_screensaver_select_input(connection_, root_, XCB_SCREENSAVER_EVENT_NOTIFY_MASK);
    xcb_flush(connection_);
  }
  qApp->installNativeEventFilter(this);
}

X11ScreenWatch::~X11ScreenWatch() {
  if (qApp != nullptr) qApp->removeNativeEventFilter(this);
}

void X11ScreenWatch::whenUncovered(std::function<void()> then) {
  waiting_.push_back(std::move(then));
  runWaiting();
}

void X11ScreenWatch::runWaiting() {
  covers_ = keyboardIsTaken() ? windowsOverAll() : std::vector<xcb_window_t>();
  if (!covers_.empty()) return;
  for (const auto& then : std::exchange(waiting_, {})) then();
}

bool X11ScreenWatch::nativeEventFilter(const QByteArray& /*type*/, void* message, qintptr* /*result*/) {
  const auto& event = *static_cast<xcb_generic_event_t*>(message);
  const unsigned type = x11::typeOf(event);
  if (saverEvent_ && type == *saverEvent_) {
    const auto& change = reinterpret_cast<const xcb_screensaver_notify_event_t&>(event);
    if (change.state == XCB_SCREENSAVER_STATE_OFF && onDisplayOn) onDisplayOn();
  } else if (type == XCB_UNMAP_NOTIFY || type == XCB_DESTROY_NOTIFY) {
    // The window stands at the same place in both.
    const xcb_window_t gone = reinterpret_cast<const xcb_unmap_notify_event_t&>(event).window;
    if (std::find(covers_.begin(), covers_.end(), gone) != covers_.end()) runWaiting();
  }
  return false;
}

/// The way to learn it is to try.
bool X11ScreenWatch::keyboardIsTaken() {
  const auto request =
      xcb_grab_keyboard(connection_, 0, root_, XCB_CURRENT_TIME, XCB_GRAB_MODE_ASYNC, XCB_GRAB_MODE_ASYNC);
  const Reply<xcb_grab_keyboard_reply_t> reply(xcb_grab_keyboard_reply(connection_, request, nullptr));
  if (reply && reply->status == XCB_GRAB_STATUS_SUCCESS) xcb_ungrab_keyboard(connection_, XCB_CURRENT_TIME);
  return reply && reply->status == XCB_GRAB_STATUS_ALREADY_GRABBED;
}

/// Windows of other programs that no window manager has a hand in and that cover a screen. The server's own, a
/// compositor's canvas, is none of them.
std::vector<xcb_window_t> X11ScreenWatch::windowsOverAll() {
  const Reply<xcb_query_tree_reply_t> tree(
      xcb_query_tree_reply(connection_, xcb_query_tree(connection_, root_), nullptr));
  if (!tree) return {};
  constexpr std::uint32_t idBits = 0x1FFFFFFF;
  const std::uint32_t clientBits = idBits & ~xcb_get_setup(connection_)->resource_id_mask;
  std::vector<xcb_window_t> found;
  const xcb_window_t* const windows = xcb_query_tree_children(tree.get());
  for (int i = 0; i < xcb_query_tree_children_length(tree.get()); ++i) {
    if ((windows[i] & clientBits) != 0 && coversAScreen(windows[i])) found.push_back(windows[i]);
  }
  return found;
}

bool X11ScreenWatch::coversAScreen(xcb_window_t window) {
  // First the wish to hear of its end, then the look at it: nothing is missed between the two.
  const std::uint32_t events = XCB_EVENT_MASK_STRUCTURE_NOTIFY;
  const auto wish = xcb_change_window_attributes_checked(connection_, window, XCB_CW_EVENT_MASK, &events);
  const auto askAttributes = xcb_get_window_attributes(connection_, window);
  const auto askGeometry = xcb_get_geometry(connection_, window);
  const Reply<xcb_generic_error_t> gone(xcb_request_check(connection_, wish));
  const Reply<xcb_get_window_attributes_reply_t> attributes(
      xcb_get_window_attributes_reply(connection_, askAttributes, nullptr));
  const Reply<xcb_get_geometry_reply_t> geometry(xcb_get_geometry_reply(connection_, askGeometry, nullptr));
  if (gone || !attributes || !geometry) return false;
  if (attributes->override_redirect == 0 || attributes->map_state != XCB_MAP_STATE_VIEWABLE) return false;
  const auto screens = QGuiApplication::screens();
  return std::any_of(screens.begin(), screens.end(), [&](const QScreen* screen) {
    const QSizeF size = QSizeF(screen->size()) * screen->devicePixelRatio();
    return geometry->width >= size.width() && geometry->height >= size.height();
  });
}

}  // namespace platform::desktop
