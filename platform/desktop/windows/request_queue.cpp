// SPDX-License-Identifier: MIT
#include "platform/desktop/windows/request_queue.h"

#include <QPointer>
#include <utility>

#include "platform/dispatch.h"

namespace platform::desktop {

RequestQueue::RequestQueue(WindowSystem& windowSystem) : windowSystem_(windowSystem) {
  // Later: after what the window system has posted to the event loop.
  windowSystem_.onSettled = [this] { later([this] { passOn(); }); };
}

void RequestQueue::add(std::function<void()> request) {
  requests_.push_back(std::move(request));
  passOn();
}

void RequestQueue::passOn() {
  if (busy_ || requests_.empty() || !windowSystem_.isSettled()) return;
  const auto request = std::move(requests_.front());
  requests_.pop_front();
  busy_ = true;
  request();
  // After the work that the request itself has posted.
  later([this] {
    busy_ = false;
    passOn();
  });
}

void RequestQueue::later(std::function<void()> step) {
  DispatchQueue::main().async([queue = QPointer(this), step = std::move(step)] {
    if (!queue.isNull()) step();
  });
}

}  // namespace platform::desktop
