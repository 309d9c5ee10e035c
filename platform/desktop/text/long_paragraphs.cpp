// SPDX-License-Identifier: MIT
#include "platform/desktop/text/long_paragraphs.h"

#include <QTextBlock>
#include <QTextBoundaryFinder>
#include <QTextDocument>
#include <QTextLayout>
#include <algorithm>

#include "platform/desktop/text/line_ends.h"

namespace platform::desktop {
namespace {

// Costs of layout, in units of an ordinary letter. A block of the greatest cost takes some milliseconds.
constexpr int greatestCost = 16'384;
constexpr int costOfForeignLetter = 4;  // Qt may search every font for it
constexpr int costOfMark = 32;          // is sorted among all marks of its letter
// An emoji is decoded from its font each time it is measured. Beyond the first plane its high surrogate counts for the
// whole of it: low surrogates do not tell emoji from letters.
constexpr int costOfPicture = 128;

constexpr char16_t lastOrdinary = 0x02FF;
constexpr char16_t firstPicture = 0x2190;
constexpr char16_t lastPicture = 0x2BFF;
constexpr char16_t firstHighOfPictures = 0xD83C;
constexpr char16_t lastHighOfPictures = 0xD83E;

int costOf(QChar c) {
  if (c <= lastOrdinary) return 1;
  if ((c >= firstPicture && c <= lastPicture) || (c >= firstHighOfPictures && c <= lastHighOfPictures)) {
    return costOfPicture;
  }
  return c.isMark() ? costOfMark : costOfForeignLetter;
}

/// How much of the front of a text a block can hold.
qsizetype lengthOfBlock(QStringView text) {
  int cost = 0;
  const auto end = std::find_if(text.begin(), text.end(), [&](QChar c) { return (cost += costOf(c)) > greatestCost; });
  return end - text.begin();
}

/// Where lines may end, else between two characters as people see them, else anywhere but inside a character; in the
/// second half of the text, if there is such a place.
qsizetype placeOfJoint(QStringView text) {
  for (const auto type : {QTextBoundaryFinder::Line, QTextBoundaryFinder::Grapheme}) {
    QTextBoundaryFinder finder(type, text);
    finder.toEnd();
    if (const qsizetype found = finder.toPreviousBoundary(); found > text.size() / 2) return found;
  }
  return text.back().isHighSurrogate() ? text.size() - 1 : text.size();
}

void divideIfLong(QTextCursor cursor) {
  const QTextBlock block = cursor.block();
  // Twice as long, so that it is not divided again at the next key.
  const QString text = block.text();
  const qsizetype length = lengthOfBlock(text);
  if (lengthOfBlock(QStringView(text).sliced(length)) == text.size() - length) return;
  const int start = block.position();
  const std::vector<qsizetype> joints = jointsIn(text);
  cursor.joinPreviousEditBlock();
  int before = 0;  // joints, each of which takes one position in the document
  for (const qsizetype joint : joints) {
    cursor.setPosition(start + static_cast<int>(joint) + before++);
    cursor.insertBlock(cursor.blockFormat(), formatOf(LineEnd::Joint));
  }
  cursor.endEditBlock();
}

}  // namespace

std::vector<qsizetype> jointsIn(QStringView paragraph) {
  std::vector<qsizetype> joints;
  qsizetype start = 0;
  while (true) {
    const QStringView rest = paragraph.sliced(start);
    const qsizetype length = lengthOfBlock(rest);
    if (length == rest.size()) return joints;
    start += placeOfJoint(rest.first(length));
    joints.push_back(start);
  }
}

void arrangeBlock(QTextCursor cursor) {
  const QTextBlock block = cursor.block();
  if (!block.layout()->preeditAreaText().isEmpty()) return;
  const bool joined = isJoined(block);
  if (block.length() > 1) {
    divideIfLong(cursor);
  } else if (joined || isJoined(block.next())) {
    cursor.joinPreviousEditBlock();
    joined ? cursor.deletePreviousChar() : cursor.deleteChar();
    cursor.endEditBlock();
  }
}

void stepOverJoints(QTextCursor& cursor, Direction direction) {
  if (cursor.hasSelection()) return;
  if (direction == Direction::Backward) {
    while (cursor.atBlockStart() && isJoined(cursor.block())) cursor.setPosition(cursor.position() - 1);
  } else {
    while (cursor.atBlockEnd() && isJoined(cursor.block().next())) cursor.setPosition(cursor.position() + 1);
  }
}

void removeRestOfParagraph(QTextCursor cursor) {
  if (!cursor.hasSelection()) {
    QTextBlock last = cursor.block();
    while (isJoined(last.next())) last = last.next();
    cursor.setPosition(last.position() + last.length() - 1, QTextCursor::KeepAnchor);
  }
  cursor.removeSelectedText();
}

bool onlyJointBetween(const QTextDocument& document, int position, int other) {
  if (std::abs(position - other) != 1) return false;
  const QTextBlock block = document.findBlock(std::max(position, other));
  return block.position() == std::max(position, other) && isJoined(block);
}

}  // namespace platform::desktop
