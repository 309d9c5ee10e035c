// SPDX-License-Identifier: MIT
#pragma once

#include <QString>
#include <optional>

#include "platform/desktop/text/long_paragraphs.h"

class QKeyEvent;

/// What a key press is to an editor of text.
namespace platform::desktop {

/// Return and its like, whatever is held with them.
bool endsLine(const QKeyEvent&);

/// What the key types: nothing while Control, Alt or Super is held, but for AltGr, which some keyboards report as
/// Control and Alt together.
QString typedText(const QKeyEvent&);

/// On which side of the caret the key changes text; nothing for one that does not.
std::optional<Direction> directionOfEdit(const QKeyEvent&);

}  // namespace platform::desktop
