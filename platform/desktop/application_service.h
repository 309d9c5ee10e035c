#pragma once

#include <QObject>
#include <QVariantMap>
#include <functional>

namespace platform::desktop {

/// The program's name on the session bus, the path of its one object, and that object's interface.
QString serviceName();
QString servicePath();
QString serviceInterface();

/// Whether there is a session bus to connect to, without starting one.
bool sessionBusExists();

/// The program on the session bus, from construction on. Without a bus it is silent.
class ApplicationService : public QObject {
  Q_OBJECT
  Q_CLASSINFO("D-Bus Interface", "org.freedesktop.Application")

 public:
  explicit ApplicationService(std::function<void()> activate);

  /// Comes forward. `platformData` has nothing that is needed under X11.
  Q_INVOKABLE Q_SCRIPTABLE void Activate(const QVariantMap& platformData);

 private:
  std::function<void()> activate_;
};

}  // namespace platform::desktop
