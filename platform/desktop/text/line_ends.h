// SPDX-License-Identifier: MIT
#pragma once

#include <QStringView>

class QTextBlock;
class QTextCharFormat;
class QTextDocument;

/// The kinds of line ends in a QTextDocument, which by itself folds them into one. The character that parts two of its
/// blocks remembers its kind, also through undo and redo.
namespace platform::desktop {

/// A joint is where a long paragraph goes on in a block of its own: it shows as a line end and is none.
/// `spelling` has them in this order.
enum class LineEnd { LineFeed, CarriageReturnLineFeed, CarriageReturn, ParagraphSeparator, Joint };

/// As it stands in the exact text.
QStringView spelling(LineEnd);

/// What is before the block.
LineEnd lineEndBefore(const QTextBlock&);
bool isJoined(const QTextBlock&);

/// Of the character that parts two blocks.
QTextCharFormat formatOf(LineEnd);

/// Makes `kind` what is before each of the blocks `first` to `last`, both included.
void setLineEnds(QTextDocument&, int first, int last, LineEnd kind);

/// Whether there is any other than LF, or has ever been one.
bool hasUnusualLineEnds(const QTextDocument&);

}  // namespace platform::desktop
