// SPDX-License-Identifier: MIT
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <sys/stat.h>
#include <sys/xattr.h>

#include <array>
#include <cstdint>

#include "platform/application.h"
#include "platform/desktop/files/atomic_file.h"
#include "platform/desktop/files/base_directories.h"
#include "platform/log.h"
#include "platform/user_defaults.h"
#include "tests/desktop/scratch.h"

namespace platform::desktop {
namespace {

namespace fs = std::filesystem;
using scratch::get;
using scratch::put;
using testing::Optional;

/// What happens to a save that fails or is cut short is in tests/campaign.
class Files : public testing::Test {
 protected:
  scratch::Folder scratch;
  fs::path folder = scratch.path() / "notes";
  fs::path note = folder / "note.txt";

  static unsigned mode(const fs::path& path) { return static_cast<unsigned>(fs::status(path).permissions()); }
  std::vector<std::string> names() const {
    std::vector<std::string> all;
    for (const auto& entry : fs::directory_iterator(folder)) all.push_back(entry.path().filename());
    return all;
  }
};

TEST_F(Files, NewOnesAreTheOwnersAndOldOnesKeepTheirMode) {
  EXPECT_FALSE(makeFolder(folder / "x", true));
  EXPECT_EQ(mode(folder), 0700U);
  EXPECT_EQ(mode(folder / "x"), 0700U);
  EXPECT_FALSE(replaceFile(note, "a"));
  EXPECT_EQ(mode(note), 0600U);
  for (const unsigned kept : {0644U, 0664U, 0400U}) {
    fs::permissions(note, fs::perms(kept));
    EXPECT_FALSE(replaceFile(note, "b"));
    EXPECT_EQ(mode(note), kept);
  }
  fs::permissions(note, fs::perms(0));
  EXPECT_FALSE(replaceFile(note, "readable"));
  EXPECT_EQ(mode(note), 0400U);
}

TEST_F(Files, OnesWithAnAccessListKeepItAndGiveTheGroupNoMore) {
  // Version, then who, what and an id of two parts: the owner and user 1 may read and write, all others nothing. The
  // list's mask is where a mode has the group's rights.
  const std::array<std::int16_t, 22> list{2, 0, 1, 6, -1, -1, 2, 6, 1, 0, 4, 0, -1, -1, 16, 6, -1, -1, 32, 0, -1, -1};
  put(note, "a");
  constexpr auto name = "system.posix_acl_access";
  if (setxattr(note.c_str(), name, list.data(), sizeof list, 0) != 0) GTEST_SKIP() << "no lists here";
  EXPECT_FALSE(replaceFile(note, "b"));
  std::array<std::int16_t, 22> kept{};
  getxattr(note.c_str(), name, kept.data(), sizeof kept);
  EXPECT_EQ(kept, list);
}

TEST_F(Files, LinksStayAndTheFilesThatTheyLeadToAreReplacedAndKept) {
  put(folder / "deep/file", "old");
  fs::create_symlink("deep/file", folder / "relative");
  fs::create_symlink(folder / "relative", folder / "chained");
  fs::create_symlink("endless", folder / "endless");
  fs::create_symlink("deep/file/note.txt", folder / "below");
  for (int times = 0; times < 2; ++times) EXPECT_FALSE(linkBackup(folder / "chained", ".kept"));
  EXPECT_FALSE(replaceFile(folder / "chained", "new"));
  EXPECT_EQ(linkBackup(folder / "chained", ".kept"), std::errc::file_exists);
  EXPECT_THAT(get(folder / "deep/file"), Optional(std::string("new")));
  EXPECT_THAT(get(folder / "deep/file.kept"), Optional(std::string("old")));
  EXPECT_EQ(replaceFile(folder / "endless", "x"), std::errc::too_many_symbolic_link_levels);
  EXPECT_EQ(replaceFile(folder / "below", "x"), std::errc::not_a_directory);
  EXPECT_TRUE(replaceFile(folder / "deep", "x"));
  EXPECT_TRUE(linkBackup(folder / "deep", ".kept"));
  EXPECT_THAT(names(), testing::UnorderedElementsAre("below", "chained", "deep", "endless", "relative"));
  for (const char* const link : {"below", "chained", "endless", "relative"}) {
    EXPECT_TRUE(fs::is_symlink(folder / link)) << link;
  }
}

TEST_F(Files, OnlyTheirOwnLeftoversAreSwept) {
  const std::vector<std::string> others{".note.txt.swp", ".other.txt.quillberry-1", "note.txt", "note.txt.unreadable"};
  for (const auto& name : others) put(folder / name, "x");
  put(folder / ".note.txt.quillberry-0123456789", "x");
  fs::create_symlink(note, scratch.path() / "link");
  removeStaleTemporaries(scratch.path() / "link");
  EXPECT_THAT(names(), testing::UnorderedElementsAreArray(others));
  removeStaleTemporaries(scratch.path() / "no folder" / "note.txt");  // harmless
}

TEST_F(Files, AreReadUpToALimitAndNotWaitedFor) {
  constexpr std::size_t limit = 3 << 20;
  put(folder / "large", std::string(limit, 'y'));
  put(folder / "larger", std::string(limit + 1, 'y'));
  ASSERT_EQ(mkfifo(note.c_str(), 0600), 0);
  const std::pair<fs::path, std::errc> cases[] = {{folder / "large", {}},
                                                  {folder / "larger", std::errc::file_too_large},
                                                  {folder / "missing", std::errc::no_such_file_or_directory},
                                                  {folder, std::errc::is_a_directory},
                                                  {note, std::errc::not_supported},
                                                  {"/dev/zero", std::errc::not_supported},
                                                  {"/proc/version", {}}};  // of which the size is not told
  for (const auto& [path, expected] : cases) {
    std::error_code error = std::make_error_code(std::errc::io_error);
    const auto read = readFile(path, limit, error);
    EXPECT_TRUE(expected == std::errc{} ? !error : error == expected) << path << ' ' << error.message();
    EXPECT_EQ(read, error ? std::nullopt : get(path)) << path;
  }
}

TEST_F(Files, OfSettingsAreWrittenAtTheNextChangeOrTheEndIfTheyCouldNotBe) {
  const auto app = NSApplication::sharedApplication();
  const fs::path file = configHome() / "Quillberry/settings.json";
  for (const bool atTheEnd : {false, true}) {
    fs::remove_all(file.parent_path());
    put(file.parent_path(), "a file where the folder should be");
    NSUserDefaults::standardUserDefaults().setBool(atTheEnd, "pinned");
    EXPECT_EQ(NSUserDefaults::standardUserDefaults().objectForKey("pinned"), DefaultsValue(atTheEnd));
    fs::remove(file.parent_path());
    atTheEnd ? app->terminate(nullptr) : NSUserDefaults::standardUserDefaults().setBool(false, "pinned");
    EXPECT_THAT(get(file), Optional(testing::HasSubstr(atTheEnd ? "true" : "false")));
  }
}

TEST_F(Files, GoBelowTheStandardsFolders) {
  EXPECT_EQ(dataHome(), scratch.path() / "data");
  setenv("XDG_DATA_HOME", "relative/data", 1);
  setenv("XDG_CONFIG_HOME", "", 1);
  EXPECT_EQ(dataHome(), scratch.path() / ".local/share");
  EXPECT_EQ(configHome(), scratch.path() / ".config");
  unsetenv("HOME");
  EXPECT_TRUE(dataHome().is_absolute());
}

TEST(Log, IsOneLineWhateverTheMessage) {
  testing::internal::CaptureStderr();
  NSLog("100%s\nof \"it\"\r\x1B[1m");
  EXPECT_EQ(testing::internal::GetCapturedStderr(), "100%s of \"it\"  [1m\n");
}

}  // namespace
}  // namespace platform::desktop
