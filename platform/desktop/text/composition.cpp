// SPDX-License-Identifier: MIT
#include "platform/desktop/text/composition.h"

#include <QGuiApplication>
#include <QTextBlock>
#include <QTextLayout>
#include <algorithm>
#include <utility>

#include "platform/desktop/text/exact_text.h"

namespace platform::desktop {

QString Composition::textWithComposition() const {
  const QTextDocument& document = *editor_.document();
  if (open_.isEmpty()) return exactText(document);
  const QTextBlock block = editor_.textCursor().block();
  const int at = block.position() + std::max(block.layout()->preeditAreaPosition(), 0);
  return exactText(document, 0, at) + withScalarValuesOnly(open_) +
         exactText(document, at, document.characterCount() - 1);
}

void Composition::handle(QInputMethodEvent& event) {
  if (isCommittedAgain(event)) return;
  const bool replacesSelection = editor_.textCursor().hasSelection() && !event.preeditString().isEmpty();
  const bool edits = replacesSelection || !event.commitString().isEmpty() || event.replacementLength() > 0;
  open_ = event.preeditString();
  editor_.changeSilently([&] { insert(event); });  // Qt reports the composition as a change too
  if (edits) editor_.reportEdit();
}

void Composition::insert(QInputMethodEvent& event) {
  if (!needsExactInsertion(event.commitString())) {
    editor_.giveToQt(event);
    return;
  }
  QInputMethodEvent removal;
  removal.setCommitString({}, event.replacementStart(), event.replacementLength());
  editor_.giveToQt(removal);
  editor_.insertExactly(event.commitString());
  QInputMethodEvent rest(event.preeditString(), event.attributes());
  editor_.giveToQt(rest);
}

void Composition::commit() {
  if (open_.isEmpty()) return;
  const QString textBefore = textWithComposition();
  const QString ended = open_;
  editor_.changeSilently([this] {
    if (editor_.hasFocus()) QGuiApplication::inputMethod()->commit();
    if (open_.isEmpty()) return;
    QInputMethodEvent commit;
    commit.setCommitString(open_);
    handle(commit);
    QGuiApplication::inputMethod()->reset();
  });
  committed_ = ended;
  if (textWithComposition() != textBefore) editor_.reportEdit();
}

/// Some input methods commit a composition that `commit` has committed already, at times after an empty event. Any
/// other event means that no such duplicate comes.
bool Composition::isCommittedAgain(const QInputMethodEvent& event) {
  const bool saysNothing =
      event.preeditString().isEmpty() && event.commitString().isEmpty() && event.replacementLength() == 0;
  if (committed_.isEmpty() || saysNothing) return false;
  const QString ended = std::exchange(committed_, {});
  return event.preeditString().isEmpty() && event.commitString() == ended;
}

}  // namespace platform::desktop
