// SPDX-License-Identifier: MIT
#pragma once

#include <xcb/damage.h>
#include <xcb/xcb.h>

#include <chrono>
#include <cstdint>
#include <cstdlib>
#include <filesystem>
#include <functional>
#include <memory>
#include <optional>
#include <string_view>
#include <vector>

namespace bench {

using Clock = std::chrono::steady_clock;

struct Free {
  void operator()(void* pointer) const { std::free(pointer); }
};
template <typename T>
using Reply = std::unique_ptr<T, Free>;

double millisecondsSince(Clock::time_point start);

/// In pixels of the root window.
struct Rect {
  int x = 0;
  int y = 0;
  int width = 0;
  int height = 0;

  bool isEmpty() const { return width <= 0 || height <= 0; }
  int area() const { return isEmpty() ? 0 : width * height; }
  Rect intersected(const Rect& other) const;
};

/// A copy of a part of the screen, row by row; a pixel is as the server has it.
struct Picture {
  Rect rect;
  std::vector<std::uint32_t> pixels;

  std::uint32_t at(int x, int y) const;  ///< of a place of the screen inside `rect`
  void save(const std::filesystem::path& file) const;
  static Picture load(const std::filesystem::path& file);
};

/// The first screen of the display, of 32 bits a pixel, and a connection of its own to it. Whatever cannot be had ends
/// the process with a message.
class Screen {
 public:
  Screen();

  Rect bounds() const;
  Picture grab(const Rect& rect) const;
  /// The inside of the active window; empty if there is none.
  Rect activeWindow() const;
  /// Presses the keys in turn and releases them in the opposite order. In the way of "x" or "Control+s".
  void press(std::string_view chord) const;

  /// From now on `waitForEvent` tells of drawing, and of windows that appear.
  void watch();
  /// The next event; null after the deadline.
  Reply<xcb_generic_event_t> waitForEvent(Clock::time_point deadline) const;
  /// What was drawn on, if that is what the event tells.
  std::optional<Rect> drawnOn(const xcb_generic_event_t& event) const;
  /// Whether the event is the first sight of a window that is large enough for a note.
  bool showsWindow(const xcb_generic_event_t& event) const;
  /// Waits until nothing but a caret has been drawn for that long; false if that does not happen in time.
  bool waitUntilStill(std::chrono::milliseconds quiet, std::chrono::milliseconds limit) const;

 private:
  xcb_atom_t atom(std::string_view name) const;
  std::uint8_t keyCode(std::string_view name) const;

  std::unique_ptr<xcb_connection_t, void (*)(xcb_connection_t*)> connection_;
  xcb_screen_t* screen_ = nullptr;
  std::uint8_t firstDamageEvent_ = 0;
};

}  // namespace bench
