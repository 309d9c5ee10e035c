// SPDX-License-Identifier: MIT
#include "platform/frame_autosave.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <sstream>

namespace platform {
namespace {

double overlap(NSRect a, NSRect b) {
  const double width = std::min(a.maxX(), b.maxX()) - std::max(a.minX(), b.minX());
  const double height = std::min(a.maxY(), b.maxY()) - std::max(a.minY(), b.minY());
  return std::max(width, 0.0) * std::max(height, 0.0);
}

NSRect wholeWithin(NSRect frame, NSRect room) {
  frame.size.width = std::min(frame.size.width, room.size.width);
  frame.size.height = std::min(frame.size.height, room.size.height);
  frame.origin.x = std::clamp(frame.origin.x, room.minX(), room.maxX() - frame.size.width);
  frame.origin.y = std::clamp(frame.origin.y, room.minY(), room.maxY() - frame.size.height);
  return frame;
}

}  // namespace

std::string stringFromFrame(const KeptFrame& kept) {
  std::string text;
  for (const NSRect& rect : {kept.window, kept.screen}) {
    for (const double value : {rect.origin.x, rect.origin.y, rect.size.width, rect.size.height}) {
      if (!text.empty()) text += ' ';
      text += std::to_string(std::lround(value));
    }
  }
  return text;
}

std::optional<KeptFrame> frameFromString(std::string_view text) {
  std::istringstream numbers{std::string(text)};
  std::array<int, 8> values{};
  for (int& value : values) {
    if (!(numbers >> value)) return std::nullopt;
  }
  const auto rect = [&](std::size_t first) {
    return NSRect{{double(values[first]), double(values[first + 1])},
                  {double(values[first + 2]), double(values[first + 3])}};
  };
  const KeptFrame kept{rect(0), rect(4)};
  if (kept.window.size.width <= 0 || kept.window.size.height <= 0) return std::nullopt;
  return kept;
}

NSRect frameOnScreens(const KeptFrame& kept, const std::vector<Screen>& screens) {
  const bool sameScreen =
      std::any_of(screens.begin(), screens.end(), [&](const Screen& screen) { return screen.frame == kept.screen; });
  if (sameScreen && overlap(kept.window, screenOfFrame(kept.window, screens).visibleFrame) > 0) return kept.window;
  return frameWholeOnScreens(kept.window, screens);
}

NSRect frameWholeOnScreens(NSRect frame, const std::vector<Screen>& screens) {
  return wholeWithin(frame, screenOfFrame(frame, screens).visibleFrame);
}

const Screen& screenOfFrame(NSRect frame, const std::vector<Screen>& screens) {
  return *std::max_element(screens.begin(), screens.end(), [&](const Screen& a, const Screen& b) {
    return overlap(frame, a.frame) < overlap(frame, b.frame);
  });
}

}  // namespace platform
