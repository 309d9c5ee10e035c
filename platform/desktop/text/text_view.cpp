// SPDX-License-Identifier: MIT
#include "platform/text_view.h"

#include <QKeyEvent>
#include <map>

#include "platform/desktop/base/strings.h"
#include "platform/desktop/text/note_editor.h"
#include "platform/desktop/views/appearance.h"
#include "platform/desktop/views/native_view.h"
#include "platform/notification_center.h"

namespace platform {

using desktop::NoteEditor;

struct NSEvent::Native {
  QKeyEvent& key;
};

struct NSTextView::Impl {
  NoteEditor& editor;
  NSTextContainer container;
};

NSTextView::NSTextView(NSRect frame)
    : NSView(frame, std::make_shared<Native>(std::make_unique<NoteEditor>())),
      impl_(std::make_shared<Impl>(Impl{static_cast<NoteEditor&>(*native().widget), {}})) {
  impl_->editor.onKey = [this](QKeyEvent& key) {
    NSEvent::Native native{key};
    NSEvent event(key.key() == Qt::Key_Escape ? kVK_Escape : kVK_Unnamed, &native);
    keyDown(event);
  };
  impl_->editor.onEdit = [this] {
    NSNotificationCenter::defaultCenter().postNotificationName(NSTextDidChangeNotification, this);
  };
}

NSTextView::~NSTextView() {
  impl_->editor.onKey = nullptr;
  impl_->editor.onEdit = nullptr;
}

// The editor fills its scroll view and grows with the text inside: it has no bounds of its own.
void NSTextView::setMinSize(NSSize /*size*/) {}
void NSTextView::setMaxSize(NSSize /*size*/) {}
void NSTextView::setVerticallyResizable(bool /*resizable*/) {}
void NSTextView::setHorizontallyResizable(bool /*resizable*/) {}
NSTextContainer& NSTextView::textContainer() { return impl_->container; }

// The editor is plain and substitutes nothing.
void NSTextView::setRichText(bool /*rich*/) {}
void NSTextView::setAutomaticQuoteSubstitutionEnabled(bool /*enabled*/) {}
void NSTextView::setAutomaticDashSubstitutionEnabled(bool /*enabled*/) {}
void NSTextView::setAutomaticSpellingCorrectionEnabled(bool /*enabled*/) {}
void NSTextView::setAutomaticTextReplacementEnabled(bool /*enabled*/) {}

void NSTextView::setAllowsUndo(bool allows) { impl_->editor.setUndoRedoEnabled(allows); }
void NSTextView::setFont(const NSFont& font) { impl_->editor.setNoteFont(desktop::toQFont(font)); }

void NSTextView::setTextContainerInset(NSSize inset) {
  impl_->editor.setInset(static_cast<int>(inset.width), static_cast<int>(inset.height));
}

std::string NSTextView::string() const { return impl_->editor.exactTextWithComposition().toStdString(); }
void NSTextView::setString(std::string_view text) { impl_->editor.loadExactText(desktop::exactlyDecoded(text)); }

void NSTextView::setSelectedRange(NSRange range) {
  impl_->editor.selectExactly(static_cast<qsizetype>(range.location), static_cast<qsizetype>(range.length));
}

bool NSTextView::perform(Selector action, NSObject* /*sender*/) {
  using Editor = QPlainTextEdit;
  static const std::map<std::string_view, void (Editor::*)()> commands{
      {"undo", &Editor::undo}, {"redo", &Editor::redo},   {"cut", &Editor::cut},
      {"copy", &Editor::copy}, {"paste", &Editor::paste}, {"selectAll", &Editor::selectAll}};
  const auto command = commands.find(action.name);
  if (command == commands.end()) return false;
  impl_->editor.loadRest();
  (impl_->editor.*command->second)();
  impl_->editor.ensureCursorVisible();
  return true;
}

void NSTextView::keyDown(NSEvent& event) {
  if (event.native() != nullptr) impl_->editor.editKey(event.native()->key);
}

}  // namespace platform
