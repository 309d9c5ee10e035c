#pragma once

#include <QColor>
#include <QFont>
#include <QPalette>

#include "platform/color.h"
#include "platform/font.h"

/// What the program's named fonts and colours are on this desktop.
namespace platform::desktop {

QFont toQFont(const NSFont&);
/// The system font at `pixelSize` device-independent pixels.
QFont systemFont(int pixelSize, QFont::Weight);

QColor toQColor(NSColor, const QPalette&);
/// For text beside the note's own: readable (4.5 : 1), but behind it.
QColor secondaryTextColor(const QPalette&);
/// For lines that part one surface from another.
QColor hairlineColor(const QPalette&);

}  // namespace platform::desktop
