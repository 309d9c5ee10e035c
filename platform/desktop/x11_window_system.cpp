#include "platform/desktop/x11_window_system.h"

#include <xcb/xcb_ewmh.h>
#include <xcb/xcb_icccm.h>
#include <xcb/xcb_keysyms.h>

#include <QAbstractNativeEventFilter>
#include <QApplication>
#include <QKeyEvent>
#include <QWindow>
#include <algorithm>
#include <array>
#include <cstdlib>

namespace platform::desktop {
namespace {

constexpr std::uint32_t everyWorkspace = 0xFFFFFFFF;
constexpr xcb_keysym_t escapeKeysym = 0xFF1B;
constexpr auto pager = XCB_EWMH_CLIENT_SOURCE_TYPE_OTHER;  // a wish of the user's, which focus stealing rules respect

struct Free {
  void operator()(void* pointer) const { std::free(pointer); }
};
template <typename T>
using Reply = std::unique_ptr<T, Free>;

xcb_window_t idOf(const QWidget& window) { return static_cast<xcb_window_t>(window.winId()); }

class X11WindowSystem : public WindowSystem, public QAbstractNativeEventFilter {
 public:
  explicit X11WindowSystem(xcb_connection_t* connection)
      : connection_(connection), keySymbols_(xcb_key_symbols_alloc(connection)) {
    xcb_ewmh_init_atoms_replies(&ewmh_, xcb_ewmh_init_atoms(connection_, &ewmh_), nullptr);
    char* host = nullptr;
    int display = 0;
    xcb_parse_display(nullptr, &host, &display, &screen_);
    std::free(host);
    root_ = ewmh_.screens[screen_]->root;
    noteActiveWindow();
    qApp->installNativeEventFilter(this);
  }
  X11WindowSystem(const X11WindowSystem&) = delete;
  X11WindowSystem& operator=(const X11WindowSystem&) = delete;
  ~X11WindowSystem() override {
    if (qApp != nullptr) qApp->removeNativeEventFilter(this);
    xcb_key_symbols_free(keySymbols_);
    xcb_ewmh_connection_wipe(&ewmh_);
  }

  void prepareToShow(QWidget& window, Placement placement) override {
    const xcb_window_t id = idOf(window);
    xcb_atom_t type = ewmh_._NET_WM_WINDOW_TYPE_UTILITY;
    xcb_ewmh_set_wm_window_type(&ewmh_, id, 1, &type);
    leaveProgramGroup(id);
    // A window manager wipes these when a window is withdrawn.
    std::array<xcb_atom_t, 4> states{ewmh_._NET_WM_STATE_SKIP_TASKBAR, ewmh_._NET_WM_STATE_SKIP_PAGER};
    std::uint32_t count = 2;
    if (placement.aboveOthers) states[count++] = ewmh_._NET_WM_STATE_ABOVE;
    if (placement.onEveryWorkspace) states[count++] = ewmh_._NET_WM_STATE_STICKY;
    xcb_ewmh_set_wm_state(&ewmh_, id, count, states.data());
    if (placement.onEveryWorkspace) {
      xcb_ewmh_set_wm_desktop(&ewmh_, id, everyWorkspace);
    } else {
      xcb_delete_property(connection_, id, ewmh_._NET_WM_DESKTOP);
    }
  }

  void place(QWidget& window, Placement placement) override {
    const xcb_window_t id = idOf(window);
    const auto change = [&](bool on, xcb_atom_t state) {
      xcb_ewmh_request_change_wm_state(&ewmh_, screen_, id, on ? XCB_EWMH_WM_STATE_ADD : XCB_EWMH_WM_STATE_REMOVE,
                                       state, XCB_ATOM_NONE, pager);
    };
    change(placement.aboveOthers, ewmh_._NET_WM_STATE_ABOVE);
    change(placement.onEveryWorkspace, ewmh_._NET_WM_STATE_STICKY);
    const std::uint32_t workspace = placement.onEveryWorkspace ? everyWorkspace : currentWorkspace();
    xcb_ewmh_request_change_wm_desktop(&ewmh_, screen_, id, workspace, pager);
    xcb_flush(connection_);
  }

  void activate(QWidget& window) override {
    window.raise();
    if (activeWindow() == XCB_NONE) window.activateWindow();  // also where no window manager would answer
    requestActive(idOf(window), XCB_NONE);
  }

  void activatePreviousProgram() override {
    if (previous_ != XCB_NONE && canBeSeen(previous_)) requestActive(previous_, activeWindow());
  }

