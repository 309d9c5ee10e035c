// SPDX-License-Identifier: MIT
#include "platform/login_item.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <QCoreApplication>

#include "platform/desktop/session/desktop_entry.h"
#include "tests/desktop/scratch.h"

namespace platform::desktop {
namespace {

namespace fs = std::filesystem;
using scratch::get;
using scratch::put;
using testing::Optional;
constexpr auto enabled = SMAppServiceStatusEnabled;
constexpr auto off = SMAppServiceStatusNotRegistered;
constexpr auto missing = SMAppServiceStatusNotFound;

class LoginItem : public testing::Test {
 protected:
  int argc = 1;
  char name[15] = "/gone/anything";
  char* argv[2] = {name, nullptr};
  const QCoreApplication app{argc, argv};
  scratch::Folder scratch;
  fs::path own = scratch.path() / "config/autostart/org.quillberry.Quillberry.desktop";
  fs::path systemWide = scratch.path() / "system/autostart/org.quillberry.Quillberry.desktop";
  SMAppService& service = SMAppService::mainAppService();

  LoginItem() { setenv("XDG_CONFIG_DIRS", ("relative:" + (scratch.path() / "system").string()).c_str(), 1); }

  static std::string entry(const std::string& lines) {
    return "[Desktop Entry]\nType=Application\nName=Note\n" + lines;
  }
  std::string errorOf(bool on) {
    const auto error = on ? service.registerAndReturnError() : service.unregisterAndReturnError();
    return error ? error->localizedDescription : "";
  }
};

TEST_F(LoginItem, IsWhatTheDesktopWouldDoAndSwitchingOnChangesWhatStandsInTheWay) {
  const std::string program = QCoreApplication::applicationFilePath().toStdString();
  const std::string quoted = program.find(' ') == program.npos ? program : '"' + program + '"';
  const std::string trying = "\nTryExec=" + program + "\n";
  const std::string rest = "# later\nName[de]=Zettel\nX-Mine=9\n\n[Extra]\na=b\n";
  const std::string afresh = "Exec=" + quoted + trying;
  const struct {
    std::string lines;
    SMAppServiceStatus status;
    std::string linesOnceOn;
    const char* desktop = "ubuntu:GNOME";
  } cases[] = {
      {"Exec=sh\nHidden=false\nX-GNOME-Autostart-enabled=true\n", enabled, ""},
      {"Exec=/bin/sh -c \"exec quillberry\"\nOnlyShowIn=KDE;GNOME;\n", enabled, ""},
      {"Exec=sh\nNotShowIn=GNOME;\nOnlyShowIn=ubuntu;\n", enabled, ""},
      {"Exec=sh\nHidden=true\n" + rest, off, "Exec=sh\nHidden=false\n" + rest},
      {"Exec=sh\nX-GNOME-Autostart-enabled=false\n", off, "Exec=sh\nX-GNOME-Autostart-enabled=true\n"},
      {"Exec=sh\nOnlyShowIn=KDE;\n", off, "Exec=sh\nOnlyShowIn=KDE;ubuntu;\n"},
      {"Exec=sh\nOnlyShowIn=KDE;\n", off, "Exec=sh\n", ""},
      {"Exec=sh\nNotShowIn=KDE;GNOME;\n", off, "Exec=sh\nNotShowIn=KDE;\n"},
      {"Exec=/gone/quillberry --title \"a b\" %F\n", missing, "Exec=" + quoted + " --title \"a b\" %F" + trying},
      {"Exec=" + scratch.path().string() + "\n", missing, afresh},
      {"Exec=sh\nTryExec=/gone/quillberry\n", missing, "Exec=sh" + trying},
      {"Hidden=true\n", off, "Hidden=false\n" + afresh},
  };
  EXPECT_EQ(service.status(), off) << "there is no entry";
  for (const auto& [lines, status, linesOnceOn, desktop] : cases) {
    setenv("XDG_CURRENT_DESKTOP", desktop, 1);
    put(own, entry(lines));
    EXPECT_EQ(service.status(), status) << lines;
    EXPECT_EQ(errorOf(true), "") << lines;
    EXPECT_THAT(get(own), Optional(entry(linesOnceOn.empty() ? lines : linesOnceOn)));
  }
}

TEST_F(LoginItem, OfTheUserMasksTheSystemWideOne) {
  const std::string shipped = entry("Exec=sh\nX-Shipped=yes\n");
  put(systemWide, shipped);
  EXPECT_EQ(service.status(), enabled);
  EXPECT_EQ(errorOf(true), "");
  EXPECT_FALSE(fs::exists(own)) << "nothing to change";
  EXPECT_EQ(errorOf(false), "");
  EXPECT_THAT(get(own), Optional(shipped + "Hidden=true\n"));
  EXPECT_EQ(service.status(), off);
  EXPECT_THAT(get(systemWide), Optional(shipped));
  put(own, "no entry");
  EXPECT_EQ(service.status(), off);
  put(own.string() + ".unreadable", "another");
  EXPECT_EQ(errorOf(true), "");
  EXPECT_THAT(get(own.string() + ".unreadable.2"), Optional(std::string("no entry")));

  const fs::path inMenu = scratch.path() / "applications/note.desktop";
  put(inMenu, shipped);
  fs::remove(own);
  fs::create_symlink(inMenu, own);
  EXPECT_EQ(errorOf(false), "");
  EXPECT_EQ(service.status(), off);
  EXPECT_THAT(get(inMenu), Optional(shipped)) << "else it would be gone from the menu";
}

TEST_F(LoginItem, TellsWhyItCannotChangeAndChangesNothing) {
  fs::create_directories(own / "folder");
  EXPECT_EQ(errorOf(true), "cannot keep " + own.string() + ": Operation not permitted");
  EXPECT_TRUE(fs::is_directory(own / "folder"));
  fs::remove_all(own.parent_path());
  put(own.parent_path(), "a file where the folder should be");
  EXPECT_EQ(errorOf(true), "cannot make " + own.parent_path().string() + ": File exists");
  EXPECT_EQ(errorOf(false), "") << "nothing starts it";
}

TEST(DesktopEntry, QuotesEveryPath) {
  const std::string path = "/a \"b\" $HOME `x` 100% %f \\ \t\n;&#~\u00E9";
  auto entry = DesktopEntry::parse("[Desktop Entry]\n").value();
  entry.setProgram(path);
  EXPECT_THAT(entry.program(), Optional(path));
  EXPECT_EQ(entry.bytes(),
            "[Desktop Entry]\nExec="
            R"("/a \\"b\\" \\$HOME \\`x\\` 100%% %%f \\\\ )"
            "\t\\n;&#~\u00E9\"\n");
}

}  // namespace
}  // namespace platform::desktop
