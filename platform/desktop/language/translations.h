// SPDX-License-Identifier: MIT
#pragma once

#include <QTranslator>

namespace platform::desktop {

/// Installs the tables that turn the program's texts into what the user reads: always English in the words of Linux
/// desktops, over it the language that the user's environment asks for, and Qt's own texts in that language where they
/// are on the machine. They are removed on destruction.
class Translations {
 public:
  Translations();

  /// In which the user's language is written.
  Qt::LayoutDirection direction() const;

 private:
  QTranslator english_;
  QTranslator language_;
  QTranslator ofQt_;
};

}  // namespace platform::desktop
