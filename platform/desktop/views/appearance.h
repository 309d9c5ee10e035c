// SPDX-License-Identifier: MIT
#pragma once

#include <QColor>
#include <QFont>
#include <QPalette>

#include "platform/color.h"
#include "platform/font.h"

/// The program's named fonts and colours on this desktop.
namespace platform::desktop {

QFont toQFont(const NSFont&);

QColor toQColor(const NSColor&, const QPalette&);
/// For text of less weight than the note's, with a contrast of at least 4.5 : 1.
QColor secondaryTextColor(const QPalette&);
/// A popover's background, slightly different from the note's.
QColor popoverColor(const QPalette&);
/// Black or white, whichever has more contrast to the background.
QColor textColorOn(const QColor& background);
/// The direction of the text's own letters, independent of the desktop's.
Qt::LayoutDirection directionOf(const QString& text);
/// For lines between two surfaces.
QColor hairlineColor(const QPalette&);
/// For the active window's border.
QColor activeBorderColor(const QPalette&);

}  // namespace platform::desktop
