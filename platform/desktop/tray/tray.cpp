// SPDX-License-Identifier: MIT
#include "platform/desktop/tray/tray.h"

#include <QGuiApplication>
#include <QScreen>
#include <algorithm>
#include <utility>

#include "platform/application_metadata.h"
#include "platform/desktop/base/strings.h"
#include "platform/desktop/views/symbols.h"
#include "platform/desktop/windows/screens.h"

namespace platform::desktop {
namespace {

// Panels may be light or dark, independent of the palette: this has a contrast of 3 : 1 on white and on #303030.
const QColor colourForAnyPanel(0x88, 0x88, 0x88);

/// A symbolic icon of the theme, which StatusNotifier hosts draw in their own colours.
QIcon iconFor(const std::optional<NSImage>& image, TrayHosts::Kind kind) {
  if (!image) return {};
  const QIcon drawn = symbolIcon(image->symbolName, colourForAnyPanel);
  const QString name = toQString(metadata::identifier) + QStringLiteral("-symbolic");
  const bool themed = kind == TrayHosts::Kind::StatusNotifier && QIcon::hasThemeIcon(name);
  return themed ? QIcon::fromTheme(name, drawn) : drawn;
}

/// The first screen that has a panel, else the primary one.
const QScreen& screenWithPanel() {
  const QList<QScreen*> screens = QGuiApplication::screens();
  const auto found = std::find_if(screens.begin(), screens.end(),
                                  [](const QScreen* screen) { return roomOf(*screen) != screen->geometry(); });
  return found == screens.end() ? *QGuiApplication::primaryScreen() : **found;
}

/// The end of the panel in reading direction, or the lower end of one at a side. A screen without panels counts as one
/// with a panel at the top.
QRect endOfPanel() {
  const QScreen& screen = screenWithPanel();
  const QRect whole = screen.geometry();
  const QRect room = roomOf(screen);
  const bool above = room.top() > whole.top();
  const bool below = room.bottom() < whole.bottom();
  if (!above && !below && room.left() > whole.left()) return {whole.bottomLeft(), QSize(1, 1)};
  if (!above && !below && room.right() < whole.right()) return {whole.bottomRight(), QSize(1, 1)};
  const int end = QGuiApplication::isRightToLeft() ? whole.left() : whole.right();
  return {QPoint(end, below && !above ? whole.bottom() : whole.top()), QSize(1, 1)};
}

}  // namespace

Tray::Tray(Bus& sessionBus, std::optional<NSImage> image, QMenu& menu, std::function<void()> onPrimaryClick,
           std::function<void(bool)> onChange)
    : image_(std::move(image)),
      menu_(menu),
      onPrimaryClick_(std::move(onPrimaryClick)),
      onChange_(std::move(onChange)),
      hosts_(sessionBus, [this] { hostsChanged(); }) {}

void Tray::hostsChanged() {
  if (!kind_) {
    if (hosts_.has(TrayHosts::Kind::StatusNotifier)) {
      kind_ = TrayHosts::Kind::StatusNotifier;
    } else if (hosts_.has(TrayHosts::Kind::XEmbed)) {
      kind_ = TrayHosts::Kind::XEmbed;
    }
  }
  const bool present = kind_ && hosts_.has(*kind_);
  if (!present) {
    item_.reset();
  } else if (!item_) {
    showItem(*kind_);
  }
  onChange_(present);
}

std::optional<Anchor> Tray::anchor() const {
  if (!item_) return std::nullopt;
  const QRect told = item_->geometry();
  // Until an XEmbed tray has taken the icon, Qt tells of the screen's corner.
  const bool known = !told.isEmpty() && !told.topLeft().isNull();
  return known ? Anchor{told, true} : Anchor{endOfPanel(), false};
}

void Tray::showItem(TrayHosts::Kind kind) {
  item_ = std::make_unique<QSystemTrayIcon>(iconFor(image_, kind));
  item_->setToolTip(toQString(metadata::name));
  item_->setContextMenu(&menu_);
  QObject::connect(item_.get(), &QSystemTrayIcon::activated, [this](QSystemTrayIcon::ActivationReason reason) {
    // The second of two quick clicks comes as a double click.
    if (reason == QSystemTrayIcon::Trigger || reason == QSystemTrayIcon::DoubleClick) onPrimaryClick_();
  });
  item_->show();
}

}  // namespace platform::desktop
