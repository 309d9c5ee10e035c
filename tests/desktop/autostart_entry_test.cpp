// SPDX-License-Identifier: MIT
#include "platform/desktop/session/autostart_entry.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "platform/log.h"
#include "tests/desktop/scratch.h"

namespace platform::desktop {
namespace {

namespace fs = std::filesystem;
using scratch::get;
using scratch::put;
using testing::HasSubstr;
using testing::Not;
using testing::Optional;

constexpr auto enabled = SMAppServiceStatusEnabled;
constexpr auto off = SMAppServiceStatusNotRegistered;
constexpr auto missing = SMAppServiceStatusNotFound;

class Autostart : public testing::Test {
 protected:
  scratch::Folder scratch;
  fs::path own = scratch.path() / "config/autostart/org.quillberry.Quillberry.desktop";
  fs::path systemWide = scratch.path() / "system/autostart/org.quillberry.Quillberry.desktop";
  fs::path program = makeProgram("bin/quillberry");
  AutostartEntry entry{program};

  void SetUp() override {
    setenv("XDG_CONFIG_DIRS", ("relative:" + (scratch.path() / "system").string()).c_str(), 1);
    setenv("XDG_CURRENT_DESKTOP", "ubuntu:GNOME", 1);
  }

  fs::path makeProgram(const fs::path& name) const {
    put(scratch.path() / name, "");
    fs::permissions(scratch.path() / name, fs::perms::owner_all);
    return scratch.path() / name;
  }
  static std::string starting(const fs::path& command, const std::string& more = "") {
    return "[Desktop Entry]\nType=Application\nName=Quillberry\nExec=" + command.string() + "\n" + more;
  }
  static std::string reasonOf(const std::optional<NSError>& error) {
    return error ? error->localizedDescription : "no error";
  }
};

TEST_F(Autostart, StatusIsWhatTheDesktopWouldDo) {
  const struct {
    std::string entry;
    SMAppServiceStatus status;
  } cases[] = {
      {starting(program), enabled},
      {starting(program, "Hidden=true\n"), off},
      {starting(program, "Hidden=false\nX-GNOME-Autostart-enabled=true\n"), enabled},
      {starting(program, "X-GNOME-Autostart-enabled=false\n"), off},
      {starting(program, "OnlyShowIn=KDE;GNOME;\n"), enabled},
      {starting(program, "OnlyShowIn=KDE;\n"), off},
      {starting(program, "NotShowIn=GNOME;\n"), off},
      {starting(program, "NotShowIn=GNOME;\nOnlyShowIn=ubuntu;\n"), enabled},
      {starting("sh -c \"exec quillberry\""), enabled},
      {starting("/gone/quillberry"), missing},
      {starting("no-such-program-anywhere"), missing},
      {starting(scratch.path()), missing},
      {starting("\"unfinished"), missing},
      {starting(program, "TryExec=/gone/quillberry\n"), missing},
      {starting("/gone/quillberry", "Hidden=true\n"), off},
      {"[Desktop Entry]\nType=Link\nExec=" + program.string() + "\n", off},
      {"[Desktop Entry]\nHidden=true\n", off},
      {"[Other]\nType=Application\n", off},
      {"no entry", off},
      {"", off},
  };
  EXPECT_EQ(entry.status(), off);
  for (const auto& [bytes, status] : cases) {
    put(own, bytes);
    EXPECT_EQ(entry.status(), status) << bytes;
    EXPECT_EQ(reasonOf(entry.switchOn()), "no error") << bytes;
    EXPECT_EQ(entry.status(), enabled) << get(own).value_or("");
    EXPECT_EQ(reasonOf(entry.switchOff()), "no error") << bytes;
    EXPECT_EQ(entry.status(), off) << get(own).value_or("");
  }
}

TEST_F(Autostart, WithoutANameTheDesktopShowsWhatIsNotForOthers) {
  unsetenv("XDG_CURRENT_DESKTOP");
  put(own, starting(program, "OnlyShowIn=KDE;\n"));
  EXPECT_EQ(entry.status(), off);
  EXPECT_EQ(reasonOf(entry.switchOn()), "no error");
  EXPECT_THAT(get(own), Optional(Not(HasSubstr("OnlyShowIn"))));
}

TEST_F(Autostart, TheUsersFileMasksTheSystemWideOne) {
  const std::string shipped = starting(program, "X-Shipped=yes\n");
  put(systemWide, shipped);
  EXPECT_EQ(entry.status(), enabled);
  EXPECT_EQ(reasonOf(entry.switchOn()), "no error");
  EXPECT_FALSE(fs::exists(own)) << "nothing to change";
  EXPECT_EQ(reasonOf(entry.switchOff()), "no error");
  EXPECT_THAT(get(own), Optional(shipped + "Hidden=true\n"));
  EXPECT_EQ(entry.status(), off);
  EXPECT_EQ(reasonOf(entry.switchOn()), "no error");
  EXPECT_THAT(get(own), Optional(shipped + "Hidden=false\n"));
  EXPECT_THAT(get(systemWide), Optional(shipped));
  put(own, "no entry");
  EXPECT_EQ(entry.status(), off);
}

TEST_F(Autostart, AnEditedEntryKeepsWhatDoesNotStandInTheWay) {
  const std::string kept = "Type=Application\nName=Note\nName[de]=Zettel\n# later\nExec=sh -c \"sleep 5; true\" %u\n";
  put(own, "# mine\n\n[Desktop Entry]\n" + kept +
               "TryExec=/gone\nHidden=true\nNotShowIn=KDE;GNOME;\nOnlyShowIn=XFCE;\nX-Mine=9\n\n[Extra]\na=b\n");
  const std::string expected = "# mine\n\n[Desktop Entry]\n" + kept + "TryExec=" + program.string() +
                               "\nHidden=false\nNotShowIn=KDE;\nOnlyShowIn=XFCE;ubuntu;\nX-Mine=9\n\n[Extra]\na=b\n";
  for (int times = 0; times < 3; ++times) {
    EXPECT_EQ(reasonOf(entry.switchOn()), "no error");
    EXPECT_EQ(get(own).value_or(""), expected);
    EXPECT_EQ(reasonOf(entry.switchOff()), "no error");
  }
}

TEST_F(Autostart, AMovedProgramIsFoundAgainWithItsArguments) {
  put(own, starting("/gone/quillberry --title \"a b\" %F"));
  EXPECT_EQ(reasonOf(entry.switchOn()), "no error");
  EXPECT_THAT(get(own), Optional(HasSubstr("Exec=" + program.string() + " --title \"a b\" %F\n")));
}

TEST_F(Autostart, EveryPathSurvivesTheQuoting) {
  const std::pair<const char*, const char*> cases[] = {
      {"plain", "/plain\n"},
      {"with space", "/with space\"\n"},
      {"a\"b'c", R"(/a\\"b'c")"},
      {"$HOME `x`", R"(/\\$HOME \\`x\\`")"},
      {"100%", "/100%%\n"},
      {"%%f %u", "/%%%%f %%u\"\n"},
      {R"(back\slash)", R"(/back\\\\slash")"},
      {"tab\tline\nend", "/tab\tline\\nend\"\n"},
      {"caf\u00E9;&#~", "/caf\u00E9;&#~\"\n"},
  };
  for (const auto& [name, inFile] : cases) {
    fs::remove(own);
    const AutostartEntry oddly(makeProgram(name));
    EXPECT_EQ(reasonOf(oddly.switchOn()), "no error") << name;
    EXPECT_EQ(oddly.status(), enabled) << name;
    EXPECT_THAT(get(own), Optional(HasSubstr(inFile)));
    fs::remove(scratch.path() / name);
    EXPECT_EQ(oddly.status(), missing) << "names another program than " << name;
  }
}

TEST_F(Autostart, WhatIsNoEntryIsKeptBesideTheNewOne) {
  put(own, "my text");
  EXPECT_EQ(reasonOf(entry.switchOn()), "no error");
  EXPECT_EQ(entry.status(), enabled);
  EXPECT_THAT(get(own.string() + ".unreadable"), Optional(std::string("my text")));
}

TEST_F(Autostart, FailuresTellTheReasonAndChangeNothing) {
  fs::create_directories(own / "folder");
  EXPECT_EQ(reasonOf(entry.switchOn()), "cannot keep " + own.string() + ": Operation not permitted");
  EXPECT_TRUE(fs::is_directory(own / "folder"));
  fs::remove_all(own.parent_path());
  put(own.parent_path(), "a file where the folder should be");
  EXPECT_EQ(reasonOf(entry.switchOn()), "cannot make " + own.parent_path().string() + ": File exists");
  EXPECT_EQ(reasonOf(entry.switchOff()), "no error") << "nothing starts it";
  fs::remove_all(own.parent_path());
  EXPECT_EQ(reasonOf(AutostartEntry("/gone/quillberry").switchOn()),
            "the desktop does not find /gone/quillberry by " + own.string());
}

TEST_F(Autostart, AnUpgradedProgramIsFoundByItsName) {
  const fs::path link = scratch.path() / "exe";
  const auto runningAs = [&](const std::string& target) {
    fs::remove(link);
    fs::create_symlink(target, link);
    return runningProgram(link);
  };
  EXPECT_EQ(runningAs(program), program);
  EXPECT_EQ(runningAs(program.string() + " (deleted)"), program);
  EXPECT_EQ(runningAs(makeProgram("really (deleted)")), scratch.path() / "really (deleted)");
}

TEST(Log, IsOneLineWhateverTheMessage) {
  testing::internal::CaptureStderr();
  NSLog("100%s\nof \"it\"\r\x1B[1m");
  EXPECT_EQ(testing::internal::GetCapturedStderr(), "100%s of \"it\"  [1m\n");
}

}  // namespace
}  // namespace platform::desktop
