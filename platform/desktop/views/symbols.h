// SPDX-License-Identifier: MIT
#pragma once

#include <QColor>
#include <QIcon>
#include <string_view>

class QPainter;
class QRectF;

/// The system's symbols, drawn as shapes.
namespace platform::desktop {

bool symbolExists(std::string_view name);

/// Draws the symbol into a square, in the painter's pen's colour. One that does not exist draws nothing.
void drawSymbol(std::string_view name, QPainter& painter, const QRectF& square);

/// The symbol in every size in which panels show icons.
QIcon symbolIcon(std::string_view name, const QColor& colour);

}  // namespace platform::desktop
