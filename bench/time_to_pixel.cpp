// SPDX-License-Identifier: MIT
// Presses a key in the active window so many times, each undone with BackSpace, and prints the milliseconds from each
// press to the first pixel of the window that is another one.
#include <cstdio>
#include <cstdlib>

#include "bench/screen.h"

namespace {

using bench::Clock;
using bench::Picture;
using bench::Rect;
using bench::Screen;

constexpr std::chrono::milliseconds longestAnswer{5000};
constexpr std::chrono::milliseconds pauseBetweenKeys{40};  // between two keys, on a screen that is still

bool changed(const Picture& before, const Picture& now) {
  for (int y = now.rect.y; y < now.rect.y + now.rect.height; ++y) {
    for (int x = now.rect.x; x < now.rect.x + now.rect.width; ++x) {
      if (before.at(x, y) != now.at(x, y)) return true;
    }
  }
  return false;
}

/// Negative if nothing changes in time.
double timeToPixel(const Screen& screen, const Rect& window) {
  const Picture before = screen.grab(window);
  const auto start = Clock::now();
  screen.press("x");
  while (const auto event = screen.waitForEvent(start + longestAnswer)) {
    const double elapsed = bench::millisecondsSince(start);
    const auto drawn = screen.drawnOn(*event);
    if (!drawn) continue;
    const Rect seen = drawn->intersected(window);
    if (!seen.isEmpty() && changed(before, screen.grab(seen))) return elapsed;
  }
  return -1;
}

}  // namespace

int main(int argc, char** argv) {
  if (argc != 2) return std::fputs("usage: time_to_pixel times\n", stderr), EXIT_FAILURE;
  Screen screen;
  screen.watch();
  const Rect window = screen.activeWindow();
  if (window.isEmpty()) return std::fputs("time_to_pixel: there is no active window\n", stderr), EXIT_FAILURE;
  for (int left = std::atoi(argv[1]); left > 0; --left) {
    screen.waitUntilStill(pauseBetweenKeys, longestAnswer);
    const double elapsed = timeToPixel(screen, window);
    if (elapsed < 0) return std::fputs("time_to_pixel: no answer to a key\n", stderr), EXIT_FAILURE;
    std::printf("%.3f\n", elapsed);
    screen.waitUntilStill(pauseBetweenKeys, longestAnswer);
    screen.press("BackSpace");
  }
}
