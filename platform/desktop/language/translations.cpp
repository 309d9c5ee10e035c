// SPDX-License-Identifier: MIT
#include "platform/desktop/language/translations.h"

#include <QCoreApplication>
#include <QLibraryInfo>
#include <QLocale>
#include <algorithm>

namespace platform::desktop {
namespace {

const QString english = QStringLiteral("en");

/// The table of the country's variant, else the one of the language.
bool loadTable(QTranslator& table, const QString& name) {
  return table.load(QStringLiteral(":/translations/quillberry_") + name);
}

/// Hong Kong uses the table for Taiwan, Singapore the one for the mainland.
QString countryWithSameScript(const QLocale& locale) {
  return locale.script() == QLocale::TraditionalHanScript ? QStringLiteral("zh_TW") : QStringLiteral("zh_CN");
}

/// The first of the user's languages that has a table.
bool loadFirstTable(QTranslator& table) {
  const QStringList languages = QLocale().uiLanguages();
  return std::any_of(languages.begin(), languages.end(), [&table](const QString& language) {
    const QLocale locale(language);
    if (loadTable(table, locale.name())) return true;
    return locale.language() == QLocale::Chinese && loadTable(table, countryWithSameScript(locale));
  });
}

/// The locale for messages is "C": LANGUAGE does not count then, though Qt always uses it.
bool isWithoutLanguage() {
  for (const char* const variable : {"LC_ALL", "LC_MESSAGES", "LANG"}) {
    const QByteArray name = qgetenv(variable);
    if (!name.isEmpty()) return name == "C" || name == "POSIX";
  }
  return true;
}

}  // namespace

Translations::Translations() {
  if (loadTable(english_, english)) QCoreApplication::installTranslator(&english_);
  if (isWithoutLanguage()) return;
  if (!loadFirstTable(language_) || language_.language() == english) return;
  QCoreApplication::installTranslator(&language_);
  // Qt's texts in the same language or not at all: a window in two languages is worse than one in English.
  const QString file = QStringLiteral("qtbase_") + language_.language();
  if (ofQt_.load(file, QLibraryInfo::path(QLibraryInfo::TranslationsPath))) QCoreApplication::installTranslator(&ofQt_);
}

Qt::LayoutDirection Translations::direction() const { return QLocale(language_.language()).textDirection(); }

}  // namespace platform::desktop
