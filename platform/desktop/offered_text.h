// SPDX-License-Identifier: MIT
#pragma once

#include <QString>
#include <optional>

class QMimeData;

namespace platform::desktop {

/// The plain text of what is pasted or dropped, as its own bytes say it; nothing where there is none.
std::optional<QString> offeredText(const QMimeData&);

}  // namespace platform::desktop
