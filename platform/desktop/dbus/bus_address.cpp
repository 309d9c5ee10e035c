// SPDX-License-Identifier: MIT
#include "platform/desktop/dbus/bus_address.h"

#include <QFileInfo>
#include <optional>

namespace platform::desktop {
namespace {

/// The keys and values of one address, after its transport.
std::optional<QByteArray> socketOf(const QByteArray& parts) {
  for (const QByteArray& part : parts.split(',')) {
    const QByteArray value = QByteArray::fromPercentEncoding(part.mid(part.indexOf('=') + 1));
    if (part.startsWith("path=")) return value;
    if (part.startsWith("abstract=")) return '\0' + value;
  }
  return std::nullopt;
}

}  // namespace

QByteArray addressOfBus(QDBusConnection::BusType type) {
  const bool session = type == QDBusConnection::SessionBus;
  const char* const variable = session ? "DBUS_SESSION_BUS_ADDRESS" : "DBUS_SYSTEM_BUS_ADDRESS";
  if (!qEnvironmentVariableIsEmpty(variable)) return qgetenv(variable);
  if (!session) return "unix:path=/run/dbus/system_bus_socket";
  const QByteArray folder = qgetenv("XDG_RUNTIME_DIR");
  const bool exists = !folder.isEmpty() && QFileInfo::exists(QFile::decodeName(folder + "/bus"));
  return exists ? "unix:path=" + folder + "/bus" : QByteArray();
}

QList<QByteArray> socketsIn(const QByteArray& address) {
  QList<QByteArray> sockets;
  for (const QByteArray& way : address.split(';')) {
    if (!way.startsWith("unix:")) continue;
    if (const auto socket = socketOf(way.mid(way.indexOf(':') + 1))) sockets.append(*socket);
  }
  return sockets;
}

}  // namespace platform::desktop
