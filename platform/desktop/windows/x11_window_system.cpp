// SPDX-License-Identifier: MIT
#include "platform/desktop/windows/x11_window_system.h"

#include <xcb/xcb_ewmh.h>
#include <xcb/xcb_icccm.h>

#include <QAbstractNativeEventFilter>
#include <QApplication>
#include <QKeyEvent>
#include <QTimer>
#include <QWindow>
#include <algorithm>
#include <array>
#include <chrono>
#include <map>
#include <optional>
#include <string>
#include <string_view>
#include <utility>

#include "platform/desktop/windows/escape_key.h"
#include "platform/desktop/x11/selection_watch.h"
#include "platform/desktop/x11/x11.h"
#include "platform/desktop/x11/x11_server_clock.h"

namespace platform::desktop {
namespace {

constexpr std::uint32_t everyWorkspace = 0xFFFFFFFF;
constexpr std::string_view focusingNewWindowsOnly = "wlroots wm";
constexpr auto pager = XCB_EWMH_CLIENT_SOURCE_TYPE_OTHER;  // a wish of the user's, which focus stealing rules respect

using x11::Reply;

// In _MOTIF_WM_HINTS: which of its fields count, and the functions of the second one.
enum MotifFlags : std::uint32_t { hasFunctions = 1, hasDecorations = 2 };
enum MotifFunctions : std::uint32_t { resize = 2, move = 4, maximize = 16, close = 32 };

constexpr unsigned sentByClient = 0x80;  // of an event's type: a window manager tells where a window is in such a one
constexpr std::chrono::seconds patience{1};  // with a window manager that does not activate a window

xcb_window_t idOf(const QWidget& window) { return static_cast<xcb_window_t>(window.winId()); }

class X11WindowSystem : public WindowSystem, public QAbstractNativeEventFilter {
 public:
  explicit X11WindowSystem(xcb_connection_t* connection)
      : connection_(connection),
        compositorWatch_(connection, "_NET_WM_CM_S" + std::to_string(x11::screenNumber()), repaintAll),
        escapeKey_(connection),
        clock_(connection),
        stateAtom_(x11::atom(connection, "WM_STATE")),
        motifHintsAtom_(x11::atom(connection, "_MOTIF_WM_HINTS")),
        screen_(x11::screenNumber()),
        root_(x11::rootWindow(connection)) {
    xcb_ewmh_init_atoms_replies(&ewmh_, xcb_ewmh_init_atoms(connection_, &ewmh_), nullptr);
    deadline_.setSingleShot(true);
    deadline_.setInterval(patience);
    QObject::connect(&deadline_, &QTimer::timeout, [this] { settle(); });
    noteWindowManager();
    noteActiveWindow();
    qApp->installNativeEventFilter(this);
  }
  X11WindowSystem(const X11WindowSystem&) = delete;
  X11WindowSystem& operator=(const X11WindowSystem&) = delete;
  ~X11WindowSystem() override {
    if (qApp != nullptr) qApp->removeNativeEventFilter(this);
    xcb_ewmh_connection_wipe(&ewmh_);
  }

  void prepareToShow(QWidget& window, Placement placement) override {
    const xcb_window_t id = idOf(window);
    // Some window managers go on calling a window active that was hidden.
    if (active_ == id) active_ = XCB_NONE;
    if (managed_) asked_[id] = window.pos();
    xcb_atom_t type = ewmh_._NET_WM_WINDOW_TYPE_UTILITY;
    xcb_ewmh_set_wm_window_type(&ewmh_, id, 1, &type);
    leaveProgramGroup(id);
    if (window.windowFlags().testFlag(Qt::FramelessWindowHint)) forbidMinimizing(id);
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
    if (!managed_) window.activateWindow();
    if (focusesNewWindowsOnly_ && active_ != idOf(window) && isManaged(idOf(window))) mapAnew(idOf(window));
    requestActive(idOf(window), XCB_NONE);
    if (active_ != idOf(window)) expect({idOf(window), true});
  }

  void prepareToHide(QWidget& window) override {
    asked_.erase(idOf(window));
    if (isActive(window)) expect({idOf(window), false});
  }

