// SPDX-License-Identifier: MIT
// Starts a program and prints its process id and the milliseconds from exec to its first mapped window.
// The program goes on running.
#include <unistd.h>
#include <xcb/xcb.h>

#include <chrono>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <memory>

namespace {

constexpr int smallestWindow = 100;  // pixels; helper windows are smaller

struct Free {
  void operator()(void* pointer) const { std::free(pointer); }
};

bool isLarge(xcb_connection_t* connection, xcb_window_t window) {
  const std::unique_ptr<xcb_get_geometry_reply_t, Free> geometry(
      xcb_get_geometry_reply(connection, xcb_get_geometry(connection, window), nullptr));
  return geometry && geometry->width >= smallestWindow && geometry->height >= smallestWindow;
}

}  // namespace

int main(int argc, char** argv) {
  if (argc < 2) return std::fputs("usage: time_to_map program [argument …]\n", stderr), EXIT_FAILURE;
  xcb_connection_t* const connection = xcb_connect(nullptr, nullptr);
  if (xcb_connection_has_error(connection)) return std::fputs("time_to_map: no display\n", stderr), EXIT_FAILURE;
  const xcb_window_t root = xcb_setup_roots_iterator(xcb_get_setup(connection)).data->root;
  const std::uint32_t mask = XCB_EVENT_MASK_SUBSTRUCTURE_NOTIFY;
  const std::unique_ptr<xcb_generic_error_t, Free> refused(
      xcb_request_check(connection, xcb_change_window_attributes_checked(connection, root, XCB_CW_EVENT_MASK, &mask)));
  if (refused) return EXIT_FAILURE;

  const auto start = std::chrono::steady_clock::now();
  const pid_t program = fork();
  if (program == 0) {
    dup2(STDERR_FILENO, STDOUT_FILENO);  // ours ends with us, for whoever reads it
    execv(argv[1], argv + 1);
    _exit(127);
  }
  while (const std::unique_ptr<xcb_generic_event_t, Free> event{xcb_wait_for_event(connection)}) {
    if ((event->response_type & 0x7FU) != XCB_MAP_NOTIFY) continue;
    const auto now = std::chrono::steady_clock::now();
    if (!isLarge(connection, reinterpret_cast<xcb_map_notify_event_t*>(event.get())->window)) continue;
    std::printf("%d %.2f\n", program, std::chrono::duration<double, std::milli>(now - start).count());
    break;
  }
  xcb_disconnect(connection);
}
