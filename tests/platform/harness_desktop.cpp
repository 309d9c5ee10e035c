// SPDX-License-Identifier: MIT
#include "tests/platform/harness.h"

#include <QAbstractButton>
#include <QApplication>
#include <QElapsedTimer>
#include <QInputMethodEvent>
#include <QKeyEvent>
#include <QPlainTextEdit>
#include <QScreen>
#include <algorithm>

#include "platform/application.h"
#include "platform/desktop/views/native_view.h"
#include "platform/desktop/windows/screens.h"
#include "tests/desktop/scratch.h"

namespace platform::harness {
namespace {

QPlainTextEdit& editor(NSTextView& view) { return static_cast<QPlainTextEdit&>(*view.native().widget); }
QWidget& frame(NSWindow& window) { return *window.contentView().native().widget->window(); }

void press(QWidget& widget, int key, const QString& text) {
  QKeyEvent event(QEvent::KeyPress, key, Qt::NoModifier, text);
  QCoreApplication::sendEvent(&widget, &event);
}

}  // namespace

struct World::Parts {
  scratch::Folder scratch;
  std::shared_ptr<NSApplication> app = NSApplication::sharedApplication();
};

World::World() : parts(std::make_unique<Parts>()) { putFile(folder() / "there", ""); }
World::~World() = default;

void pass(double seconds) {
  QElapsedTimer clock;
  clock.start();
  do {
    QCoreApplication::processEvents(QEventLoop::AllEvents, 5);
  } while (clock.elapsed() < static_cast<qint64>(seconds * 1000));
}

void putFile(const URL& url, std::string_view bytes) { scratch::put(url, bytes); }
std::optional<std::string> fileAt(const URL& url) { return scratch::get(url); }

std::vector<std::string> namesIn(const URL& folder) {
  std::vector<std::string> names;
  for (const auto& entry : std::filesystem::directory_iterator(folder)) names.push_back(entry.path().filename());
  std::sort(names.begin(), names.end());
  return names;
}

URL folder() { return URL(std::getenv("HOME")) / "test"; }

void putSetting(std::string_view key, const DefaultsValue& value) {
  struct Json {
    std::string operator()(bool b) const { return b ? "true" : "false"; }
    std::string operator()(double d) const { return std::to_string(d); }
    std::string operator()(const std::string& s) const { return '"' + s + '"'; }
    std::string operator()(OtherValue /*other*/) const { return "[1, null]"; }
  };
  scratch::put(URL(std::getenv("XDG_CONFIG_HOME")) / "Quillberry/settings.json",
               "{\"" + std::string(key) + "\": " + std::visit(Json(), value) + "}");
}

void type(NSTextView& view, std::string_view ascii) {
  for (const char c : ascii) press(editor(view), c == '\n' ? int(Qt::Key_Return) : int(c), QString(QLatin1Char(c)));
}

void pressEscape(NSTextView& view) { press(editor(view), Qt::Key_Escape, QStringLiteral("\x1B")); }
void undo(NSTextView& view) { editor(view).undo(); }
void redo(NSTextView& view) { editor(view).redo(); }

void compose(NSTextView& view, std::string_view text) {
  QInputMethodEvent event(QString::fromUtf8(text.data(), qsizetype(text.size())), {});
  QCoreApplication::sendEvent(&editor(view), &event);
}

NSRect frameOf(NSWindow& window) { return desktop::fromQt(frame(window).geometry()); }
void moveByUser(NSWindow& window, NSRect rect) { frame(window).setGeometry(desktop::toQt(rect)); }
void pressCloseButton(NSWindow& window) {
  for (auto* const button : frame(window).findChildren<QAbstractButton*>()) {
    if (button->accessibleName() == QLatin1String("Close")) button->click();
  }
}
bool isShown(const NSPopover& popover) { return popover.contentViewController()->view()->native().widget->isVisible(); }
NSRect screen() { return desktop::fromQt(QGuiApplication::primaryScreen()->geometry()); }

}  // namespace platform::harness
