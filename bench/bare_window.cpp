// SPDX-License-Identifier: MIT
// What Quillberry is measured beside: the least that Qt needs for a window with an editor, and the text of a
// file in it.
#include <QApplication>
#include <QFile>
#include <QPlainTextEdit>

int main(int argc, char** argv) {
  QApplication application(argc, argv);
  QPlainTextEdit editor;
  editor.resize(420, 320);
  if (argc > 1) {
    QFile note(argv[1]);
    if (note.open(QIODevice::ReadOnly)) editor.setPlainText(QString::fromUtf8(note.readAll()));
  }
  editor.show();
  return QApplication::exec();
}
