// SPDX-License-Identifier: MIT
#include "platform/desktop/windows/request_queue.h"

#include <QPointer>
#include <utility>

#include "platform/dispatch.h"

namespace platform::desktop {

RequestQueue::RequestQueue(WindowSystem& windowSystem) : windowSystem_(windowSystem) {
  windowSystem_.onSettled = [this] { passOnLater(); };
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
  passOnLater();
}

void RequestQueue::passOnLater() {
  DispatchQueue::main().async([queue = QPointer(this)] {
    if (queue.isNull()) return;
    queue->busy_ = false;
    queue->passOn();
  });
}

}  // namespace platform::desktop
