#include "platform/desktop/application_service.h"

#include <QDBusConnection>
#include <QFileInfo>
#include <cstdlib>

#include "platform/application_metadata.h"
#include "platform/desktop/strings.h"

namespace platform::desktop {

QString serviceName() { return toQString(metadata::identifier); }
QString servicePath() { return u'/' + serviceName().replace(u'.', u'/'); }
QString serviceInterface() { return QStringLiteral("org.freedesktop.Application"); }

bool sessionBusExists() {
  if (std::getenv("DBUS_SESSION_BUS_ADDRESS") != nullptr) return true;
  const QString runtimeFolder = qEnvironmentVariable("XDG_RUNTIME_DIR");
  return !runtimeFolder.isEmpty() && QFileInfo::exists(runtimeFolder + QStringLiteral("/bus"));
}

ApplicationService::ApplicationService(std::function<void()> activate) : activate_(std::move(activate)) {
  if (!sessionBusExists()) return;
  QDBusConnection bus = QDBusConnection::sessionBus();
  // The object first: who finds the name finds the object.
  if (bus.registerObject(servicePath(), this, QDBusConnection::ExportScriptableInvokables))
    bus.registerService(serviceName());
}

void ApplicationService::Activate(const QVariantMap& /*platformData*/) { activate_(); }

}  // namespace platform::desktop
