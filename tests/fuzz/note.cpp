// SPDX-License-Identifier: MIT
#include <QApplication>
#include <QStringDecoder>
#include <QTextDocument>

#include "platform/desktop/text/exact_text.h"
#include "platform/text_view.h"
#include "platform/utf8.h"
#include "tests/fuzz/fuzz.h"

namespace {

using namespace platform;
using fuzz::require;

constexpr std::size_t longOnes = 8;  // one in so many is repeated until its paragraphs are shown in pieces

bool isUtf8ForQt(const std::string& bytes) {
  QStringDecoder decoder(QStringDecoder::Utf8, QStringConverter::Flag::Stateless);
  const QString decoded = decoder(QByteArrayView(bytes.data(), static_cast<qsizetype>(bytes.size())));
  return !decoder.hasError();
}

/// A piece of the text taken out and put in again, undone and redone, gives the text every time.
void checkEdits(const QString& text, std::uint8_t where) {
  qsizetype at = text.isEmpty() ? 0 : where % text.size();
  const auto isInside = [&](QChar before, QChar after) {
    return (before.isHighSurrogate() && after.isLowSurrogate()) || (before == u'\r' && after == u'\n');
  };
  while (at > 0 && at < text.size() && isInside(text[at - 1], text[at])) ++at;

  QTextDocument document;
  desktop::setExactText(document, text.left(at));
  QTextCursor cursor(&document);
  cursor.setPosition(desktop::positionForExactIndex(document, at));
  desktop::insertExactText(cursor, text.mid(at));
  require(desktop::exactText(document) == text, "a paste at the end is what was pasted");
  document.undo();
  require(desktop::exactText(document) == text.left(at), "undo gives the text before the paste");
  document.redo();
  require(desktop::exactText(document) == text, "redo gives the text after the paste");
}

}  // namespace

/// What the fonts' library keeps until the process ends.
extern "C" const char* __lsan_default_suppressions() { return "leak:libfontconfig"; }

int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  static int argc = 1;
  static char name[] = "fuzz";
  static char* argv[] = {name, nullptr};
  static const QApplication app(argc, argv);
  static NSTextView view({});

  const std::string bytes = fuzz::bytesOf(data, size);
  const bool valid = isValidUtf8(bytes);
  require(valid == isUtf8ForQt(bytes), "a note is read if it is valid UTF-8, and only then");
  if (!valid) return 0;
  view.setString(bytes);
  require(view.string() == bytes, "what is shown is saved as the bytes that were read");
  view.setSelectedRange({utf16Length(bytes), 0});
  const QString text = QString::fromUtf8(bytes.data(), static_cast<qsizetype>(bytes.size()));
  checkEdits(text, size == 0 ? 0 : data[size / 2]);
  if (size % longOnes == 0) checkEdits(text.repeated(200), size == 0 ? 0 : data[size / 2]);
  QCoreApplication::processEvents();
  return 0;
}
