// SPDX-License-Identifier: MIT
#include "platform/utf8.h"

#include <cstdint>

namespace platform {
namespace {

std::uint8_t byteAt(std::string_view text, std::size_t index) { return static_cast<std::uint8_t>(text[index]); }

bool isContinuation(std::uint8_t byte) { return (byte & 0xC0) == 0x80; }

/// The length of the well-formed sequence at the front of `text`, or 0. The bounds of the second byte rule out
/// overlong forms (E0, F0), surrogates (ED) and what lies above U+10FFFF (F4).
std::size_t sequenceLength(std::string_view text) {
  const std::uint8_t lead = byteAt(text, 0);
  if (lead < 0x80) return 1;
  if (lead < 0xC2 || lead > 0xF4) return 0;
  const std::size_t length = lead < 0xE0 ? 2 : lead < 0xF0 ? 3 : 4;
  if (text.size() < length) return 0;
  const std::uint8_t lowest = lead == 0xE0 ? 0xA0 : lead == 0xF0 ? 0x90 : 0x80;
  const std::uint8_t highest = lead == 0xED ? 0x9F : lead == 0xF4 ? 0x8F : 0xBF;
  const std::uint8_t second = byteAt(text, 1);
  if (second < lowest || second > highest) return 0;
  for (std::size_t i = 2; i < length; ++i) {
    if (!isContinuation(byteAt(text, i))) return 0;
  }
  return length;
}

}  // namespace

bool isValidUtf8(std::string_view text) {
  while (!text.empty()) {
    const std::size_t length = sequenceLength(text);
    if (length == 0) return false;
    text.remove_prefix(length);
  }
  return true;
}

std::size_t utf16Length(std::string_view validUtf8) {
  std::size_t units = 0;
  for (const char c : validUtf8) {
    const auto byte = static_cast<std::uint8_t>(c);
    if (!isContinuation(byte)) units += byte >= 0xF0 ? 2 : 1;
  }
  return units;
}

}  // namespace platform
