// SPDX-License-Identifier: MIT
// Copies the screen to a file once nothing but a caret has been drawn for a second.
#include <cstdio>
#include <cstdlib>

#include "bench/screen.h"

int main(int argc, char** argv) {
  if (argc != 3) return std::fputs("usage: take_picture seconds file\n", stderr), EXIT_FAILURE;
  bench::Screen screen;
  screen.watch();
  if (!screen.waitUntilStill(std::chrono::seconds(1), std::chrono::seconds(std::atoi(argv[1])))) {
    return std::fputs("take_picture: the screen is never still\n", stderr), EXIT_FAILURE;
  }
  screen.grab(screen.bounds()).save(argv[2]);
}
