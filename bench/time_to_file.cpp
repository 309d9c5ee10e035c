// SPDX-License-Identifier: MIT
// Presses keys one after another and prints the milliseconds from the last of them to a file that has been written and
// closed, or put in its place, and is no smaller than before: some programs first open or empty it.
#include <poll.h>
#include <sys/inotify.h>
#include <unistd.h>

#include <array>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <thread>

#include "bench/screen.h"

namespace {

using bench::Clock;

constexpr std::chrono::milliseconds pauseBetweenKeys{200};  // for a key to be taken; an autosave is to come later
constexpr std::size_t roomForEvents = 64 * 1024;

/// Whether one of the events that are there tells of the file.
bool tellsOf(int watch, const std::string& name) {
  alignas(inotify_event) std::array<char, roomForEvents> events;
  const ssize_t size = read(watch, events.data(), events.size());
  for (ssize_t at = 0; at < size;) {
    const auto& event = *reinterpret_cast<const inotify_event*>(events.data() + at);
    if (event.len > 0 && name == event.name) return true;
    at += static_cast<ssize_t>(sizeof event + event.len);
  }
  return false;
}

bool waitForFile(int watch, const std::filesystem::path& file, std::uintmax_t leastSize, Clock::time_point deadline) {
  const auto before = std::filesystem::last_write_time(file);
  while (true) {
    const auto left = std::chrono::ceil<std::chrono::milliseconds>(deadline - Clock::now()).count();
    pollfd readable{watch, POLLIN, 0};
    if (left <= 0 || poll(&readable, 1, static_cast<int>(left)) <= 0) return false;
    std::error_code error;
    const std::uintmax_t size = tellsOf(watch, file.filename()) ? std::filesystem::file_size(file, error) : 0;
    if (!error && size > 0 && size >= leastSize && std::filesystem::last_write_time(file) != before) return true;
  }
}

}  // namespace

int main(int argc, char** argv) {
  if (argc < 4) return std::fputs("usage: time_to_file seconds file key …\n", stderr), EXIT_FAILURE;
  const bench::Screen screen;
  const std::filesystem::path file = argv[2];
  for (int key = 3; key < argc - 1; ++key) {
    screen.press(argv[key]);
    std::this_thread::sleep_for(pauseBetweenKeys);
  }
  const int watch = inotify_init1(IN_CLOEXEC);
  if (inotify_add_watch(watch, file.parent_path().c_str(), IN_CLOSE_WRITE | IN_MOVED_TO) < 0) {
    return std::perror("time_to_file"), EXIT_FAILURE;
  }
  const std::uintmax_t before = std::filesystem::file_size(file);
  const auto start = Clock::now();
  screen.press(argv[argc - 1]);
  if (!waitForFile(watch, file, before, start + std::chrono::seconds(std::atoi(argv[1])))) {
    return std::fputs("time_to_file: not written in time\n", stderr), EXIT_FAILURE;
  }
  std::printf("%.3f\n", bench::millisecondsSince(start));
}
