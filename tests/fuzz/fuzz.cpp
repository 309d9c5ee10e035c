// SPDX-License-Identifier: MIT
#include "tests/fuzz/fuzz.h"

#include <QApplication>
#include <algorithm>
#include <cstdint>
#include <cstdio>
#include <map>
#include <optional>
#include <random>
#include <vector>

#include "tests/desktop/scratch.h"

namespace {

/// Gives the bytes to the target that the environment names, and throws what that throws.
void run(const std::string& bytes) {
  static const std::map<std::string_view, void (*)(const std::string&)> targets{
      {"note", fuzz::note}, {"settings", fuzz::settings}, {"appcast", fuzz::appcast}};
  static const auto target = targets.at(std::getenv("FUZZ_TARGET"));
  static const scratch::Folder scratch;
  static int argc = 1;
  static char* argv[] = {std::getenv("FUZZ_TARGET"), nullptr};
  [[maybe_unused]] static const auto* const app = new QApplication(argc, argv);  // for as long as the process
  target(bytes);
  QCoreApplication::processEvents();
}

}  // namespace

/// What the fonts' library keeps until the process ends.
extern "C" const char* __lsan_default_suppressions() { return "leak:libfontconfig"; }

#ifdef FUZZING_ENGINE

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  run(size == 0 ? std::string() : std::string(reinterpret_cast<const char*>(data), size));
  return 0;
}

#else

namespace {

constexpr std::size_t variations = 1000;

/// The property that does not hold for these bytes, if there is one.
std::optional<std::string> failure(const std::string& bytes) {
  try {
    run(bytes);
    return std::nullopt;
  } catch (const std::exception& error) {
    return error.what();
  }
}

std::string shortestThatFails(std::string bytes) {
  for (std::size_t part = bytes.size(); part > 0;) {
    const std::size_t size = bytes.size();
    for (std::size_t at = 0; at < bytes.size(); ++at) {
      const std::string shorter = std::string(bytes).erase(at, part);
      if (failure(shorter)) bytes = shorter;
    }
    if (bytes.size() == size) part = std::min(part - 1, size);
  }
  return bytes;
}

/// Parts of two seeds, some bytes of no seed between them and at the end.
std::string variation(const std::vector<std::string>& seeds, std::mt19937& random) {
  const auto upTo = [&](std::size_t most) { return random() % (most + 1); };
  const std::string& one = seeds[upTo(seeds.size() - 1)];
  const std::string& other = seeds[upTo(seeds.size() - 1)];
  std::string bytes = one.substr(0, upTo(3) == 0 ? upTo(one.size()) : one.npos);
  for (std::size_t left = upTo(4); left > 0; --left) bytes += static_cast<char>(random());
  if (upTo(1) == 0) bytes += other.substr(upTo(other.size()));
  for (std::size_t left = upTo(80); left > 0; --left) bytes += static_cast<char>(random());
  return bytes;
}

}  // namespace

/// In a build without the fuzzing engine: the files of the folder that is the argument, and variations of them, the
/// same ones each time.
int main(int argc, char** argv) {
  std::vector<std::string> seeds;
  for (const auto& seed : std::filesystem::directory_iterator(argc == 2 ? argv[1] : ".")) {
    seeds.push_back(scratch::get(seed.path()).value_or(""));
  }
  std::sort(seeds.begin(), seeds.end());
  std::mt19937 random(1);
  for (std::size_t i = 0; i < seeds.size() + variations; ++i) {
    const std::string bytes = i < seeds.size() ? seeds[i] : variation(seeds, random);
    const auto property = failure(bytes);
    if (!property) continue;
    std::printf("Does not hold: %s\nThe shortest such bytes: ", property->c_str());
    for (const unsigned char c : shortestThatFails(bytes)) std::printf(c > ' ' && c < 127 ? "%c" : "\\x%02X", c);
    return EXIT_FAILURE;
  }
}

#endif
