// SPDX-License-Identifier: MIT
#include "platform/desktop/text/caret_rest.h"

#include <QGuiApplication>
#include <QStyleHints>
#include <chrono>
#include <utility>

namespace platform::desktop {
namespace {

constexpr std::chrono::seconds blinkingTime{10};
constexpr int neverBlinks = 0;
constexpr int asTheDesktopHasIt = -1;  // takes back what was set before

}  // namespace

CaretRest::CaretRest(QObject& editor) : untilRest_(&editor) {
  untilRest_.setObjectName(QStringLiteral("caretRest"));
  untilRest_.setSingleShot(true);
  untilRest_.setInterval(blinkingTime);
  untilRest_.callOnTimeout([this] {
    rests_ = true;
    // Qt's editors know one setting for all of them; ours is the only one in the program.
    QGuiApplication::styleHints()->setCursorFlashTime(neverBlinks);
  });
}

void CaretRest::blink() {
  end();
  if (QGuiApplication::styleHints()->cursorFlashTime() != neverBlinks) untilRest_.start();
}

void CaretRest::end() {
  untilRest_.stop();
  if (std::exchange(rests_, false)) QGuiApplication::styleHints()->setCursorFlashTime(asTheDesktopHasIt);
}

}  // namespace platform::desktop
