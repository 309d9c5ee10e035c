// SPDX-License-Identifier: MIT
#pragma once

#include <QString>
#include <string_view>

namespace platform::desktop {

inline QString toQString(std::string_view text) {
  return QString::fromUtf8(text.data(), static_cast<qsizetype>(text.size()));
}

}  // namespace platform::desktop
