// SPDX-License-Identifier: MIT
#pragma once

#include <QStringView>

class QTextBlock;
class QTextCharFormat;
class QTextDocument;

/// The kinds of line ends in a QTextDocument, which by itself has only one. The kind is stored in the format of the
/// separator character between two blocks, so it survives undo and redo.
namespace platform::desktop {

/// A joint divides a long paragraph into two blocks; it is no part of the text. `spelling` depends on this order.
enum class LineEnd { LineFeed, CarriageReturnLineFeed, CarriageReturn, ParagraphSeparator, Joint };

/// The characters of the line end in the exact text; none for a joint.
QStringView spelling(LineEnd);

/// Of the separator before the block.
LineEnd lineEndBefore(const QTextBlock&);
bool isJoined(const QTextBlock&);

/// The format of a separator of that kind.
QTextCharFormat formatOf(LineEnd);

/// Sets the kind of the separators before the blocks `first` to `last`, both included.
void setLineEnds(QTextDocument&, int first, int last, LineEnd kind);

/// Whether the document has, or has ever had, a separator other than LF.
bool hasUnusualLineEnds(const QTextDocument&);

}  // namespace platform::desktop
