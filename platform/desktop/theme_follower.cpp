// SPDX-License-Identifier: MIT
#include "platform/desktop/theme_follower.h"

#include <QApplication>
#include <QStyle>

namespace platform::desktop {

ThemeFollower::ThemeFollower() : styleNamesTheColors_(QApplication::palette() == qApp->style()->standardPalette()) {
  qApp->installEventFilter(this);
}

bool ThemeFollower::eventFilter(QObject* watched, QEvent* event) {
  if (event->type() == QEvent::ThemeChange && styleNamesTheColors_) {
    QApplication::setPalette(qApp->style()->standardPalette());
  }
  return QObject::eventFilter(watched, event);
}

}  // namespace platform::desktop
