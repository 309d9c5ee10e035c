// SPDX-License-Identifier: MIT
#include "platform/desktop/language/translations.h"

#include <QCoreApplication>
#include <QLibraryInfo>
#include <QLocale>
#include <algorithm>

namespace platform::desktop {
namespace {

const QString english = QStringLiteral("en");

/// Looks for the language too where the one of a country is not there.
bool loadTable(QTranslator& table, const QString& name) {
  return table.load(QStringLiteral(":/translations/quillberry_") + name);
}

/// Hong Kong reads what Taiwan does, Singapore what the mainland does.
QString countryWithSameScript(const QLocale& locale) {
  return locale.script() == QLocale::TraditionalHanScript ? QStringLiteral("zh_TW") : QStringLiteral("zh_CN");
}

/// Of the languages that the user reads, the first that there is a table for.
bool loadFirstTable(QTranslator& table) {
  const QStringList languages = QLocale().uiLanguages();
  return std::any_of(languages.begin(), languages.end(), [&table](const QString& language) {
    const QLocale locale(language);
    if (loadTable(table, locale.name())) return true;
    return locale.language() == QLocale::Chinese && loadTable(table, countryWithSameScript(locale));
  });
}

/// The locale of messages has no language: then LANGUAGE, which Qt heeds always, does not count.
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
  // In the same language or not at all: a window in two is worse than one in English.
  const QString file = QStringLiteral("qtbase_") + language_.language();
  if (ofQt_.load(file, QLibraryInfo::path(QLibraryInfo::TranslationsPath))) QCoreApplication::installTranslator(&ofQt_);
}

Qt::LayoutDirection Translations::direction() const { return QLocale(language_.language()).textDirection(); }

}  // namespace platform::desktop
