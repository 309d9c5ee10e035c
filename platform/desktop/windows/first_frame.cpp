// SPDX-License-Identifier: MIT
#include "platform/desktop/windows/first_frame.h"

#include <QTimer>

namespace platform::desktop {

void FirstFrame::then(QObject& context, std::function<void()> work) {
  if (isDrawn_) {
    QTimer::singleShot(0, &context, std::move(work));
  } else {
    waiting_.emplace_back(&context, std::move(work));
  }
}

void FirstFrame::drawn() {
  isDrawn_ = true;
  for (const auto& [context, work] : std::exchange(waiting_, {})) {
    if (!context.isNull()) work();
  }
}

}  // namespace platform::desktop
