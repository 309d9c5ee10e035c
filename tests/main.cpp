// SPDX-License-Identifier: MIT
#include <gtest/gtest.h>
#include <unistd.h>

#include <cstdlib>
#include <string>
#include <string_view>
#include <vector>

namespace {

/// The tests' own environment: of the caller's only what finds programs and sets sanitizers stays. Desktop, display,
/// buses, home, language, fonts and time zone are none of the caller's.
void takeOwnEnvironment() {
  static std::vector<std::string> kept;
  for (char** variable = environ; *variable != nullptr; ++variable) {
    const std::string_view text(*variable);
    if (text.starts_with("PATH=") || text.find("SAN_OPTIONS=") != text.npos) kept.emplace_back(text);
  }
  clearenv();
  for (std::string& variable : kept) putenv(variable.data());
  setenv("HOME", "/nonexistent", 1);
  setenv("LC_ALL", "C", 1);
  setenv("TZ", "UTC", 1);
  setenv("FONTCONFIG_FILE", FONTS, 1);
  setenv("QT_QPA_PLATFORM", "offscreen", 1);
}

}  // namespace

int main(int argc, char** argv) {
  takeOwnEnvironment();
  testing::InitGoogleTest(&argc, argv);
  return RUN_ALL_TESTS();
}
