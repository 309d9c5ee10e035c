// SPDX-License-Identifier: MIT
#include "platform/desktop/application/termination_signals.h"

#include <fcntl.h>

#include <array>
#include <cerrno>
#include <csignal>

namespace platform::desktop {
namespace {

constexpr std::array handledSignals{SIGTERM, SIGINT, SIGHUP};

volatile std::sig_atomic_t signalPipe = -1;

void writeToPipe(int /*signal*/) {
  const int savedErrno = errno;
  // A full pipe is fine: the one byte that counts is in it.
  [[maybe_unused]] const auto written = write(signalPipe, "", 1);
  errno = savedErrno;
}

/// A signal that was ignored at the start, by nohup for example, stays ignored.
void handleSignals(void (*handler)(int)) {
  struct sigaction action {};
  action.sa_handler = handler;
  action.sa_flags = SA_RESTART;
  for (const int signal : handledSignals) {
    struct sigaction before {};
    sigaction(signal, nullptr, &before);
    if (before.sa_handler != SIG_IGN) sigaction(signal, &action, nullptr);
  }
}

}  // namespace

TerminationSignals::TerminationSignals() {
  std::array<int, 2> ends{-1, -1};
  if (pipe2(ends.data(), O_CLOEXEC | O_NONBLOCK) != 0) return;
  readEnd_ = UniqueFd(ends[0]);
  writeEnd_ = UniqueFd(ends[1]);
  signalPipe = ends[1];
  handleSignals(writeToPipe);
}

TerminationSignals::~TerminationSignals() {
  if (writeEnd_) handleSignals(SIG_DFL);
  signalPipe = -1;
}

void TerminationSignals::deliverTo(std::function<void()> terminate) {
  if (!readEnd_) return;
  notifier_ = std::make_unique<QSocketNotifier>(readEnd_.get(), QSocketNotifier::Read);
  QObject::connect(notifier_.get(), &QSocketNotifier::activated, [this, terminate = std::move(terminate)] {
    std::array<char, 64> bytes{};
    [[maybe_unused]] const auto got = read(readEnd_.get(), bytes.data(), bytes.size());
    terminate();
  });
}

}  // namespace platform::desktop
