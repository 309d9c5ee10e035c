// SPDX-License-Identifier: MIT
#include <filesystem>

#include "tests/desktop/scratch.h"
#include "tests/fuzz/fuzz.h"

/// Runs a fuzzer once over each file of the folder that is its argument, in a build without the fuzzing engine.
int main(int argc, char** argv) {
  namespace fs = std::filesystem;
  int seeds = 0;
  for (const auto& seed : fs::directory_iterator(argc == 2 ? argv[1] : ".")) {
    const std::string bytes = scratch::get(seed.path()).value_or("");
    std::printf("%s\n", seed.path().filename().c_str());
    std::fflush(stdout);
    LLVMFuzzerTestOneInput(reinterpret_cast<const std::uint8_t*>(bytes.data()), bytes.size());
    ++seeds;
  }
  return seeds == 0 ? EXIT_FAILURE : EXIT_SUCCESS;
}
