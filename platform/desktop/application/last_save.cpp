// SPDX-License-Identifier: MIT
#include "platform/desktop/application/last_save.h"

#include <QCoreApplication>
#include <QGuiApplication>
#include <QSemaphore>
#include <QThread>
#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <utility>

namespace platform::desktop {
namespace {

constexpr std::chrono::milliseconds longestSave{5000};  // that a thread of Qt waits for before it ends us

/// For the exit handler and the warnings of Qt's threads, which get no argument.
LastSave* current = nullptr;
/// Free once all is saved; Qt's threads may wait for that while `current` goes.
QSemaphore saved{0};

void saveOnMainThread() {
  if (current != nullptr) current->run();
}

/// Comes back when all is saved: several threads warn of the same loss, and Qt ends the process after any.
void saveFromAnyThread() {
  if (saved.available() > 0) return;
  if (QThread::currentThread() == qApp->thread()) return saveOnMainThread();
  QMetaObject::invokeMethod(qApp, saveOnMainThread);
  if (saved.tryAcquire(1, static_cast<int>(longestSave.count()))) saved.release();
}

/// Stays installed to the end of the process: any thread may be in it.
void hearLastWarning(QtMsgType type, const QMessageLogContext& context, const QString& message) {
  std::fprintf(stderr, "%s\n", qPrintable(qFormatLogMessage(type, context, message)));
  if (message.startsWith(QLatin1String("The Wayland connection"))) saveFromAnyThread();
}

}  // namespace

LastSave::LastSave(std::function<void()> save) : save_(std::move(save)) {
  saved.acquire(saved.available());  // left by one before
  current = this;
}

LastSave::~LastSave() { current = nullptr; }

bool LastSave::run() {
  if (std::exchange(done_, true)) return false;
  save_();
  saved.release();
  return true;
}

void LastSave::runAtLossOfDisplay() {
  std::atexit(saveOnMainThread);
  if (QGuiApplication::platformName().startsWith(QLatin1String("wayland"))) qInstallMessageHandler(hearLastWarning);
}

}  // namespace platform::desktop