  bool nativeEventFilter(const QByteArray& /*type*/, void* message, qintptr* /*result*/) override {
    auto* const event = static_cast<xcb_generic_event_t*>(message);
    switch (event->response_type & 0x7FU) {
      case XCB_PROPERTY_NOTIFY: {
        const auto& change = *reinterpret_cast<xcb_property_notify_event_t*>(event);
        if (change.window == root_ && change.atom == ewmh_._NET_ACTIVE_WINDOW) noteActiveWindow();
        return false;
      }
      case XCB_MAPPING_NOTIFY:
        xcb_refresh_keyboard_mapping(keySymbols_, reinterpret_cast<xcb_mapping_notify_event_t*>(event));
        return false;
      case XCB_KEY_PRESS:
        return takeEscape(*reinterpret_cast<xcb_key_press_event_t*>(event));
      default:
        return false;
    }
  }

 private:
  /// Window managers hide an inactive program's utility windows once its group has another member.
  void leaveProgramGroup(xcb_window_t id) {
    xcb_icccm_wm_hints_t hints{};
    xcb_icccm_get_wm_hints_reply(connection_, xcb_icccm_get_wm_hints(connection_, id), &hints, nullptr);
    xcb_icccm_wm_hints_set_window_group(&hints, id);
    xcb_icccm_set_wm_hints(connection_, id, &hints);
  }

  void requestActive(xcb_window_t window, xcb_window_t from) {
    xcb_ewmh_request_change_active_window(&ewmh_, screen_, window, pager, XCB_CURRENT_TIME, from);
    xcb_flush(connection_);
  }

  xcb_window_t activeWindow() {
    xcb_window_t active = XCB_NONE;
    xcb_ewmh_get_active_window_reply(&ewmh_, xcb_ewmh_get_active_window(&ewmh_, screen_), &active, nullptr);
    return active;
  }

  std::uint32_t currentWorkspace() {
    std::uint32_t workspace = 0;
    xcb_ewmh_get_current_desktop_reply(&ewmh_, xcb_ewmh_get_current_desktop(&ewmh_, screen_), &workspace, nullptr);
    return workspace;
  }

  void noteActiveWindow() {
    const xcb_window_t active = activeWindow();
    if (active != XCB_NONE && !isOurs(active)) previous_ = active;
  }

  static bool isOurs(xcb_window_t id) {
    const auto windows = QGuiApplication::topLevelWindows();
    return std::any_of(windows.begin(), windows.end(),
                       [id](const QWindow* window) { return window->handle() != nullptr && window->winId() == id; });
  }

  /// A window that is gone, hidden or on another workspace is not gone back to.
  bool canBeSeen(xcb_window_t id) {
    const Reply<xcb_get_window_attributes_reply_t> attributes(
        xcb_get_window_attributes_reply(connection_, xcb_get_window_attributes(connection_, id), nullptr));
    if (!attributes || attributes->map_state != XCB_MAP_STATE_VIEWABLE) return false;
    std::uint32_t workspace = everyWorkspace;
    xcb_ewmh_get_wm_desktop_reply(&ewmh_, xcb_ewmh_get_wm_desktop(&ewmh_, id), &workspace, nullptr);
    return workspace == everyWorkspace || workspace == currentWorkspace();
  }

  /// Hands Escape to the focus before the toolkit shows it to an input method.
  bool takeEscape(const xcb_key_press_event_t& press) {
    if (xcb_key_symbols_get_keysym(keySymbols_, press.detail, 0) != escapeKeysym) return false;
    QWidget* const window = QWidget::find(press.event);
    if (window == nullptr || !window->isWindow() || QApplication::activePopupWidget() != nullptr) return false;
    // Later, for the toolkit still holds the keys that were pressed before.
    QMetaObject::invokeMethod(
        window, [window] { sendEscape(*window); }, Qt::QueuedConnection);
    return true;
  }

  static void sendEscape(QWidget& window) {
    QWidget* const focus = window.focusWidget() != nullptr ? window.focusWidget() : &window;
    QKeyEvent key(QEvent::KeyPress, Qt::Key_Escape, Qt::NoModifier);
    QCoreApplication::sendEvent(focus, &key);
  }

  xcb_connection_t* connection_;
  xcb_ewmh_connection_t ewmh_{};
  xcb_key_symbols_t* keySymbols_;
  int screen_ = 0;
  xcb_window_t root_ = XCB_NONE;
  xcb_window_t previous_ = XCB_NONE;  ///< the last active window that is not ours
};

}  // namespace

std::unique_ptr<WindowSystem> makeX11WindowSystem(xcb_connection_t* connection) {
  return std::make_unique<X11WindowSystem>(connection);
}

}  // namespace platform::desktop
