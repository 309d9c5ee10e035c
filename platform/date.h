// SPDX-License-Identifier: MIT
#pragma once

namespace platform {

/// A point in wall-clock time: seconds since 1970-01-01 00:00:00 UTC. May be set back or forth by the user.
using Date = double;

namespace NSDate {

/// Earlier than any real time, and safe to subtract from any of them.
constexpr Date distantPast = -62135769600.0;

/// The wall clock's time.
Date now();

}  // namespace NSDate
}  // namespace platform