  bool isActive(const QWidget& window) override {
    const xcb_window_t id = idOf(window);
    if (expectation_ && expectation_->window == id) return expectation_->active;
    if (!managed_) return window.isActiveWindow();
    // Some window managers go on calling a window active that was left on another workspace.
    return active_ == id && isOnCurrentWorkspace(id);
  }

  bool isComposited() override { return compositorWatch_.isOwned(); }

  bool isSettled() const override { return !expectation_; }
  bool hasPlaces() const override { return true; }

  void activatePreviousProgram() override {
    if (previous_ != XCB_NONE && canBeSeen(previous_)) requestActive(previous_, activeWindow());
  }

  bool nativeEventFilter(const QByteArray& /*type*/, void* message, qintptr* /*result*/) override {
    const auto* const event = static_cast<const xcb_generic_event_t*>(message);
    if (event->response_type == (XCB_CONFIGURE_NOTIFY | sentByClient))
      putWhereAsked(reinterpret_cast<const xcb_configure_notify_event_t*>(event)->window);
    if (x11::typeOf(*event) != XCB_PROPERTY_NOTIFY) return false;
    const auto& change = *reinterpret_cast<const xcb_property_notify_event_t*>(event);
    if (change.window == root_ && change.atom == ewmh_._NET_ACTIVE_WINDOW) noteActiveWindow();
    if (change.window == root_ && change.atom == ewmh_._NET_SUPPORTING_WM_CHECK) noteWindowManager();
    if (change.atom == stateAtom_) noteManagement(change.window);
    return false;
  }

 private:
  /// Window managers hide an inactive program's utility windows once its group has another member.
  void leaveProgramGroup(xcb_window_t id) {
    xcb_icccm_wm_hints_t hints{};
    xcb_icccm_get_wm_hints_reply(connection_, xcb_icccm_get_wm_hints(connection_, id), &hints, nullptr);
    xcb_icccm_wm_hints_set_window_group(&hints, id);
    xcb_icccm_set_wm_hints(connection_, id, &hints);
  }

  /// What is in no taskbar could not be brought back. Qt says nothing of what a window without a frame allows.
  void forbidMinimizing(xcb_window_t id) {
    constexpr std::array<std::uint32_t, 5> hints{hasFunctions | hasDecorations, resize | move | maximize | close};
    xcb_change_property(connection_, XCB_PROP_MODE_REPLACE, id, motifHintsAtom_, motifHintsAtom_, 32, hints.size(),
                        hints.data());
  }

  void requestActive(xcb_window_t window, xcb_window_t from) {
    xcb_ewmh_request_change_active_window(&ewmh_, screen_, window, pager, clock_.now(), from);
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
    if (active != XCB_NONE && isPanel(active)) return;
    active_ = active;
    if (active == XCB_NONE ? besideWayland_ : !isOurs(active)) previous_ = active;
    if (expectation_ && expectation_->active && active_ == expectation_->window) settle();
  }

  /// A window manager takes this property back when it has let go of a hidden window, or says so in it.
  void noteManagement(xcb_window_t window) {
    if (expectation_ && !expectation_->active && window == expectation_->window && !isManaged(window)) settle();
  }

  bool isManaged(xcb_window_t window) {
    const auto request = xcb_get_property(connection_, 0, window, stateAtom_, XCB_ATOM_ANY, 0, 1);
    const Reply<xcb_get_property_reply_t> state(xcb_get_property_reply(connection_, request, nullptr));
    const bool stated = state && xcb_get_property_value_length(state.get()) >= int(sizeof(std::uint32_t));
    return stated && *static_cast<std::uint32_t*>(xcb_get_property_value(state.get())) != XCB_ICCCM_WM_STATE_WITHDRAWN;
  }

  /// A window manager names a window of its own, which names itself: what it leaves behind does not.
  void noteWindowManager() {
    xcb_window_t check = XCB_NONE;
    xcb_window_t named = XCB_NONE;
    xcb_ewmh_get_supporting_wm_check_reply(&ewmh_, xcb_ewmh_get_supporting_wm_check(&ewmh_, root_), &check, nullptr);
    if (check != XCB_NONE)
      xcb_ewmh_get_supporting_wm_check_reply(&ewmh_, xcb_ewmh_get_supporting_wm_check(&ewmh_, check), &named, nullptr);
    managed_ = check != XCB_NONE && check == named;
    focusesNewWindowsOnly_ = managed_ && nameOf(check) == focusingNewWindowsOnly;
  }

