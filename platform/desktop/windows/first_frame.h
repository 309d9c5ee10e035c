// SPDX-License-Identifier: MIT
#pragma once

#include <QObject>
#include <QPointer>
#include <functional>
#include <utility>
#include <vector>

namespace platform::desktop {

/// What nobody needs to see the note waits here until its first frame has been drawn.
class FirstFrame {
 public:
  /// Runs `work` once the frame has been drawn, or soon if it has; not if `context` is gone by then.
  void then(QObject& context, std::function<void()> work);
  /// It has been drawn.
  void drawn();

 private:
  bool isDrawn_ = false;
  std::vector<std::pair<QPointer<QObject>, std::function<void()>>> waiting_;
};

}  // namespace platform::desktop
