// SPDX-License-Identifier: MIT
#pragma once

#include <xcb/xcb.h>

#include <cstdint>

namespace platform::desktop {

/// The X server's clock, by which window managers tell new requests from late ones.
class X11ServerClock {
 public:
  explicit X11ServerClock(xcb_connection_t* connection);

  /// Milliseconds since the server's start, modulo 2^32; XCB_CURRENT_TIME where the server does not tell.
  xcb_timestamp_t now() const;

 private:
  xcb_connection_t* connection_;
  std::uint32_t counter_ = XCB_NONE;  ///< of the SYNC extension
};

}  // namespace platform::desktop
