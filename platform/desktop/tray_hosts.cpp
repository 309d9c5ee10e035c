#include "platform/desktop/tray_hosts.h"

#include <xcb/xfixes.h>

#include <QAbstractNativeEventFilter>
#include <QCoreApplication>
#include <QDBusConnection>
#include <QDBusMessage>
#include <QDBusPendingCallWatcher>
#include <QDBusPendingReply>
#include <QDBusVariant>
#include <utility>

#include "platform/desktop/application_service.h"
#include "platform/desktop/x11.h"

namespace platform::desktop {
namespace {

const QString watcherName = QStringLiteral("org.kde.StatusNotifierWatcher");
const QString watcherPath = QStringLiteral("/StatusNotifierWatcher");

}  // namespace

/// The X11 tray is whoever owns a selection; the server tells when the owner changes.
class TrayHosts::SelectionWatch : public QAbstractNativeEventFilter {
 public:
  SelectionWatch(TrayHosts& hosts, xcb_connection_t* connection)
      : hosts_(hosts),
        connection_(connection),
        selection_(x11::atom(connection, "_NET_SYSTEM_TRAY_S" + std::to_string(x11::screenNumber()))) {
    const auto* const extension = xcb_get_extension_data(connection_, &xcb_xfixes_id);
    if (extension == nullptr || extension->present == 0) return;
    selectionEvent_ = extension->first_event + XCB_XFIXES_SELECTION_NOTIFY;
    xcb_xfixes_select_selection_input(connection_, x11::rootWindow(connection_), selection_,
                                      XCB_XFIXES_SELECTION_EVENT_MASK_SET_SELECTION_OWNER |
                                          XCB_XFIXES_SELECTION_EVENT_MASK_SELECTION_WINDOW_DESTROY |
                                          XCB_XFIXES_SELECTION_EVENT_MASK_SELECTION_CLIENT_CLOSE);
    qApp->installNativeEventFilter(this);
    const x11::Reply<xcb_get_selection_owner_reply_t> reply(
        xcb_get_selection_owner_reply(connection_, xcb_get_selection_owner(connection_, selection_), nullptr));
    hosts_.setXEmbedTray(reply && reply->owner != XCB_NONE);
  }
  SelectionWatch(const SelectionWatch&) = delete;
  SelectionWatch& operator=(const SelectionWatch&) = delete;
  ~SelectionWatch() override {
    if (qApp != nullptr) qApp->removeNativeEventFilter(this);
  }

  bool nativeEventFilter(const QByteArray& /*type*/, void* message, qintptr* /*result*/) override {
    const auto& event = *static_cast<xcb_generic_event_t*>(message);
    if (x11::typeOf(event) != selectionEvent_) return false;
    const auto& change = reinterpret_cast<const xcb_xfixes_selection_notify_event_t&>(event);
    if (change.selection == selection_) {
      hosts_.setXEmbedTray(change.subtype == XCB_XFIXES_SELECTION_EVENT_SET_SELECTION_OWNER &&
                           change.owner != XCB_NONE);
    }
    return false;
  }

 private:
  TrayHosts& hosts_;
  xcb_connection_t* connection_;
  xcb_atom_t selection_;
  unsigned selectionEvent_ = 0;
};

TrayHosts::TrayHosts(std::function<void()> onChange) : onChange_(std::move(onChange)) {
  if (auto* const connection = x11::connection()) {
    selectionWatch_ = std::make_unique<SelectionWatch>(*this, connection);
  }
  watchNotifierHosts();
}

TrayHosts::~TrayHosts() = default;

void TrayHosts::watchNotifierHosts() {
  QDBusConnection bus = QDBusConnection::sessionBus();
  if (!sessionBusExists() || !bus.isConnected()) {
    setNotifierHost(false);
    return;
  }
  watcherWatch_.setConnection(bus);
  watcherWatch_.addWatchedService(watcherName);
  connect(&watcherWatch_, &QDBusServiceWatcher::serviceOwnerChanged, this, &TrayHosts::askNotifierWatcher);
  for (const char* const signal : {"StatusNotifierHostRegistered", "StatusNotifierHostUnregistered"}) {
    bus.connect({}, watcherPath, watcherName, QLatin1String(signal), this, SLOT(askNotifierWatcher()));
  }
  askNotifierWatcher();
}

void TrayHosts::askNotifierWatcher() {
  QDBusMessage question = QDBusMessage::createMethodCall(
      watcherName, watcherPath, QStringLiteral("org.freedesktop.DBus.Properties"), QStringLiteral("Get"));
  question.setAutoStartService(false);
  question << watcherName << QStringLiteral("IsStatusNotifierHostRegistered");
  auto* const call = new QDBusPendingCallWatcher(QDBusConnection::sessionBus().asyncCall(question), this);
  connect(call, &QDBusPendingCallWatcher::finished, this, [this, call] {
    const QDBusPendingReply<QDBusVariant> answer = *call;
    setNotifierHost(answer.isValid() && answer.value().variant().toBool());
    call->deleteLater();
  });
}

void TrayHosts::setNotifierHost(bool present) {
  const bool changed = std::exchange(notifierHost_, present) != present;
  if (!std::exchange(known_, true) || changed) onChange_();
}

void TrayHosts::setXEmbedTray(bool present) {
  const bool changed = std::exchange(xembedTray_, present) != present;
  if (known_ && changed) onChange_();
}

}  // namespace platform::desktop
