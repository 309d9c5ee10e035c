// SPDX-License-Identifier: MIT
#include "tests/platform/harness.h"

#include <QApplication>
#include <QDeadlineTimer>
#include <QInputMethodEvent>
#include <QKeyEvent>
#include <QScreen>

#include "platform/application.h"
#include "platform/desktop/views/native_view.h"
#include "platform/desktop/windows/screens.h"
#include "tests/desktop/scratch.h"

namespace platform::harness {
namespace {

QWidget& editor(NSTextView& view) { return *view.native().widget; }
QWidget& frame(NSWindow& window) { return *window.contentView().native().widget->window(); }

}  // namespace

std::shared_ptr<void> makeWorld() {
  struct World {
    scratch::Folder scratch;
    std::shared_ptr<NSApplication> app = NSApplication::sharedApplication();
  };
  auto world = std::make_shared<World>();
  std::filesystem::create_directory(folder());
  return world;
}

void pass(double seconds) {
  const QDeadlineTimer deadline(qint64(seconds * 1000));
  do {
    QCoreApplication::processEvents(QEventLoop::AllEvents, 5);
  } while (!deadline.hasExpired());
}

URL folder() { return URL(std::getenv("HOME")) / "test"; }
void putFile(const URL& url, std::string_view bytes) { scratch::put(url, bytes); }
void putSetting(std::string_view key, std::string_view value) {
  scratch::put(URL(std::getenv("XDG_CONFIG_HOME")) / "Quillberry/settings.json",
               R"({")" + std::string(key) + R"(": ")" + std::string(value) + R"("})");
}

void type(NSTextView& view, std::string_view ascii) {
  for (const char c : ascii) {
    const int key = c == '\n' ? Qt::Key_Return : c == '\x1B' ? Qt::Key_Escape : int(c);
    QKeyEvent event(QEvent::KeyPress, key, Qt::NoModifier, QString(QLatin1Char(c)));
    QCoreApplication::sendEvent(&editor(view), &event);
  }
}
void compose(NSTextView& view, std::string_view text) {
  QInputMethodEvent event(QString::fromUtf8(text.data(), qsizetype(text.size())), {});
  QCoreApplication::sendEvent(&editor(view), &event);
}

NSRect frameOf(NSWindow& window) { return desktop::fromQt(frame(window).geometry()); }
void moveByUser(NSWindow& window, NSRect rect) { frame(window).setGeometry(desktop::toQt(rect)); }
bool isShown(const NSPopover& popover) { return popover.contentViewController()->view()->native().widget->isVisible(); }
NSRect screen() { return desktop::fromQt(QGuiApplication::primaryScreen()->geometry()); }

}  // namespace platform::harness
