// SPDX-License-Identifier: MIT
#include "platform/desktop/text/exact_text.h"

#include <QTextBlock>
#include <QTextDocument>
#include <algorithm>
#include <iterator>
#include <optional>
#include <utility>
#include <vector>

#include "platform/desktop/text/line_ends.h"
#include "platform/desktop/text/long_paragraphs.h"

namespace platform::desktop {
namespace {

constexpr QChar paragraphSeparator = QChar::ParagraphSeparator;

// The two noncharacters that a document keeps for itself, and what stands for them.
constexpr char16_t frameBegin = 0xFDD0;
constexpr char16_t frameEnd = 0xFDD1;
constexpr char16_t standInBegin = 0xDFD0;
constexpr char16_t standInEnd = 0xDFD1;

bool isFrameMark(QChar c) { return c == frameBegin || c == frameEnd; }
bool isStandIn(QChar c) { return c == standInBegin || c == standInEnd; }

void putStandInsIn(QString& text) {
  if (std::none_of(text.cbegin(), text.cend(), isFrameMark)) return;  // and is not copied
  for (QChar& c : text) {
    if (isFrameMark(c)) c = c == frameBegin ? standInBegin : standInEnd;
  }
}

void takeStandInsOut(QString& text) {
  bool afterHigh = false;
  for (qsizetype i = 0; i < text.size(); ++i) {
    const QChar c = std::as_const(text)[i];
    if (!afterHigh && isStandIn(c)) text[i] = c == standInBegin ? frameBegin : frameEnd;
    afterHigh = c.isHighSurrogate();
  }
}

bool isUnusualLineEnd(QChar c) { return c == u'\r' || c == paragraphSeparator; }

/// Cuts the next line off the front of `text`. None where the text has no further line end.
std::optional<LineEnd> cutLine(QStringView& text, QStringView& line) {
  const auto end = std::find_if(text.begin(), text.end(), [](QChar c) { return c == u'\n' || isUnusualLineEnd(c); });
  line = text.first(end - text.begin());
  if (end == text.end()) {
    text = {};
    return std::nullopt;
  }
  const LineEnd kind = *end == u'\n'                                              ? LineEnd::LineFeed
                       : *end == paragraphSeparator                               ? LineEnd::ParagraphSeparator
                       : std::next(end) != text.end() && *std::next(end) == u'\n' ? LineEnd::CarriageReturnLineFeed
                                                                                  : LineEnd::CarriageReturn;
  text = text.sliced(line.size() + spelling(kind).size());
  return kind;
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
    if (ends.empty() || ends.back().kind != kind) ends.push_back({kind, 0});
    ++ends.back().count;
  }
  void append(QStringView paragraph) {
    qsizetype start = 0;
    for (const qsizetype joint : jointsIn(paragraph)) {
      text.append(paragraph.sliced(start, joint - start)).append(u'\n');
      end(LineEnd::Joint);
      start = joint;
    }
    text.append(paragraph.sliced(start));
  }
};

/// Whether a document has it as it is.
bool isOrdinary(QStringView text) {
  if (std::any_of(text.begin(), text.end(), isUnusualLineEnd)) return false;
  while (!text.isEmpty()) {
    const auto end = std::find(text.begin(), text.end(), QChar(u'\n'));
    if (!fitsInBlock(text.first(end - text.begin()))) return false;
    text = text.sliced(std::min<qsizetype>(end - text.begin() + 1, text.size()));
  }
  return true;
}

Lines linesOf(const QString& text) {
  Lines lines;
  if (isOrdinary(text)) {
    lines.text = text;
    putStandInsIn(lines.text);
    return lines;
  }
  lines.text.reserve(text.size());
  QStringView rest = text;
  QStringView line;
  while (const auto kind = cutLine(rest, line)) {
    lines.append(line);
    lines.text.append(u'\n');
    lines.end(*kind);
  }
  lines.append(line);
  putStandInsIn(lines.text);
  return lines;
}

/// What is before the paragraph, however many blocks it has.
LineEnd lineEndBeforeParagraph(QTextBlock block) {
  while (isJoined(block)) block = block.previous();
  return lineEndBefore(block);
}

class WithoutUndo {
 public:
  explicit WithoutUndo(QTextDocument& document) : document_(document), was_(document.isUndoRedoEnabled()) {
    document_.setUndoRedoEnabled(false);
  }
  ~WithoutUndo() { document_.setUndoRedoEnabled(was_); }
  WithoutUndo(const WithoutUndo&) = delete;
  WithoutUndo& operator=(const WithoutUndo&) = delete;

 private:
  QTextDocument& document_;
  bool was_;
};

}  // namespace

QString withScalarValuesOnly(QString text) {
  for (qsizetype i = 0; i < text.size(); ++i) {
    const QChar c = std::as_const(text)[i];
    if (!c.isSurrogate()) continue;
    if (c.isHighSurrogate() && i + 1 < text.size() && std::as_const(text)[i + 1].isLowSurrogate()) {
      ++i;
    } else {
      text[i] = QChar::ReplacementCharacter;
    }
  }
  return text;
}

bool needsExactInsertion(QStringView text) {
  const auto isSpecial = [](QChar c) { return c.isSurrogate() || isFrameMark(c) || isUnusualLineEnd(c); };
  return std::any_of(text.begin(), text.end(), isSpecial) || !fitsInBlock(text);
}

void setExactText(QTextDocument& document, const QString& text) {
  const WithoutUndo withoutUndo(document);
  document.setPlainText({});
  prependExactText(document, text);
}

void prependExactText(QTextDocument& document, const QString& text) {
  const WithoutUndo withoutUndo(document);
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
  cursor.insertBlock(cursor.blockFormat(), formatOf(lineEndBeforeParagraph(cursor.block())));
  cursor.endEditBlock();
}

QString exactText(const QTextDocument& document, int start, int end) {
  QString text;
  text.reserve(end - start);
  QTextBlock block = document.findBlock(start);
  // Counted, not asked of each block, which would look it up in a tree.
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
  qsizetype start = 0;
  for (QTextBlock next = block.next(); next.isValid(); next = next.next()) {
    const qsizetype nextStart = start + block.length() - 1 + spelling(lineEndBefore(next)).size();
    if (index < nextStart) break;
    start = nextStart;
    block = next;
  }
  return block.position() + static_cast<int>(std::min<qsizetype>(index - start, block.length() - 1));
}

}  // namespace platform::desktop
