// SPDX-License-Identifier: MIT
#pragma once

#include <xcb/xcb.h>

#include <cstdint>

namespace platform::desktop {

/// The X server's clock. Window managers compare its times to ignore outdated requests.
class X11ServerClock {
 public:
  explicit X11ServerClock(xcb_connection_t* connection);

  /// In milliseconds modulo 2^32; XCB_CURRENT_TIME if the server has no SYNC extension.
  xcb_timestamp_t now() const;

 private:
  xcb_connection_t* connection_;
  std::uint32_t counter_ = XCB_NONE;  ///< of the SYNC extension
};

}  // namespace platform::desktop
