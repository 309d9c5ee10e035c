// SPDX-License-Identifier: MIT
#pragma once

#include <QString>
#include <QStringView>
#include <QTextCursor>

class QTextDocument;

/// Any Unicode text in a QTextDocument, without loss. By itself the document turns every kind of line end into one, and
/// uses two noncharacters (U+FDD0, U+FDD1) for itself. Here each line end keeps its kind (line_ends.h), long paragraphs
/// are divided (long_paragraphs.h), and the two noncharacters are stored as lone low surrogates, which no text
/// contains. In all of these functions, surrogates in `text` are paired.
namespace platform::desktop {

/// `text` with U+FFFD for every lone surrogate.
QString withScalarValuesOnly(const QString& text);

/// Whether `QTextCursor::insertText` would not insert just `text`.
bool needsExactInsertion(QStringView text);

/// Replaces the whole document, and clears its undo history.
void setExactText(QTextDocument&, const QString& text);

/// Inserts whole lines at the start, and clears the undo history.
void prependExactText(QTextDocument&, const QString& text);

/// Replaces the selection, as one step of undo.
void insertExactText(QTextCursor cursor, const QString& text);

/// Replaces the selection by a line end, of the same kind as the one before.
void insertLineEnd(QTextCursor cursor);

/// The text between two positions of the document, `end` excluded.
QString exactText(const QTextDocument&, int start, int end);
QString exactText(const QTextDocument&);

/// The document's position for an index into its exact text; inside a CR LF the one before it.
int positionForExactIndex(const QTextDocument&, qsizetype index);

}  // namespace platform::desktop
