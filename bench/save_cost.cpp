// SPDX-License-Identifier: MIT
// Prints the medians, in milliseconds, of saving a 1 MB note and of the bare write, sync and rename, taken in turns.
#include <fcntl.h>
#include <unistd.h>

#include <algorithm>
#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <string>
#include <vector>

#include "platform/desktop/files/atomic_file.h"

namespace {

constexpr int rounds = 51;
const std::string text(1 << 20, 'x');

bool bareSave(const std::filesystem::path& file) {
  const std::filesystem::path other = file.string() + ".new";
  const int fd = open(other.c_str(), O_WRONLY | O_CREAT | O_TRUNC | O_CLOEXEC, 0600);
  const bool written =
      fd >= 0 && write(fd, text.data(), text.size()) == static_cast<ssize_t>(text.size()) && fsync(fd) == 0;
  if (fd >= 0) close(fd);
  return written && std::rename(other.c_str(), file.c_str()) == 0;
}

template <typename Save>
void timeInto(std::vector<double>& times, Save save) {
  const auto start = std::chrono::steady_clock::now();
  if (!save()) std::exit(EXIT_FAILURE);
  times.push_back(std::chrono::duration<double, std::milli>(std::chrono::steady_clock::now() - start).count());
}

double median(std::vector<double> times) {
  std::nth_element(times.begin(), times.begin() + rounds / 2, times.end());
  return times[rounds / 2];
}

}  // namespace

int main(int argc, char** argv) {
  if (argc != 2) return std::fputs("usage: save_cost folder\n", stderr), EXIT_FAILURE;
  const std::filesystem::path folder = argv[1];
  std::vector<double> ours;
  std::vector<double> bare;
  for (int round = 0; round < rounds; ++round) {
    timeInto(ours, [&] { return !platform::desktop::replaceFile(folder / "ours", text); });
    timeInto(bare, [&] { return bareSave(folder / "bare"); });
  }
  std::printf("%.3f %.3f\n", median(ours), median(bare));
}
