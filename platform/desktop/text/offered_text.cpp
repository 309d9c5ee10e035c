// SPDX-License-Identifier: MIT
#include "platform/desktop/text/offered_text.h"

#include <QMimeData>
#include <algorithm>

#include "platform/desktop/language/strings.h"

namespace platform::desktop {
namespace {

/// Plain text that says it is UTF-8, in one of the ways in which programs write that.
bool isPlainUtf8(const QString& format) {
  QString plain = format.toLower();
  plain.remove(u' ').remove(u'"');
  return plain == QLatin1String("text/plain;charset=utf-8") || plain == QLatin1String("text/plain;charset=utf8");
}

/// The format that only says so in a way that Qt does not look for; empty if there is none.
QString utf8FormatOf(const QMimeData& data) {
  const QStringList formats = data.formats();
  const auto found = std::find_if(formats.begin(), formats.end(), isPlainUtf8);
  return found == formats.end() || data.hasFormat(QStringLiteral("text/plain")) ? QString() : *found;
}

}  // namespace

bool offersText(const QMimeData& data) { return data.hasText() || !utf8FormatOf(data).isEmpty(); }

std::optional<QString> offeredText(const QMimeData& data) {
  if (const QString format = utf8FormatOf(data); !format.isEmpty())
    return exactlyDecoded(data.data(format).toStdString());
  // Qt spells out addresses too.
  return data.hasText() ? std::optional(data.text()) : std::nullopt;
}

}  // namespace platform::desktop
