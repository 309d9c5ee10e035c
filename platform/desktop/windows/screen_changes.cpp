// SPDX-License-Identifier: MIT
#include "platform/desktop/windows/screen_changes.h"

#include <QGuiApplication>
#include <QScreen>
#include <chrono>
#include <utility>

namespace platform::desktop {
namespace {

constexpr std::chrono::milliseconds quiet{250};  // panels and window managers answer to a change one after the other

}  // namespace

ScreenChanges::ScreenChanges(std::function<void()> changed) {
  settled_.setSingleShot(true);
  settled_.setInterval(quiet);
  connect(&settled_, &QTimer::timeout, this, std::move(changed));
  const auto settleLater = [this] { settled_.start(); };
  connect(qGuiApp, &QGuiApplication::screenAdded, this, [this, settleLater](QScreen* screen) {
    watch(*screen);
    settleLater();
  });
  connect(qGuiApp, &QGuiApplication::screenRemoved, this, settleLater);
  connect(qGuiApp, &QGuiApplication::primaryScreenChanged, this, settleLater);
  for (QScreen* const screen : QGuiApplication::screens()) watch(*screen);
}

void ScreenChanges::watch(QScreen& screen) {
  const auto settleLater = [this] { settled_.start(); };
  connect(&screen, &QScreen::geometryChanged, this, settleLater);
  connect(&screen, &QScreen::availableGeometryChanged, this, settleLater);
}

}  // namespace platform::desktop
