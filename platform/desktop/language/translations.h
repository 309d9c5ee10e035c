// SPDX-License-Identifier: MIT
#pragma once

#include <QTranslator>

namespace platform::desktop {

/// The tables from the program's texts to what the user reads, in the process from construction to destruction: English
/// in a desktop's words and, over it, the language that the user's environment asks for, with Qt's own texts
/// in it where they are installed.
class Translations {
 public:
  Translations();

  /// Of the language that the user reads, whatever the one of dates and numbers is.
  Qt::LayoutDirection direction() const;

 private:
  QTranslator english_;
  QTranslator language_;
  QTranslator ofQt_;
};

}  // namespace platform::desktop
