// SPDX-License-Identifier: MIT
#pragma once

#include <QString>
#include <optional>

class QMimeData;

namespace platform::desktop {

/// Whether there is plain text in what is pasted or dropped. Goes by its formats alone: its data may be long in coming.
bool offersText(const QMimeData&);

/// The plain text of what is pasted or dropped, as its own bytes say it; nothing where there is none.
std::optional<QString> offeredText(const QMimeData&);

}  // namespace platform::desktop
