// SPDX-License-Identifier: MIT
#include "platform/desktop/x11/x11_server_clock.h"

#include <xcb/sync.h>

#include <string_view>

#include "platform/desktop/x11/x11.h"

namespace platform::desktop {

using x11::Reply;

X11ServerClock::X11ServerClock(xcb_connection_t* connection) : connection_(connection) {
  const auto* const extension = xcb_get_extension_data(connection_, &xcb_sync_id);
  if (extension == nullptr || extension->present == 0) return;
  const auto version = xcb_sync_initialize(connection_, XCB_SYNC_MAJOR_VERSION, XCB_SYNC_MINOR_VERSION);
  const auto list = xcb_sync_list_system_counters(connection_);
  xcb_discard_reply(connection_, version.sequence);
  const Reply<xcb_sync_list_system_counters_reply_t> counters(
      xcb_sync_list_system_counters_reply(connection_, list, nullptr));
  if (!counters) return;
  auto each = xcb_sync_list_system_counters_counters_iterator(counters.get());
  for (; each.rem > 0; xcb_sync_systemcounter_next(&each)) {
    const auto length = static_cast<std::size_t>(xcb_sync_systemcounter_name_length(each.data));
    if (std::string_view(xcb_sync_systemcounter_name(each.data), length) == "SERVERTIME") counter_ = each.data->counter;
  }
}

xcb_timestamp_t X11ServerClock::now() const {
  if (counter_ == XCB_NONE) return XCB_CURRENT_TIME;
  const Reply<xcb_sync_query_counter_reply_t> value(
      xcb_sync_query_counter_reply(connection_, xcb_sync_query_counter(connection_, counter_), nullptr));
  return value ? value->counter_value.lo : xcb_timestamp_t(XCB_CURRENT_TIME);
}

}  // namespace platform::desktop
