// SPDX-License-Identifier: MIT
#pragma once

#include <QByteArray>
#include <QDBusConnection>
#include <QList>

namespace platform::desktop {

/// Where the bus of that kind is, by the environment and its usual places. Empty if there is none.
QByteArray addressOfBus(QDBusConnection::BusType type);

/// The Unix sockets in such an address, in its order: each a path or, behind a zero byte, an abstract name. Other
/// transports are left out.
QList<QByteArray> socketsIn(const QByteArray& address);

}  // namespace platform::desktop
