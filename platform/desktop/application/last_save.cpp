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

constexpr std::chrono::milliseconds longestSave{5000};  // for which a thread of Qt waits before it ends the process

/// The exit handler and the message handler get no argument: they find it here.
LastSave* current = nullptr;
/// Released when everything is saved. Outlives `current`, for Qt's threads may still be waiting on it.
QSemaphore saved{0};

void saveOnMainThread() {
  if (current != nullptr) current->run();
}

/// Returns when everything is saved: several threads report the same loss, and Qt ends the process after each report.
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
  saved.acquire(saved.available());  // released by an earlier instance
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
