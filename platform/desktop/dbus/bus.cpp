// SPDX-License-Identifier: MIT
#include "platform/desktop/dbus/bus.h"

#include <poll.h>
#include <sys/eventfd.h>
#include <sys/socket.h>
#include <sys/un.h>
#include <unistd.h>

#include <QDBusObjectPath>
#include <QDBusPendingCallWatcher>
#include <QDBusPendingReply>
#include <QDBusServiceWatcher>
#include <QDBusVariant>
#include <algorithm>
#include <cerrno>
#include <limits>

#include "platform/desktop/dbus/bus_address.h"

namespace platform::desktop {
namespace {

/// A socket's address, and how long it is; 0 for a name that is too long for one.
std::pair<sockaddr_un, socklen_t> addressOf(const QByteArray& socket) {
  sockaddr_un address{};
  address.sun_family = AF_UNIX;
  if (socket.size() >= qsizetype(sizeof address.sun_path)) return {address, 0};
  std::copy(socket.begin(), socket.end(), address.sun_path);
  return {address, static_cast<socklen_t>(offsetof(sockaddr_un, sun_path) + socket.size())};
}

/// Sends the line with which every D-Bus client begins; a bus answers it from the loop in which it does all its work.
/// Returns the descriptor that the answer is read from; none if there is no bus.
UniqueFd askAt(const QByteArray& name) {
  const auto [address, length] = addressOf(name);
  UniqueFd socket(::socket(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC | SOCK_NONBLOCK, 0));
  if (length == 0 || connect(socket.get(), reinterpret_cast<const sockaddr*>(&address), length) != 0) {
    // The socket's queue is full: the bus has long been silent, and no answer will come.
    return UniqueFd(length > 0 && errno == EAGAIN ? eventfd(0, EFD_CLOEXEC) : -1);
  }
  const QByteArray question = '\0' + ("AUTH EXTERNAL " + QByteArray::number(getuid()).toHex() + "\r\n");
  [[maybe_unused]] const auto sent = send(socket.get(), question.data(), question.size(), MSG_NOSIGNAL);
  return socket;
}

}  // namespace

Bus::Bus(QDBusConnection::BusType type) : type_(type) {
  // QDBusConnection::connect looks up the types of a slot by their names, and refuses a slot with an unknown one.
  qRegisterMetaType<QDBusMessage>();
  qRegisterMetaType<QDBusObjectPath>();
  qRegisterMetaType<QDBusVariant>();
}

void Bus::ask() {
  if (std::exchange(asked_, true)) return;
  const QByteArray address = addressOfBus(type_);
  const QList<QByteArray> sockets = socketsIn(address);
  answers_ = !address.isEmpty() && sockets.isEmpty();  // other transports are taken to work
  for (auto name = sockets.begin(); name != sockets.end() && !question_; ++name) question_ = askAt(*name);
}

bool Bus::answersWithin(std::chrono::milliseconds timeout) {
  ask();
  if (!isSilent()) return answers_;
  pollfd asked{question_.get(), POLLIN, 0};
  if (poll(&asked, 1, static_cast<int>(timeout.count())) > 0) takeAnswer();
  return answers_;
}

void Bus::whenItAnswers(QObject& context, std::function<void()> begin) {
  if (answersWithin(std::chrono::milliseconds::zero())) return begin();
  if (!isSilent()) return;
  waiting_.emplace_back(&context, std::move(begin));
  if (notifier_ != nullptr) return;
  notifier_ = std::make_unique<QSocketNotifier>(question_.get(), QSocketNotifier::Read);
  QObject::connect(notifier_.get(), &QSocketNotifier::activated, [this] { takeAnswer(); });
}

void Bus::takeAnswer() {
  if (notifier_ != nullptr) {
    notifier_->setEnabled(false);
    notifier_.release()->deleteLater();  // which may have brought us here
  }
  char byte = 0;
  answers_ = read(question_.get(), &byte, 1) == 1;
  question_ = UniqueFd();
  for (const auto& [context, begin] : std::exchange(waiting_, {})) {
    if (answers_ && !context.isNull()) begin();
  }
}

QDBusMessage callOfTheBus(const QString& method) {
  const QString name = QStringLiteral("org.freedesktop.DBus");
  return QDBusMessage::createMethodCall(name, QStringLiteral("/org/freedesktop/DBus"), name, method);
}

QDBusMessage getProperty(const QString& service, const QString& path, const QString& interface, const QString& name) {
  QDBusMessage call = QDBusMessage::createMethodCall(service, path, QStringLiteral("org.freedesktop.DBus.Properties"),
                                                     QStringLiteral("Get"));
  return call << interface << name;
}

void onReply(const QDBusPendingCall& call, QObject& context, std::function<void(const QDBusPendingCall&)> then) {
  auto* const watcher = new QDBusPendingCallWatcher(call, &context);
  QObject::connect(watcher, &QDBusPendingCallWatcher::finished, &context, [watcher, then = std::move(then)] {
    watcher->deleteLater();
    then(*watcher);
  });
}

void followOwner(const QDBusConnection& bus, const QString& name, QObject& context,
                 const std::function<void(const QString& owner)>& then) {
  auto* const watcher = new QDBusServiceWatcher(name, bus, QDBusServiceWatcher::WatchForOwnerChange, &context);
  QObject::connect(watcher, &QDBusServiceWatcher::serviceOwnerChanged, &context,
                   [then](const QString& /*name*/, const QString& /*before*/, const QString& owner) { then(owner); });
  constexpr int unlimited = std::numeric_limits<int>::max();  // the bus may be silent now
  onReply(bus.asyncCall(callOfTheBus(QStringLiteral("GetNameOwner")) << name, unlimited), context,
          [then](const QDBusPendingReply<QString>& owner) {
            if (owner.isValid()) then(owner.value());
          });
}

void connectToOwner(QDBusConnection bus, const QString& name, const QString& path, const QString& interface,
                    const QString& signal, const QStringList& arguments, const QString& signature, QObject& receiver,
                    const char* slot, const std::function<void()>& connected) {
  const auto heard = std::make_shared<QString>();
  followOwner(bus, name, receiver, [=, &receiver](const QString& owner) mutable {
    if (owner == *heard) return;
    if (!heard->isEmpty()) bus.disconnect(*heard, path, interface, signal, arguments, signature, &receiver, slot);
    *heard = owner;
    if (owner.isEmpty()) return;
    bus.connect(owner, path, interface, signal, arguments, signature, &receiver, slot);
    if (connected) connected();
  });
}

}  // namespace platform::desktop
