// SPDX-License-Identifier: MIT
// Starts a program and prints its process id, the milliseconds from exec to its first mapped window, and those to its
// text on the screen. Two pictures of such a start, one without text and one with it, tell what is text; without them,
// or where it does not come in time, there is a 0. The program goes on running.
#include <unistd.h>

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <utility>
#include <vector>

#include "bench/screen.h"

namespace {

using bench::Clock;
using bench::Picture;
using bench::Rect;
using bench::Screen;

constexpr double enough = 0.7;          // of the text's pixels: a scroll bar may still change
constexpr std::size_t leastInk = 3000;  // pixels; less is a title

/// The pixels that only a start with text has.
class Ink {
 public:
  Ink(const Picture& empty, Picture full) : full_(std::move(full)) {
    int left = full_.rect.width;
    int top = full_.rect.height;
    int right = 0;
    int bottom = 0;
    for (int y = 0; y < full_.rect.height; ++y) {
      for (int x = 0; x < full_.rect.width; ++x) {
        if (empty.at(x, y) == full_.at(x, y)) continue;
        places_.emplace_back(x, y);
        left = std::min(left, x);
        top = std::min(top, y);
        right = std::max(right, x + 1);
        bottom = std::max(bottom, y + 1);
      }
    }
    bounds_ = {left, top, right - left, bottom - top};
  }

  bool isText() const { return places_.size() >= leastInk; }

  bool isOn(const Screen& screen) const {
    const Picture now = screen.grab(bounds_);
    const auto same = std::count_if(places_.begin(), places_.end(), [&](const auto& place) {
      return now.at(place.first, place.second) == full_.at(place.first, place.second);
    });
    return static_cast<double>(same) >= enough * static_cast<double>(places_.size());
  }

 private:
  Picture full_;
  Rect bounds_;
  std::vector<std::pair<int, int>> places_;
};

pid_t start(char** command) {
  const pid_t program = fork();
  if (program == 0) {
    dup2(STDERR_FILENO, STDOUT_FILENO);  // ours ends with us, for whoever reads it
    execvp(command[0], command);
    _exit(127);
  }
  return program;
}

/// Zeroes for what does not come in time.
std::pair<double, double> watchStart(const Screen& screen, const Ink* ink, Clock::time_point begin,
                                     Clock::time_point deadline) {
  double mapped = 0;
  while (const auto event = screen.waitForEvent(deadline)) {
    if (mapped == 0) {
      const double now = bench::millisecondsSince(begin);
      if (screen.showsWindow(*event)) mapped = now;
    }
    if (mapped == 0) continue;
    if (ink == nullptr) break;
    if (screen.drawnOn(*event) && ink->isOn(screen)) return {mapped, bench::millisecondsSince(begin)};
  }
  return {mapped, 0};
}

}  // namespace

int main(int argc, char** argv) {
  const bool text = argc > 4 && std::strcmp(argv[2], "--text") == 0;
  if (argc < (text ? 6 : 3)) {
    return std::fputs("usage: time_to_show seconds [--text empty full] program [argument …]\n", stderr), EXIT_FAILURE;
  }
  Screen screen;
  const std::chrono::seconds limit(std::atoi(argv[1]));
  const Ink ink = text ? Ink(Picture::load(argv[3]), Picture::load(argv[4])) : Ink({}, {});
  screen.watch();
  const auto begin = Clock::now();
  const pid_t program = start(argv + (text ? 5 : 2));
  const auto [mapped, shown] = watchStart(screen, ink.isText() ? &ink : nullptr, begin, begin + limit);
  std::printf("%d %.2f %.2f\n", program, mapped, shown);
}
