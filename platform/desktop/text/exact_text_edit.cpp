// SPDX-License-Identifier: MIT
#include "platform/desktop/text/exact_text_edit.h"

#include <QKeyEvent>
#include <QMimeData>
#include <QScopedValueRollback>
#include <algorithm>
#include <memory>
#include <optional>

#include "platform/desktop/base/strings.h"
#include "platform/desktop/text/exact_text.h"
#include "platform/desktop/text/long_paragraphs.h"

namespace platform::desktop {
namespace {

bool isPrintable(const QString& text) {
  const QList<uint> characters = text.toUcs4();
  return std::all_of(characters.begin(), characters.end(), [](uint c) { return QChar::isPrint(c); });
}

/// What the key types. Nothing while Control, Alt or Super is held, except Control and Alt together: some keyboards
/// report AltGr so.
QString typedText(const QKeyEvent& key) {
  constexpr Qt::KeyboardModifiers altGr = Qt::ControlModifier | Qt::AltModifier;
  const Qt::KeyboardModifiers held = key.modifiers() & (altGr | Qt::MetaModifier);
  const bool types = held == Qt::NoModifier || (held == altGr && isPrintable(key.text()));
  return types ? key.text() : QString();
}

/// On which side of the caret the key changes text; nothing for one that does not.
std::optional<Direction> directionOfEdit(const QKeyEvent& key) {
  using Keys = QKeySequence;
  if (key.matches(Keys::Delete) || key.matches(Keys::DeleteEndOfWord) || key.matches(Keys::DeleteEndOfLine)) {
    return Direction::Forward;
  }
  const bool deletes = key.key() == Qt::Key_Backspace || key.matches(Keys::DeleteStartOfWord);
  return deletes || !typedText(key).isEmpty() ? std::optional(Direction::Backward) : std::nullopt;
}

/// Plain text that says it is UTF-8, in one of the ways in which programs write that.
bool isPlainUtf8(const QString& format) {
  QString plain = format.toLower();
  plain.remove(u' ').remove(u'"');
  return plain == QLatin1String("text/plain;charset=utf-8") || plain == QLatin1String("text/plain;charset=utf8");
}

/// Such a format of `data`, if it has no other plain text that Qt would find; else empty.
QString utf8FormatOf(const QMimeData& data) {
  const QStringList formats = data.formats();
  const auto found = std::find_if(formats.begin(), formats.end(), isPlainUtf8);
  return found == formats.end() || data.hasFormat(QStringLiteral("text/plain")) ? QString() : *found;
}

}  // namespace

ExactTextEdit::ExactTextEdit() {
  connect(this, &QPlainTextEdit::textChanged, [this] {
    // Qt also reports changes of format, which leave the revision unchanged.
    if (document()->revision() != reportedRevision_) reportEdit();
  });
}

void ExactTextEdit::changeSilently(const std::function<void()>& change) {
  const QScopedValueRollback untold(silent_, true);
  change();
  reportedRevision_ = document()->revision();
}

void ExactTextEdit::reportEdit() {
  if (silent_) return;
  if (!document()->isRedoAvailable()) changeSilently([this] { arrangeBlock(textCursor()); });
  reportedRevision_ = document()->revision();
  if (onEdit) onEdit();
}

void ExactTextEdit::insertExactly(const QString& text) {
  insertExactText(textCursor(), withScalarValuesOnly(text));
  ensureCursorVisible();
}

void ExactTextEdit::editKey(QKeyEvent& key) {
  const QString text = typedText(key);
  if (const auto direction = directionOfEdit(key)) {
    QTextCursor cursor = textCursor();
    stepOverJoints(cursor, *direction);
    if (cursor != textCursor()) setTextCursor(cursor);
  }
  if (key.key() == Qt::Key_Return || key.key() == Qt::Key_Enter) {
    // Qt's own Return drops a line end's kind, and its Shift+Return types U+2028.
    insertLineEnd(textCursor());
    ensureCursorVisible();
  } else if (needsExactInsertion(text)) {
    insertExactly(text);
  } else if (key.matches(QKeySequence::DeleteEndOfLine)) {
    removeRestOfParagraph(textCursor());
    ensureCursorVisible();
  } else {
    QKeyEvent edit(key.type(), key.key(), key.modifiers(), text, key.isAutoRepeat(), static_cast<ushort>(key.count()));
    giveToQt(edit);
    key.setAccepted(edit.isAccepted());
  }
}

void ExactTextEdit::giveToQt(QKeyEvent& key) {
  const int revision = document()->revision();
  const int position = textCursor().position();
  QPlainTextEdit::keyPressEvent(&key);
  // A caret that has only crossed a joint has not moved for the user: it moves on.
  const bool moved = document()->revision() == revision;
  if (moved && onlyJointBetween(*document(), position, textCursor().position())) QPlainTextEdit::keyPressEvent(&key);
}

QMimeData* ExactTextEdit::createMimeDataFromSelection() const {
  auto data = std::make_unique<QMimeData>();
  const QTextCursor cursor = textCursor();
  data->setText(exactText(*document(), cursor.selectionStart(), cursor.selectionEnd()));
  return data.release();  // the caller's, as Qt asks
}

/// Looks at the formats only: the data itself may take long to arrive.
bool ExactTextEdit::canInsertFromMimeData(const QMimeData* source) const {
  return source->hasText() || !utf8FormatOf(*source).isEmpty();
}

void ExactTextEdit::insertFromMimeData(const QMimeData* source) {
  if (const QString format = utf8FormatOf(*source); !format.isEmpty()) {
    insertExactly(exactlyDecoded(source->data(format).toStdString()));
  } else if (source->hasText()) {
    insertExactly(source->text());  // for URLs, Qt makes text of them
  }
}

}  // namespace platform::desktop
