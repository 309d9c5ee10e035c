// SPDX-License-Identifier: MIT
#include <gtest/gtest.h>

#include <QApplication>
#include <ostream>

#include "platform/application.h"
#include "platform/desktop/language/key_names.h"
#include "platform/localized_string.h"
#include "tests/desktop/scratch.h"

namespace platform {
namespace {

struct Asked {
  QString environment;
  const char* note;  // how one is called
};
void PrintTo(const Asked& asked, std::ostream* stream) { *stream << asked.environment.toStdString(); }

/// One process each: Qt reads the environment once.
class Language : public testing::TestWithParam<Asked> {};

TEST_P(Language, IsTheOneThatTheEnvironmentAsksFor) {
  const scratch::Folder scratch;
  unsetenv("LC_ALL");
  const auto& [environment, note] = GetParam();
  for (const QString& setting : environment.split(' ', Qt::SkipEmptyParts)) {
    qputenv(setting.section('=', 0, 0).toUtf8().constData(), setting.section('=', 1).toUtf8());
  }
  const auto app = NSApplication::sharedApplication();
  EXPECT_EQ(NSLocalizedString("Note"), note);
  EXPECT_EQ(QApplication::isRightToLeft(), NSLocalizedString("Note") == "פתק");
}

INSTANTIATE_TEST_SUITE_P(Each, Language,
                         testing::Values(Asked{"LANG=", "Note"}, Asked{"LANG=de_AT.UTF-8", "Notiz"},
                                         Asked{"LANG=de_DE.UTF-8 LC_MESSAGES=it_CH.UTF-8", "Nota"},
                                         Asked{"LC_MESSAGES=it_CH LC_ALL=uk_UA.UTF-8", "Нотатка"},
                                         Asked{"LANG=zh_HK.UTF-8", "便條"},
                                         Asked{"LANG=de_DE.UTF-8 LANGUAGE=sv:he", "פתק"},
                                         Asked{"LANG=de_DE.UTF-8 LANGUAGE=en_GB:de", "Note"},
                                         Asked{"LANG=fa_IR.UTF-8", "Note"},
                                         Asked{"LANG=de_DE.UTF-8 LANGUAGE=de LC_ALL=C", "Note"}));

TEST(KeyNames, AreReadAsTheDesktopWritesThem) {
  const std::pair<QString, QString> cases[] = {
      {"Press <Control><Alt>n", "Ctrl+Alt+N"},  {"<Super><Shift>F5", "Meta+Shift+F5"},
      {"Press <nonsense>", "Press <nonsense>"}, {" the\nlamp's key", "the lamp's key"},
      {QString(50, u'x'), QString(40, u'x')},   {"", "Ctrl+N"}};
  desktop::KeyNames names;
  for (const auto& [told, name] : cases) {
    names.replaceKeys(QKeySequence(QStringLiteral("Ctrl+N")), told);
    EXPECT_EQ(names.nameOf(QKeySequence(QStringLiteral("Ctrl+N"))), name);
  }
}

}  // namespace
}  // namespace platform
