// SPDX-License-Identifier: MIT
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <QCoreApplication>

#include "platform/desktop/session/desktop_entry.h"
#include "platform/log.h"
#include "platform/login_item.h"
#include "tests/desktop/scratch.h"

namespace platform::desktop {
namespace {

namespace fs = std::filesystem;
using scratch::get;
using scratch::put;
using testing::HasSubstr;
using testing::Optional;

constexpr auto enabled = SMAppServiceStatusEnabled;
constexpr auto off = SMAppServiceStatusNotRegistered;
constexpr auto missing = SMAppServiceStatusNotFound;

class Autostart : public testing::Test {
 protected:
  int argc = 1;
  char name[15] = "/gone/anything";
  char* argv[2] = {name, nullptr};
  const QCoreApplication app{argc, argv};
  scratch::Folder scratch;
  fs::path own = scratch.path() / "config/autostart/org.quillberry.Quillberry.desktop";
  fs::path systemWide = scratch.path() / "system/autostart/org.quillberry.Quillberry.desktop";
  std::string program = QCoreApplication::applicationFilePath().toStdString();
  SMAppService& service = SMAppService::mainAppService();

  void SetUp() override {
    setenv("XDG_CONFIG_DIRS", ("relative:" + (scratch.path() / "system").string()).c_str(), 1);
    setenv("XDG_CURRENT_DESKTOP", "ubuntu:GNOME", 1);
  }

