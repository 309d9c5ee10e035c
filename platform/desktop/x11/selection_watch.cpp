// SPDX-License-Identifier: MIT
#include "platform/desktop/x11/selection_watch.h"

#include <xcb/xfixes.h>

#include <utility>

#include "platform/desktop/x11/x11.h"

namespace platform::desktop {

SelectionWatch::SelectionWatch(xcb_connection_t* connection, const std::string& selection,
                               std::function<void()> onChange)
    : connection_(connection), selection_(x11::atom(connection, selection)), onChange_(std::move(onChange)) {
  const auto* const extension = xcb_get_extension_data(connection_, &xcb_xfixes_id);
  if (extension != nullptr && extension->present != 0) {
    event_ = extension->first_event + XCB_XFIXES_SELECTION_NOTIFY;
    xcb_xfixes_select_selection_input(connection_, x11::rootWindow(connection_), selection_,
                                      XCB_XFIXES_SELECTION_EVENT_MASK_SET_SELECTION_OWNER |
                                          XCB_XFIXES_SELECTION_EVENT_MASK_SELECTION_WINDOW_DESTROY |
                                          XCB_XFIXES_SELECTION_EVENT_MASK_SELECTION_CLIENT_CLOSE);
  }
  const x11::Reply<xcb_get_selection_owner_reply_t> reply(
      xcb_get_selection_owner_reply(connection_, xcb_get_selection_owner(connection_, selection_), nullptr));
  owned_ = reply && reply->owner != XCB_NONE;
}

bool SelectionWatch::take(xcb_generic_event_t& event) {
  if (event_ == 0 || x11::typeOf(event) != event_) return false;
  const auto& change = x11::as<xcb_xfixes_selection_notify_event_t>(event);
  if (change.selection != selection_) return false;
  owned_ = change.subtype == XCB_XFIXES_SELECTION_EVENT_SET_SELECTION_OWNER && change.owner != XCB_NONE;
  onChange_();
  return false;
}

}  // namespace platform::desktop
