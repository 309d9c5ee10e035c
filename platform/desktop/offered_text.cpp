// SPDX-License-Identifier: MIT
#include "platform/desktop/offered_text.h"

#include <QMimeData>
#include <algorithm>

#include "platform/desktop/strings.h"

namespace platform::desktop {
namespace {

/// Plain text that says it is UTF-8, in one of the ways in which programs write that.
bool isPlainUtf8(const QString& format) {
  QString plain = format.toLower();
  plain.remove(u' ').remove(u'"');
  return plain == QLatin1String("text/plain;charset=utf-8") || plain == QLatin1String("text/plain;charset=utf8");
}

}  // namespace

std::optional<QString> offeredText(const QMimeData& data) {
  if (!data.hasFormat(QStringLiteral("text/plain"))) {
    const QStringList formats = data.formats();
    const auto found = std::find_if(formats.begin(), formats.end(), isPlainUtf8);
    if (found != formats.end()) return exactlyDecoded(data.data(*found).toStdString());
  }
  // The toolkit spells out addresses too.
  return data.hasText() ? std::optional(data.text()) : std::nullopt;
}

}  // namespace platform::desktop
