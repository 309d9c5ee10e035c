// SPDX-License-Identifier: MIT
#pragma once

#include <QColor>
#include <QFont>
#include <QPalette>

#include "platform/color.h"
#include "platform/font.h"

/// What the program's named fonts and colours are on this desktop.
namespace platform::desktop {

QFont toQFont(const NSFont&);

QColor toQColor(const NSColor&, const QPalette&);
/// For text beside the note's own: readable (4.5 : 1), but behind it.
QColor secondaryTextColor(const QPalette&);
/// Of a popover, hardly set apart from the note.
QColor popoverColor(const QPalette&);
/// Dark or light, whichever is read better on that background.
QColor textColorOn(const QColor& background);
/// The direction of a text by its own letters, whichever the desktop has.
Qt::LayoutDirection directionOf(const QString& text);
/// For lines that part one surface from another.
QColor hairlineColor(const QPalette&);
/// For the border of the window that has the keyboard.
QColor activeBorderColor(const QPalette&);

}  // namespace platform::desktop
