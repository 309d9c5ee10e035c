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

#include "platform/desktop/base/unique_fd.h"

namespace platform::desktop {

/// The session bus or the system bus. A bus that accepts connections but never answers would block QDBusConnection
/// forever, so nobody uses that before the bus has answered a question here, over a socket of our own.
class Bus {
 public:
  explicit Bus(QDBusConnection::BusType type);

  /// Waits at most that long for the answer. False at once if there is no bus.
  bool answersWithin(std::chrono::milliseconds timeout);
  /// Whether it has been asked and has not answered yet.
  bool isSilent() const { return bool(question_); }
  /// Calls `begin` at once if the bus has answered, else when it does; never if `context` is destroyed before that.
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

/// A call to the bus daemon itself; the caller adds the arguments.
QDBusMessage callOfTheBus(const QString& method);

/// A call that reads one property of an object.
QDBusMessage getProperty(const QString& service, const QString& path, const QString& interface, const QString& name);

/// Calls `then` with the reply, which may be an error; never if `context` is destroyed before that.
void onReply(const QDBusPendingCall& call, QObject& context, std::function<void(const QDBusPendingCall&)> then);

/// Calls `then` with the unique name of the owner of a bus name: once it is known, and at each change; empty when the
/// name has none any more. May repeat an owner. Never if `context` is destroyed before that.
void followOwner(const QDBusConnection& bus, const QString& name, QObject& context,
                 const std::function<void(const QString& owner)>& then);

/// Connects to a signal from the owner of a bus name, whoever that is at the time. QDBusConnection::connect with such a
/// name waits until the bus has told the owner; this does not wait. Until `receiver` is destroyed; `slot` is kept.
/// `connected` is called for each owner: what it asks is answered by one whose next changes are heard.
void connectToOwner(QDBusConnection bus, const QString& name, const QString& path, const QString& interface,
                    const QString& signal, const QStringList& arguments, const QString& signature, QObject& receiver,
                    const char* slot, const std::function<void()>& connected = {});

}  // namespace platform::desktop
