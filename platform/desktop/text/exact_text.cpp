// SPDX-License-Identifier: MIT
#include "platform/desktop/text/exact_text.h"

#include <QScopeGuard>
#include <QStringConverter>
#include <QTextBlock>
#include <QTextDocument>
#include <algorithm>
#include <utility>
#include <vector>

#include "platform/desktop/text/line_ends.h"
#include "platform/desktop/text/long_paragraphs.h"

namespace platform::desktop {
namespace {

constexpr QChar paragraphSeparator = QChar::ParagraphSeparator;

// The two noncharacters that QTextDocument uses itself, and their stand-ins.
constexpr char16_t frameBegin = 0xFDD0;
constexpr char16_t frameEnd = 0xFDD1;
constexpr char16_t standInBegin = 0xDFD0;
constexpr char16_t standInEnd = 0xDFD1;

void putStandInsIn(QString& text) {
  text.replace(QChar(frameBegin), QChar(standInBegin)).replace(QChar(frameEnd), QChar(standInEnd));
}

void takeStandInsOut(QString& text) {
  bool afterHigh = false;
  for (qsizetype i = 0; i < text.size(); ++i) {
    const QChar c = std::as_const(text)[i];
    if (!afterHigh && (c == standInBegin || c == standInEnd)) text[i] = c == standInBegin ? frameBegin : frameEnd;
    afterHigh = c.isHighSurrogate();
  }
}

bool isLineEnd(QChar c) { return c == u'\n' || c == u'\r' || c == paragraphSeparator; }

/// The line end with which `text` begins; CR LF is one.
LineEnd firstLineEnd(QStringView text) {
  for (const auto kind : {LineEnd::LineFeed, LineEnd::CarriageReturnLineFeed, LineEnd::CarriageReturn}) {
    if (text.startsWith(spelling(kind))) return kind;
  }
  return LineEnd::ParagraphSeparator;
}

/// A text as a document holds it, and its line ends.
struct Lines {
  struct Run {
    LineEnd kind;
    int count;
  };
  QString text;
  std::vector<Run> ends;

  void end(LineEnd kind) {
    text += u'\n';
    if (ends.empty() || ends.back().kind != kind) ends.push_back({kind, 0});
    ++ends.back().count;
  }
  void append(QStringView paragraph) {
    qsizetype start = 0;
    for (const qsizetype joint : jointsIn(paragraph)) {
      text += paragraph.sliced(start, joint - start);
      end(LineEnd::Joint);
      start = joint;
    }
    text += paragraph.sliced(start);
  }
};

Lines linesOf(QStringView text) {
  Lines lines;
  lines.text.reserve(text.size());
  while (true) {
    const qsizetype length = std::find_if(text.begin(), text.end(), isLineEnd) - text.begin();
    lines.append(text.first(length));
    text = text.sliced(length);
    if (text.isEmpty()) break;
    const LineEnd kind = firstLineEnd(text);
    lines.end(kind);
    text = text.sliced(spelling(kind).size());
  }
  putStandInsIn(lines.text);
  return lines;
}

/// Undo is off until the returned object is destroyed.
auto withoutUndo(QTextDocument& document) {
  const bool was = document.isUndoRedoEnabled();
  document.setUndoRedoEnabled(false);
  return qScopeGuard([&document, was] { document.setUndoRedoEnabled(was); });
}

}  // namespace

QString withScalarValuesOnly(const QString& text) {
  if (text.isValidUtf16()) return text;
  const QByteArray utf8 = QStringEncoder(QStringEncoder::Utf8, QStringConverter::Flag::Stateless)(text);
  // With a byte-order mark, if it begins with one.
  return QStringDecoder(QStringDecoder::Utf8, QStringConverter::Flag::ConvertInitialBom)(utf8);
}

bool needsExactInsertion(QStringView text) {
  const auto isSpecial = [](QChar c) {
    return c.isSurrogate() || c == frameBegin || c == frameEnd || c == u'\r' || c == paragraphSeparator;
  };
  return std::any_of(text.begin(), text.end(), isSpecial) || !jointsIn(text).empty();
}

void setExactText(QTextDocument& document, const QString& text) {
  const auto undoLater = withoutUndo(document);
  document.setPlainText({});
  prependExactText(document, text);
}

void prependExactText(QTextDocument& document, const QString& text) {
  const auto undoLater = withoutUndo(document);
  insertExactText(QTextCursor(&document), text);
  // The first block has the kind of the first line end too, so that a line made before it is of that kind.
  QTextBlock second = document.begin().next();
  while (isJoined(second)) second = second.next();
  if (second.isValid()) setLineEnds(document, 0, 0, lineEndBefore(second));
}

void insertExactText(QTextCursor cursor, const QString& text) {
  cursor.beginEditBlock();
  cursor.removeSelectedText();
  const Lines lines = linesOf(text);
  int block = cursor.blockNumber();
  cursor.insertText(lines.text);
  for (const auto& [kind, count] : lines.ends) {
    if (kind != LineEnd::LineFeed) setLineEnds(*cursor.document(), block + 1, block + count, kind);
    block += count;
  }
  cursor.endEditBlock();
}

void insertLineEnd(QTextCursor cursor) {
  cursor.beginEditBlock();
  cursor.removeSelectedText();
  // In the place of a joint.
  stepOverJoints(cursor, Direction::Forward);
  if (isJoined(cursor.block()) && cursor.atBlockStart()) cursor.deletePreviousChar();
  QTextBlock first = cursor.block();
  while (isJoined(first)) first = first.previous();
  cursor.insertBlock(cursor.blockFormat(), formatOf(lineEndBefore(first)));
  cursor.endEditBlock();
}

QString exactText(const QTextDocument& document, int start, int end) {
  QString text;
  text.reserve(end - start);
  QTextBlock block = document.findBlock(start);
  // Counted here, since QTextBlock::position() searches a tree.
  for (int position = block.position(); block.isValid() && position <= end; block = block.next()) {
    if (position > start) text += spelling(lineEndBefore(block));
    const int from = std::max(start - position, 0);
    const int length = std::min(end - position, block.length() - 1) - from;
    text += QStringView(block.text()).mid(from, length);
    position += block.length();
  }
  takeStandInsOut(text);
  return text;
}

QString exactText(const QTextDocument& document) {
  if (hasUnusualLineEnds(document)) return exactText(document, 0, document.characterCount() - 1);
  QString text = document.toRawText();  // a tenth of the time that block by block takes
  text.replace(paragraphSeparator, u'\n');
  takeStandInsOut(text);
  return text;
}

int positionForExactIndex(const QTextDocument& document, qsizetype index) {
  if (!hasUnusualLineEnds(document)) return static_cast<int>(std::min<qsizetype>(index, document.characterCount() - 1));
  QTextBlock block = document.begin();
  for (QTextBlock next = block.next(); next.isValid(); next = block.next()) {
    const qsizetype lengthWithEnd = block.length() - 1 + spelling(lineEndBefore(next)).size();
    if (index < lengthWithEnd) break;
    index -= lengthWithEnd;
    block = next;
  }
  return block.position() + static_cast<int>(std::min<qsizetype>(index, block.length() - 1));
}

}  // namespace platform::desktop
