// SPDX-License-Identifier: MIT
#pragma once

#include <QString>
#include <string_view>

namespace platform::desktop {

inline QString toQString(std::string_view text) {
  return QString::fromUtf8(text.data(), static_cast<qsizetype>(text.size()));
}

/// Keeps a byte-order mark, which `QString::fromUtf8` would drop. What is not UTF-8 becomes U+FFFD.
inline QString exactlyDecoded(std::string_view text) {
  constexpr std::string_view byteOrderMark = "\xEF\xBB\xBF";
  const QString rest = toQString(text);
  return text.starts_with(byteOrderMark) ? QChar(QChar::ByteOrderMark) + rest : rest;
}

}  // namespace platform::desktop
