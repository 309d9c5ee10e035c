// SPDX-License-Identifier: MIT
// What Quillberry is measured beside: the least that the toolkit needs for a window with an editor.
#include <QApplication>
#include <QPlainTextEdit>

int main(int argc, char** argv) {
  QApplication application(argc, argv);
  QPlainTextEdit editor;
  editor.resize(420, 320);
  editor.show();
  return QApplication::exec();
}