  static std::string starting(const std::string& command, const std::string& more = "") {
    return "[Desktop Entry]\nType=Application\nName=Quillberry\nExec=" + command + "\n" + more;
  }
  std::string errorOf(bool on) {
    const auto error = on ? service.registerAndReturnError() : service.unregisterAndReturnError();
    return error ? error->localizedDescription : "";
  }
};

TEST_F(Autostart, StatusIsWhatTheDesktopWouldDo) {
  const struct {
    std::string entry;
    SMAppServiceStatus status;
  } cases[] = {
      {starting("sh"), enabled},
      {starting("sh", "Hidden=true\n"), off},
      {starting("sh", "Hidden=false\nX-GNOME-Autostart-enabled=true\n"), enabled},
      {starting("sh", "X-GNOME-Autostart-enabled=false\n"), off},
      {starting("sh", "OnlyShowIn=KDE;GNOME;\n"), enabled},
      {starting("sh", "OnlyShowIn=KDE;\n"), off},
      {starting("sh", "NotShowIn=GNOME;\n"), off},
      {starting("sh", "NotShowIn=GNOME;\nOnlyShowIn=ubuntu;\n"), enabled},
      {starting("/bin/sh -c \"exec quillberry\""), enabled},
      {starting("/gone/quillberry"), missing},
      {starting("no-such-program-anywhere"), missing},
      {starting(scratch.path()), missing},
      {starting("\"unfinished"), missing},
      {starting("sh", "TryExec=/gone/quillberry\n"), missing},
      {starting("/gone/quillberry", "Hidden=true\n"), off},
      {"[Desktop Entry]\nType=Link\nExec=sh\n", off},
      {"[Desktop Entry]\nHidden=true\n", off},
      {"[Other]\nType=Application\n", off},
      {"no entry", off},
      {"", off},
  };
  EXPECT_EQ(service.status(), off);
  for (const auto& [bytes, status] : cases) {
    put(own, bytes);
    EXPECT_EQ(service.status(), status) << bytes;
    EXPECT_EQ(errorOf(true), "") << bytes;
    EXPECT_EQ(service.status(), enabled) << get(own).value_or("");
    EXPECT_EQ(errorOf(false), "") << bytes;
    EXPECT_EQ(service.status(), off) << get(own).value_or("");
  }
  EXPECT_THAT(get(own.string() + ".unreadable"), Optional(std::string("[Other]\nType=Application\n")));
  EXPECT_THAT(get(own.string() + ".unreadable.2"), Optional(std::string("no entry")));
}

TEST_F(Autostart, SwitchingOnChangesOnlyWhatStandsInTheWay) {
  const std::string kept = "Type=Application\nName=Note\nName[de]=Zettel\n# later\nExec=sh -c \"sleep 5; true\" %u\n";
  const std::string ours = "[Desktop Entry]\nType=Application\nName=Quillberry\nExec=" + program;
  const struct {
    const char* desktop;
    std::string before;
    std::string after;
  } cases[] = {
      {"ubuntu:GNOME",
       "# mine\n\n[Desktop Entry]\n" + kept +
           "TryExec=/gone\nHidden=true\nNotShowIn=KDE;GNOME;\nOnlyShowIn=XFCE;\nX-Mine=9\n\n[Extra]\na=b\n",
       "# mine\n\n[Desktop Entry]\n" + kept + "TryExec=" + program +
           "\nHidden=false\nNotShowIn=KDE;\nOnlyShowIn=XFCE;ubuntu;\nX-Mine=9\n\n[Extra]\na=b\n"},
      {"GNOME", starting("/gone/quillberry --title \"a b\" %F"),
       ours + " --title \"a b\" %F\nTryExec=" + program + "\n"},
      {"", starting("sh", "OnlyShowIn=KDE;\n"), starting("sh")},
  };
  for (const auto& [desktop, before, after] : cases) {
    setenv("XDG_CURRENT_DESKTOP", desktop, 1);
    put(own, before);
    for (int times = 0; times < 2; ++times) {
      EXPECT_EQ(errorOf(true), "");
      EXPECT_EQ(get(own).value_or("").substr(0, after.size()), after);
      EXPECT_EQ(errorOf(false), "");
    }
  }
}

TEST_F(Autostart, TheUsersFileMasksTheSystemWideOne) {
  const std::string shipped = starting("sh", "X-Shipped=yes\n");
  put(systemWide, shipped);
  EXPECT_EQ(service.status(), enabled);
  EXPECT_EQ(errorOf(true), "");
  EXPECT_FALSE(fs::exists(own)) << "nothing to change";
  EXPECT_EQ(errorOf(false), "");
  EXPECT_THAT(get(own), Optional(shipped + "Hidden=true\n"));
  EXPECT_EQ(service.status(), off);
  EXPECT_EQ(errorOf(true), "");
  EXPECT_THAT(get(own), Optional(shipped + "Hidden=false\n"));
  EXPECT_THAT(get(systemWide), Optional(shipped));
  put(own, "no entry");
  EXPECT_EQ(service.status(), off);
}

TEST_F(Autostart, FailuresTellTheReasonAndChangeNothing) {
  fs::create_directories(own / "folder");
  EXPECT_EQ(errorOf(true), "cannot keep " + own.string() + ": Operation not permitted");
  EXPECT_TRUE(fs::is_directory(own / "folder"));
  fs::remove_all(own.parent_path());
  put(own.parent_path(), "a file where the folder should be");
  EXPECT_EQ(errorOf(true), "cannot make " + own.parent_path().string() + ": File exists");
  EXPECT_EQ(errorOf(false), "") << "nothing starts it";
}

TEST(DesktopEntry, EveryPathSurvivesTheQuoting) {
  const std::pair<const char*, const char*> cases[] = {
      {"/plain", "=/plain\n"},
      {"/with space", "=\"/with space\"\n"},
      {"/a\"b'c", R"(="/a\\"b'c")"},
      {"/$HOME `x`", R"(="/\\$HOME \\`x\\`")"},
      {"/100%", "=/100%%\n"},
      {"/%%f %u", "=\"/%%%%f %%u\"\n"},
      {R"(/back\slash)", R"(="/back\\\\slash")"},
      {"/tab\tline\nend", "=\"/tab\tline\\nend\"\n"},
      {"/caf\u00E9;&#~", "=\"/caf\u00E9;&#~\"\n"},
  };
  for (const auto& [path, inFile] : cases) {
    auto entry = DesktopEntry::parse("[Desktop Entry]\n").value();
    entry.setProgram(path);
    EXPECT_THAT(entry.bytes(), HasSubstr(inFile));
    EXPECT_THAT(DesktopEntry::parse(entry.bytes()).value().program(), Optional(std::string(path)));
  }
}

TEST(Log, IsOneLineWhateverTheMessage) {
  testing::internal::CaptureStderr();
  NSLog("100%s\nof \"it\"\r\x1B[1m");
  EXPECT_EQ(testing::internal::GetCapturedStderr(), "100%s of \"it\"  [1m\n");
}

}  // namespace
}  // namespace platform::desktop
