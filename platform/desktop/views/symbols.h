// SPDX-License-Identifier: MIT
#pragma once

#include <QColor>
#include <QIcon>
#include <string_view>

class QPainter;
class QRectF;

/// The symbols that the program names, as vector shapes.
namespace platform::desktop {

bool symbolExists(std::string_view name);

/// Draws the symbol into a square with the painter's pen. Draws nothing if there is no such symbol.
void drawSymbol(std::string_view name, QPainter& painter, const QRectF& square);

/// The symbol in every size in which panels show icons.
QIcon symbolIcon(std::string_view name, const QColor& color);

}  // namespace platform::desktop
