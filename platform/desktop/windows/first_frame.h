// SPDX-License-Identifier: MIT
#pragma once

#include <QObject>
#include <QPointer>
#include <functional>
#include <utility>
#include <vector>

namespace platform::desktop {

/// Postpones work that is not needed to show the note until the first frame has been drawn.
class FirstFrame {
 public:
  /// Calls `work` from the event loop once the frame has been drawn; never if `context` is destroyed before that.
  void then(QObject& context, std::function<void()> work);
  /// To be called when it has been drawn.
  void drawn();

 private:
  bool isDrawn_ = false;
  std::vector<std::pair<QPointer<QObject>, std::function<void()>>> waiting_;
};

}  // namespace platform::desktop
