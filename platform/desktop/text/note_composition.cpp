// SPDX-License-Identifier: MIT
// The note while an input method composes.
#include <QGuiApplication>
#include <QInputMethodEvent>
#include <QScopedValueRollback>
#include <QTextBlock>
#include <QTextLayout>
#include <algorithm>
#include <utility>

#include "platform/desktop/text/exact_text.h"
#include "platform/desktop/text/note_editor.h"

namespace platform::desktop {

QString NoteEditor::exactTextWithComposition() const {
  if (composition_.isEmpty()) return above_ + exactText(*document());
  const QTextBlock block = textCursor().block();
  const int at = block.position() + std::max(block.layout()->preeditAreaPosition(), 0);
  return above_ + exactText(*document(), 0, at) + withScalarValuesOnly(composition_) +
         exactText(*document(), at, document()->characterCount() - 1);
}

void NoteEditor::commitComposition() {
  if (composition_.isEmpty()) return;
  const QString before = exactTextWithComposition();
  lateCommit_ = composition_;
  {
    const QScopedValueRollback quiet(silent_, true);
    if (hasFocus()) QGuiApplication::inputMethod()->commit();
    if (!composition_.isEmpty()) {
      QInputMethodEvent commit;
      commit.setCommitString(composition_);
      inputMethodEvent(&commit);
      QGuiApplication::inputMethod()->reset();
    }
  }
  if (exactTextWithComposition() == before) {
    toldRevision_ = document()->revision();
  } else {
    tellOfEdit();
  }
}

/// Some input methods commit, on losing the focus, what was taken from them before, and may tell first that there is
/// no composition any more. Whatever else they say ends that.
bool NoteEditor::isCommittedAgain(const QInputMethodEvent& event) {
  const bool saysNothing =
      event.preeditString().isEmpty() && event.commitString().isEmpty() && event.replacementLength() == 0;
  if (silent_ || lateCommit_.isEmpty() || saysNothing) return false;
  const QString ended = std::exchange(lateCommit_, {});
  return event.preeditString().isEmpty() && event.commitString() == ended;
}

void NoteEditor::inputMethodEvent(QInputMethodEvent* event) {
  if (isCommittedAgain(*event)) return;
  const bool replacesSelection = textCursor().hasSelection() && !event->preeditString().isEmpty();
  const bool edits = replacesSelection || !event->commitString().isEmpty() || event->replacementLength() > 0;
  composition_ = event->preeditString();
  {
    // Qt reports the composition as a change too.
    const QScopedValueRollback quiet(silent_, true);
    if (needsExactInsertion(event->commitString())) {
      // Qt would fold what the document cannot hold: it gets the rest of the event, we put in the text.
      QInputMethodEvent removal;
      removal.setCommitString({}, event->replacementStart(), event->replacementLength());
      QPlainTextEdit::inputMethodEvent(&removal);
      insertExactly(event->commitString());
      QInputMethodEvent rest(event->preeditString(), event->attributes());
      QPlainTextEdit::inputMethodEvent(&rest);
    } else {
      QPlainTextEdit::inputMethodEvent(event);
    }
  }
  if (edits) {
    tellOfEdit();
  } else {
    toldRevision_ = document()->revision();
  }
}

}  // namespace platform::desktop
