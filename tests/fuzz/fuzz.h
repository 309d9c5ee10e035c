// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <string>
#include <string_view>

/// What a fuzzer defines: it checks that its properties hold for these bytes. Returns 0.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size);

namespace fuzz {

inline std::string bytesOf(const std::uint8_t* data, std::size_t size) {
  return size == 0 ? std::string() : std::string(reinterpret_cast<const char*>(data), size);
}

/// Ends the process with `property` as the reason if it does not hold.
inline void require(bool holds, const char* property) {
  if (holds) return;
  std::fprintf(stderr, "Does not hold: %s\n", property);
  std::abort();
}

/// Cuts what stands before the next `end` off the front of `text`, `end` with it.
inline std::string_view cut(std::string_view& text, char end) {
  const std::string_view front = text.substr(0, text.find(end));
  text.remove_prefix(front.size() == text.size() ? front.size() : front.size() + 1);
  return front;
}

}  // namespace fuzz
