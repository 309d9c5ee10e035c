// SPDX-License-Identifier: MIT
#include "platform/desktop/text/text_loader.h"

#include <QScrollBar>
#include <QTextBlock>

#include "platform/desktop/text/exact_text.h"

namespace platform::desktop {
namespace {

constexpr int firstPiece = 100'000;  // characters; more than the largest screen shows
constexpr int laterPiece = 300'000;  // characters

/// The start of the last lines that have at least so many characters together.
qsizetype startOfLastPiece(QStringView text, qsizetype length) {
  return text.size() > length ? text.lastIndexOf(u'\n', -length) + 1 : 0;
}

}  // namespace

TextLoader::TextLoader(ExactTextEdit& editor) : editor_(editor) {
  untilNextPiece_.callOnTimeout([this] { loadPiece(); });
}

void TextLoader::load(const QString& text) {
  const qsizetype start = startOfLastPiece(text, firstPiece);
  above_ = text.first(start);
  editor_.changeSilently([&] { setExactText(*editor_.document(), text.sliced(start)); });
}

void TextLoader::goOn() {
  if (!above_.isEmpty() && !untilNextPiece_.isActive()) untilNextPiece_.start();
}

void TextLoader::loadRest() {
  while (!above_.isEmpty()) loadPiece();
}

void TextLoader::loadPiece() {
  const qsizetype start = startOfLastPiece(above_, laterPiece);
  const QTextCursor top(editor_.firstVisibleBlock());  // moves with its text
  const int topLine = editor_.verticalScrollBar()->value() - top.block().firstLineNumber();
  editor_.changeSilently([&] { prependExactText(*editor_.document(), above_.sliced(start)); });
  above_.truncate(start);
  // Keeps the same lines in view.
  editor_.verticalScrollBar()->setValue(top.block().firstLineNumber() + topLine);
  if (!above_.isEmpty()) return;
  above_.squeeze();
  untilNextPiece_.stop();
}

}  // namespace platform::desktop
