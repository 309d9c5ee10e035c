// SPDX-License-Identifier: MIT
#pragma once

#include <xcb/xcb.h>

#include <QAbstractNativeEventFilter>
#include <functional>
#include <string>

namespace platform::desktop {

/// Whether an X selection has an owner: that is how trays and compositors show that they run. The server tells of
/// changes.
class SelectionWatch : public QAbstractNativeEventFilter {
 public:
  /// Calls `onChange` after each change.
  SelectionWatch(xcb_connection_t* connection, const std::string& selection, std::function<void()> onChange);
  SelectionWatch(const SelectionWatch&) = delete;
  SelectionWatch& operator=(const SelectionWatch&) = delete;
  ~SelectionWatch() override;

  bool isOwned() const { return owned_; }
  bool nativeEventFilter(const QByteArray& type, void* message, qintptr* result) override;

 private:
  xcb_connection_t* connection_;
  xcb_atom_t selection_;
  std::function<void()> onChange_;
  bool owned_ = false;
  unsigned event_ = 0;
};

}  // namespace platform::desktop
