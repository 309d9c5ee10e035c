// SPDX-License-Identifier: MIT
#pragma once

#include <QString>
#include <QStringView>
#include <QTextCursor>

class QTextDocument;

/// Texts in a QTextDocument without a loss. The document by itself folds every kind of line end into one and
/// gives a meaning of its own to two noncharacters. Here it remembers the kinds of line ends (see line_ends.h) and
/// shows long paragraphs in pieces (see long_paragraphs.h); and lone low surrogates, which no text contains, stand for
/// the two noncharacters.
namespace platform::desktop {

/// `text` with U+FFFD for every lone surrogate.
QString withScalarValuesOnly(const QString& text);

/// Whether `QTextCursor::insertText` would not insert just `text`.
bool needsExactInsertion(QStringView text);

/// Replaces the whole document; nothing can be undone afterwards. Surrogates are paired.
void setExactText(QTextDocument&, const QString& text);

/// Puts the text, whole lines, in front of all others; nothing can be undone afterwards. Surrogates are paired.
void prependExactText(QTextDocument&, const QString& text);

/// Replaces the selection as one step of undo. Surrogates are paired.
void insertExactText(QTextCursor cursor, const QString& text);

/// Replaces the selection by a line end of the kind that the line before has.
void insertLineEnd(QTextCursor cursor);

/// The text between two positions of the document, `end` excluded.
QString exactText(const QTextDocument&, int start, int end);
QString exactText(const QTextDocument&);

/// The document's position for an index into its exact text; inside a CR LF the one before it.
int positionForExactIndex(const QTextDocument&, qsizetype index);

}  // namespace platform::desktop
