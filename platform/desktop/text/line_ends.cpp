// SPDX-License-Identifier: MIT
#include "platform/desktop/text/line_ends.h"

#include <QTextBlock>
#include <QTextCursor>
#include <QTextDocument>
#include <algorithm>
#include <array>

namespace platform::desktop {
namespace {

// The kind is stored as QTextFormat's object type, the only property that Qt does not give to text that is typed behind
// the character. LF has none.
constexpr int property = QTextFormat::ObjectType;
constexpr int firstKind = QTextFormat::UserObject;

}  // namespace

QStringView spelling(LineEnd kind) {
  static constexpr std::array<QStringView, 5> spellings{u"\n", u"\r\n", u"\r", u"\u2029", u""};
  return spellings.at(static_cast<std::size_t>(kind));
}

LineEnd lineEndBefore(const QTextBlock& block) {
  const QTextCharFormat format = block.charFormat();
  return format.hasProperty(property) ? static_cast<LineEnd>(format.intProperty(property) - firstKind)
                                      : LineEnd::LineFeed;
}

bool isJoined(const QTextBlock& block) { return block.isValid() && lineEndBefore(block) == LineEnd::Joint; }

QTextCharFormat formatOf(LineEnd kind) {
  QTextCharFormat format;
  if (kind != LineEnd::LineFeed) format.setProperty(property, firstKind + static_cast<int>(kind));
  return format;
}

void setLineEnds(QTextDocument& document, int first, int last, LineEnd kind) {
  QTextCursor cursor(document.findBlockByNumber(first));
  cursor.setPosition(document.findBlockByNumber(last).position(), QTextCursor::KeepAnchor);
  cursor.setBlockCharFormat(formatOf(kind));
}

bool hasUnusualLineEnds(const QTextDocument& document) {
  const QList<QTextFormat> formats = document.allFormats();
  return std::any_of(formats.begin(), formats.end(),
                     [](const QTextFormat& format) { return format.hasProperty(property); });
}

}  // namespace platform::desktop
