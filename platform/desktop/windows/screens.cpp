// SPDX-License-Identifier: MIT
#include "platform/desktop/windows/screens.h"

#include <QGuiApplication>
#include <QScreen>
#include <algorithm>
#include <chrono>
#include <utility>

namespace platform::desktop {
namespace {

constexpr std::chrono::milliseconds quiet{250};  // panels and window managers react to a change one after another

/// The lower edge of the first screen, in Qt's coordinates.
double ground() { return QGuiApplication::primaryScreen()->geometry().bottom() + 1; }

}  // namespace

NSRect fromQt(const QRect& rect) {
  return {{double(rect.x()), ground() - rect.y() - rect.height()}, {double(rect.width()), double(rect.height())}};
}

QRect toQt(NSRect rect) {
  return QRectF(rect.minX(), ground() - rect.maxY(), rect.size.width, rect.size.height).toRect();
}

QRect roomOf(const QScreen& screen) {
  // X11 has one work area for all screens. A panel between two of them can take the whole of one away.
  const QRect room = screen.availableGeometry();
  return room.isEmpty() ? screen.geometry() : room;
}

std::vector<Screen> screens() {
  const QList<QScreen*> connected = QGuiApplication::screens();
  std::vector<Screen> all;
  for (const QScreen* const screen : connected) {
    const QRect room = connected.size() == 1 ? roomOf(*screen) : screen->geometry();
    all.push_back({fromQt(screen->geometry()), fromQt(room)});
  }
  return all;
}

QRect wholeOnScreens(const QRect& frame) { return toQt(frameWholeOnScreens(fromQt(frame), screens())); }

ScreenChanges::ScreenChanges(std::function<void(const QScreen&)> removed, std::function<void()> settled) {
  settled_.setSingleShot(true);
  settled_.setInterval(quiet);
  connect(&settled_, &QTimer::timeout, this, std::move(settled));
  connect(qGuiApp, &QGuiApplication::screenAdded, this, [this](QScreen* screen) {
    watch(*screen);
    change();
  });
  connect(qGuiApp, &QGuiApplication::screenRemoved, this, [this, removed = std::move(removed)](QScreen* screen) {
    removed(*screen);
    change();
  });
  connect(qGuiApp, &QGuiApplication::primaryScreenChanged, this, &ScreenChanges::change);
  for (QScreen* const screen : QGuiApplication::screens()) watch(*screen);
}

void ScreenChanges::watch(QScreen& screen) {
  connect(&screen, &QScreen::geometryChanged, this, &ScreenChanges::change);
  connect(&screen, &QScreen::availableGeometryChanged, this, &ScreenChanges::change);
}

void ScreenChanges::change() { settled_.start(); }

bool Home::isBack() const {
  const QList<QScreen*> connected = QGuiApplication::screens();
  return std::any_of(connected.begin(), connected.end(),
                     [this](const QScreen* each) { return each->name() == screen && each->geometry() == screenFrame; });
}

}  // namespace platform::desktop
