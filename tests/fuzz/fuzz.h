// SPDX-License-Identifier: MIT
#pragma once

#include <stdexcept>
#include <string>
#include <string_view>

/// What reads bytes from outside. Each target throws if one of its properties does not hold for these bytes. There is a
/// QApplication, and whatever is kept goes below a scratch folder, which is HOME.
namespace fuzz {

void note(const std::string& bytes);
void settings(const std::string& bytes);
void appcast(const std::string& bytes);

inline void require(bool holds, const char* property) {
  if (!holds) throw std::logic_error(property);
}

/// Cuts what stands before the next `end` off the front of `text`, `end` with it.
inline std::string_view cut(std::string_view& text, char end) {
  const std::string_view front = text.substr(0, text.find(end));
  text.remove_prefix(front.size() == text.size() ? front.size() : front.size() + 1);
  return front;
}

}  // namespace fuzz
