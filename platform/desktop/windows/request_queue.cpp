// SPDX-License-Identifier: MIT
#include "platform/desktop/windows/request_queue.h"

#include <QPointer>
#include <utility>

#include "platform/dispatch.h"

namespace platform::desktop {

RequestQueue::RequestQueue(WindowSystem& windowSystem) : windowSystem_(windowSystem) {
  windowSystem_.onSettled = [this] { pause(); };  // the window system may have posted work too
}

void RequestQueue::add(std::function<void()> request) {
  requests_.push_back(std::move(request));
  passOn();
}

void RequestQueue::passOn() {
  if (pauses_ > 0 || requests_.empty() || !windowSystem_.isSettled()) return;
  const auto request = std::move(requests_.front());
  requests_.pop_front();
  ++pauses_;  // it may add requests
  request();
  pause();  // after what it has posted
  --pauses_;
}

void RequestQueue::pause() {
  ++pauses_;
  DispatchQueue::main().async([queue = QPointer(this)] {
    if (queue.isNull()) return;
    --queue->pauses_;
    queue->passOn();
  });
}

}  // namespace platform::desktop
