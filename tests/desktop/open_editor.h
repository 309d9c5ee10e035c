// SPDX-License-Identifier: MIT
#pragma once

#include <QInputMethodEvent>
#include <QKeyEvent>
#include <QMimeData>
#include <memory>

#include "platform/desktop/text/note_editor.h"

/// The note's editor, with its protected ways in and out, as Qt uses them.
class OpenEditor : public platform::desktop::NoteEditor {
 public:
  using NoteEditor::canInsertFromMimeData;
  using NoteEditor::insertFromMimeData;
  QString text() const { return exactTextWithComposition(); }
  QString copied() const { return std::unique_ptr<QMimeData>(createMimeDataFromSelection())->text(); }
  void paste(const QString& text) {
    QMimeData data;
    data.setText(text);
    insertFromMimeData(&data);
  }
  void type(int key, const QString& text = {}, Qt::KeyboardModifiers modifiers = {}) {
    QKeyEvent event(QEvent::KeyPress, key, modifiers, text);
    QCoreApplication::sendEvent(this, &event);
  }
  /// Deletes `deleted` UTF-16 units before the caret first.
  void compose(const QString& preedit, const QString& commit = {}, int deleted = 0) {
    QInputMethodEvent event(preedit, {});
    event.setCommitString(commit, -deleted, deleted);
    QCoreApplication::sendEvent(this, &event);
  }
};