  std::string nameOf(xcb_window_t id) {
    xcb_ewmh_get_utf8_strings_reply_t name{};
    if (xcb_ewmh_get_wm_name_reply(&ewmh_, xcb_ewmh_get_wm_name(&ewmh_, id), &name, nullptr) == 0) return {};
    std::string text(name.strings, name.strings_len);
    xcb_ewmh_get_utf8_strings_reply_wipe(&name);
    return text;
  }

  /// Behind Qt's back, for nothing changes but that the window is a new one for the window manager.
  void mapAnew(xcb_window_t id) {
    xcb_unmap_window(connection_, id);
    xcb_map_window(connection_, id);
  }

  /// A panel that was clicked may take the keyboard, but nobody works in it.
  bool isPanel(xcb_window_t id) {
    xcb_ewmh_get_atoms_reply_t types{};
    const auto request = xcb_ewmh_get_wm_window_type(&ewmh_, id);
    if (xcb_ewmh_get_wm_window_type_reply(&ewmh_, request, &types, nullptr) == 0) return false;
    const auto* const end = types.atoms + types.atoms_len;
    const bool panel =
        std::find(static_cast<const xcb_atom_t*>(types.atoms), end, ewmh_._NET_WM_WINDOW_TYPE_DOCK) != end;
    xcb_ewmh_get_atoms_reply_wipe(&types);
    return panel;
  }

  /// What the window manager has been asked for and has not done yet.
  struct Expectation {
    xcb_window_t window;
    bool active;
  };

  void expect(Expectation expectation) {
    if (!managed_) return;
    expectation_ = expectation;
    deadline_.start();
  }

  void settle() {
    if (expectation_->active) asked_.clear();  // from here on it is the user who moves windows
    expectation_.reset();
    deadline_.stop();
    if (onSettled) onSettled();
  }

  /// i3 moves windows that come up, to leave room for a decoration that they then do not get, with each show more.
  void putWhereAsked(xcb_window_t id) {
    const auto asked = asked_.find(id);
    QWidget* const window = asked == asked_.end() ? nullptr : QWidget::find(id);
    // Later, for Qt hands on where the window is after what is told here.
    if (window != nullptr) QTimer::singleShot(0, window, [window, place = asked->second] { window->move(place); });
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
    return isOnCurrentWorkspace(id);
  }

  bool isOnCurrentWorkspace(xcb_window_t id) {
    std::uint32_t workspace = everyWorkspace;
    xcb_ewmh_get_wm_desktop_reply(&ewmh_, xcb_ewmh_get_wm_desktop(&ewmh_, id), &workspace, nullptr);
    return workspace == everyWorkspace || workspace == currentWorkspace();
  }

  static void repaintAll() {
    for (QWidget* const window : QApplication::topLevelWidgets()) window->update();
  }

  xcb_connection_t* connection_;
  SelectionWatch compositorWatch_;
  EscapeKey escapeKey_;
  X11ServerClock clock_;
  xcb_ewmh_connection_t ewmh_{};
  xcb_atom_t stateAtom_;
  xcb_atom_t motifHintsAtom_;
  int screen_;
  xcb_window_t root_;
  bool managed_ = false;                ///< a window manager runs, and tells what it does
  bool focusesNewWindowsOnly_ = false;  ///< it marks others as urgent when they ask for the keyboard
  xcb_window_t active_ = XCB_NONE;      ///< the window that the user works in, by its word
  xcb_window_t previous_ = XCB_NONE;    ///< the last active window that is not ours; none if that is no X11 window
  const bool besideWayland_ = !qEnvironmentVariableIsEmpty("WAYLAND_DISPLAY");  ///< whose windows are none to X11
  std::map<xcb_window_t, QPoint> asked_;  ///< where windows are to come up that are coming up now
  std::optional<Expectation> expectation_;
  QTimer deadline_;
};

}  // namespace

std::unique_ptr<WindowSystem> makeX11WindowSystem(xcb_connection_t* connection) {
  return std::make_unique<X11WindowSystem>(connection);
}

}  // namespace platform::desktop
