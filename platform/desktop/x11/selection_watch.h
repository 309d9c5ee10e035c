// SPDX-License-Identifier: MIT
#pragma once

#include <functional>
#include <string>

#include "platform/desktop/x11/event_filter.h"

namespace platform::desktop {

/// Whether an X selection has an owner. Trays and compositors own one while they run.
class SelectionWatch : private x11::EventFilter {
 public:
  /// Calls `onChange` after each change.
  SelectionWatch(xcb_connection_t* connection, const std::string& selection, std::function<void()> onChange);

  bool isOwned() const { return owned_; }

 private:
  bool take(xcb_generic_event_t& event) override;

  xcb_connection_t* connection_;
  xcb_atom_t selection_;
  std::function<void()> onChange_;
  bool owned_ = false;
  unsigned event_ = 0;
};

}  // namespace platform::desktop
