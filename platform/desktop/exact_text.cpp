// SPDX-License-Identifier: MIT
#include "platform/desktop/exact_text.h"

#include <QTextBlock>
#include <QTextDocument>
#include <algorithm>
#include <iterator>
#include <optional>
#include <utility>
#include <vector>

namespace platform::desktop {
namespace {

constexpr int lineEndBefore = QTextFormat::UserProperty;  // of a block's format: a LineEnd, absent for LineFeed
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

QStringView spelling(LineEnd kind) {
  switch (kind) {
    case LineEnd::LineFeed:
      return u"\n";
    case LineEnd::CarriageReturnLineFeed:
      return u"\r\n";
    case LineEnd::CarriageReturn:
      return u"\r";
    case LineEnd::ParagraphSeparator:
      return u"\u2029";
  }
  return u"\n";
}

LineEnd lineEndOf(const QTextBlockFormat& format) { return static_cast<LineEnd>(format.intProperty(lineEndBefore)); }

QTextBlockFormat withLineEnd(QTextBlockFormat format, LineEnd kind) {
  if (kind == LineEnd::LineFeed) {
    format.clearProperty(lineEndBefore);
  } else {
    format.setProperty(lineEndBefore, static_cast<int>(kind));
  }
  return format;
}

/// Whether there is any, or has ever been one.
bool hasUnusualLineEnds(const QTextDocument& document) {
  const QList<QTextFormat> formats = document.allFormats();
  return std::any_of(formats.begin(), formats.end(),
                     [](const QTextFormat& format) { return format.hasProperty(lineEndBefore); });
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
};

Lines linesOf(const QString& text) {
  Lines lines;
  if (std::none_of(text.begin(), text.end(), isUnusualLineEnd)) {
    lines.text = text;
    lines.ends.push_back({LineEnd::LineFeed, static_cast<int>(text.count(u'\n'))});
  } else {
    lines.text.reserve(text.size());
    QStringView rest = text;
    QStringView line;
    while (const auto kind = cutLine(rest, line)) {
      lines.text.append(line).append(u'\n');
      if (lines.ends.empty() || lines.ends.back().kind != *kind) lines.ends.push_back({*kind, 0});
      ++lines.ends.back().count;
    }
    lines.text.append(line);
  }
  putStandInsIn(lines.text);
  return lines;
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

/// Marks the blocks `first` to `last`, both included, as following a line end of that kind.
void markBlocks(QTextDocument& document, int first, int last, LineEnd kind) {
  QTextCursor cursor(document.findBlockByNumber(first));
  cursor.setPosition(document.findBlockByNumber(last).position(), QTextCursor::KeepAnchor);
  cursor.setBlockFormat(withLineEnd({}, kind));
}

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
  return std::any_of(text.begin(), text.end(),
                     [](QChar c) { return c.isSurrogate() || isFrameMark(c) || isUnusualLineEnd(c); });
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
  const QTextBlock second = document.begin().next();
  if (second.isValid()) markBlocks(document, 0, 0, lineEndOf(second.blockFormat()));
}

void insertExactText(QTextCursor cursor, const QString& text) {
  cursor.beginEditBlock();
  cursor.removeSelectedText();
  const Lines lines = linesOf(text);
  const LineEnd inherited = lineEndOf(cursor.blockFormat());
  int block = cursor.blockNumber();
  cursor.insertText(lines.text);
  for (const auto& [kind, count] : lines.ends) {
    if (kind != inherited) markBlocks(*cursor.document(), block + 1, block + count, kind);
    block += count;
  }
  cursor.endEditBlock();
}

QString exactText(const QTextDocument& document, int start, int end) {
  QString text;
  text.reserve(end - start);
  QTextBlock block = document.findBlock(start);
  // Counted, not asked of each block, which would look it up in a tree.
  for (int position = block.position(); block.isValid() && position <= end; block = block.next()) {
    if (position > start) text += spelling(lineEndOf(block.blockFormat()));
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
    const qsizetype nextStart = start + block.length() - 1 + spelling(lineEndOf(next.blockFormat())).size();
    if (index < nextStart) break;
    start = nextStart;
    block = next;
  }
  return block.position() + static_cast<int>(std::min<qsizetype>(index - start, block.length() - 1));
}

}  // namespace platform::desktop
