// SPDX-License-Identifier: MIT
#pragma once

#include <QDBusConnection>
#include <QDBusMessage>
#include <QDBusPendingCall>
#include <QObject>
#include <QPointer>
#include <QSocketNotifier>
#include <chrono>
#include <functional>
#include <memory>
#include <utility>
#include <vector>

#include "platform/desktop/files/unique_fd.h"

namespace platform::desktop {

/// The session's or the system's message bus, asked at the first use whether it answers. One that takes connections and
/// never answers holds whoever connects through Qt for good: nobody does before it has answered here.
class Bus {
 public:
  explicit Bus(QDBusConnection::BusType type) : type_(type) {}

  /// Whether it answers, within that time at most; at once where there is no bus.
  bool answersWithin(std::chrono::milliseconds timeout);
  /// Whether there is one that was asked and has not answered yet.
  bool isSilent() const { return bool(question_); }
  /// Begins at once with a bus that answers, else as soon as it does, if `context` is still there.
  void whenItAnswers(QObject& context, std::function<void()> begin);

 private:
  void ask();
  void takeAnswer();

  QDBusConnection::BusType type_;
  bool asked_ = false;
  UniqueFd question_;  ///< until it is answered
  bool answers_ = false;
  std::unique_ptr<QSocketNotifier> notifier_;
  std::vector<std::pair<QPointer<QObject>, std::function<void()>>> waiting_;
};

/// A call of the bus itself; the caller adds the arguments.
QDBusMessage callOfTheBus(const QString& method);

/// A call that asks an object for one of its properties.
QDBusMessage getProperty(const QString& service, const QString& path, const QString& interface, const QString& name);

/// Calls `then` with the answer to a call, which may be an error; not if `context` is gone by then.
void onReply(const QDBusPendingCall& call, QObject& context, std::function<void(const QDBusPendingCall&)> then);

}  // namespace platform::desktop
