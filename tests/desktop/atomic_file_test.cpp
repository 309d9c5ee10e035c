// SPDX-License-Identifier: MIT
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <sys/resource.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <csignal>
#include <vector>

#include "platform/desktop/files/atomic_file.h"
#include "platform/desktop/files/base_directories.h"
#include "tests/desktop/scratch.h"

namespace platform::desktop {
namespace {

namespace fs = std::filesystem;
using scratch::get;
using scratch::put;
using testing::Optional;

class AtomicFile : public testing::Test {
 protected:
  scratch::Folder scratch;
  fs::path folder = scratch.path() / "notes";
  fs::path note = folder / "note.txt";

  void SetUp() override { fs::create_directory(folder); }

  std::vector<std::string> names(const fs::path& where) const {
    std::vector<std::string> all;
    for (const auto& entry : fs::directory_iterator(where)) all.push_back(entry.path().filename());
    std::sort(all.begin(), all.end());
    return all;
  }
  static unsigned mode(const fs::path& path) { return static_cast<unsigned>(fs::status(path).permissions()); }
};

TEST_F(AtomicFile, NewFilesAreTheOwnersAndOldOnesKeepTheirMode) {
  EXPECT_FALSE(replaceFile(note, "a"));
  EXPECT_EQ(mode(note), 0600U);
  for (const unsigned kept : {0644U, 0664U, 0400U, 0640U}) {
    fs::permissions(note, fs::perms(kept));
    EXPECT_FALSE(replaceFile(note, "b"));
    EXPECT_EQ(mode(note), kept);
  }
  EXPECT_FALSE(makeFolder(folder / "x" / "y", true));
  EXPECT_EQ(mode(folder / "x"), 0700U);
  EXPECT_EQ(mode(folder / "x" / "y"), 0700U);
  EXPECT_EQ(names(folder), (std::vector<std::string>{"note.txt", "x"}));
}

TEST_F(AtomicFile, LinksStayAndTheirTargetsGetTheText) {
  const fs::path elsewhere = scratch.path() / "elsewhere";
  fs::create_directory(elsewhere);
  struct Case {
    fs::path link;
    fs::path target;
  };
  // Absolute, relative, through another link, to a file that is not there yet, to another file system.
  fs::create_symlink(elsewhere / "a", folder / "absolute");
  fs::create_symlink("../elsewhere/b", folder / "relative");
  fs::create_symlink("relative", folder / "chained");
  fs::create_symlink(elsewhere / "missing", folder / "dangling");
  put(elsewhere / "a", "old");
  put(elsewhere / "b", "old");
  std::vector<Case> cases{{folder / "absolute", elsewhere / "a"},
                          {folder / "relative", elsewhere / "b"},
                          {folder / "chained", elsewhere / "b"},
                          {folder / "dangling", elsewhere / "missing"}};
  const fs::path otherDisk = fs::path("/dev/shm") / ("quillberry-test-" + std::to_string(getpid()));
  struct stat here {};
  struct stat there {};
  if (stat(folder.c_str(), &here) == 0 && stat("/dev/shm", &there) == 0 && here.st_dev != there.st_dev) {
    fs::create_symlink(otherDisk, folder / "crossing");
    cases.push_back({folder / "crossing", otherDisk});
  }
  for (const auto& [link, target] : cases) {
    const std::string text = "for " + link.filename().string();
    EXPECT_FALSE(replaceFile(link, text));
    EXPECT_TRUE(fs::is_symlink(link)) << link;
    EXPECT_THAT(get(target), Optional(text));
    EXPECT_FALSE(fs::is_symlink(target));
  }
  fs::remove(otherDisk);
  EXPECT_EQ(names(elsewhere), (std::vector<std::string>{"a", "b", "missing"}));
}

TEST_F(AtomicFile, LinksThatLeadNowhereStay) {
  fs::create_symlink("there", folder / "here");
  fs::create_symlink("here", folder / "there");
  put(folder / "file", "old");
  fs::create_symlink("file/note.txt", folder / "below");
  EXPECT_EQ(replaceFile(folder / "here", "x"), std::errc::too_many_symbolic_link_levels);
  EXPECT_EQ(replaceFile(folder / "below", "x"), std::errc::not_a_directory);
  for (const char* name : {"here", "there", "below"}) EXPECT_TRUE(fs::is_symlink(folder / name)) << name;
  EXPECT_THAT(get(folder / "file"), Optional(std::string("old")));
  EXPECT_EQ(names(folder), (std::vector<std::string>{"below", "file", "here", "there"}));
}

TEST_F(AtomicFile, AFailedWriteLeavesTheOldTextAndNothingElse) {
  put(note, "old");
  // A full disk, as the process sees it: files may not grow past 8 KB, so a write of more is cut short.
  std::signal(SIGXFSZ, SIG_IGN);
  const rlimit small{8192, RLIM_INFINITY};
  ASSERT_EQ(setrlimit(RLIMIT_FSIZE, &small), 0);
  const auto error = replaceFile(note, std::string(100000, 'x'));
  const rlimit none{RLIM_INFINITY, RLIM_INFINITY};
  setrlimit(RLIMIT_FSIZE, &none);
  EXPECT_EQ(error, std::errc::file_too_large);
  EXPECT_THAT(get(note), Optional(std::string("old")));
  EXPECT_EQ(names(folder), std::vector<std::string>{"note.txt"});

  EXPECT_TRUE(replaceFile(folder / "missing" / "note.txt", "x"));
  fs::create_directory(folder / "dir");
  EXPECT_TRUE(replaceFile(folder / "dir", "x"));
  EXPECT_EQ(names(folder), (std::vector<std::string>{"dir", "note.txt"}));
}

TEST_F(AtomicFile, SweepsItsOwnLeftoversOnly) {
  for (const char* name : {".note.txt.quillberry-0123456789abcdef", ".note.txt.quillberry-x", ".note.txt.swp",
                           "note.txt", ".other.txt.quillberry-0123456789abcdef", "note.txt.unreadable"}) {
    put(folder / name, "x");
  }
  fs::create_symlink(note, scratch.path() / "link");
  removeStaleTemporaries(scratch.path() / "link");
  EXPECT_EQ(names(folder), (std::vector<std::string>{".note.txt.swp", ".other.txt.quillberry-0123456789abcdef",
                                                     "note.txt", "note.txt.unreadable"}));
  removeStaleTemporaries(scratch.path() / "no folder" / "note.txt");  // harmless
}

TEST_F(AtomicFile, ReadsRegularFilesOnlyAndWaitsForNothing) {
  constexpr std::size_t limit = 3 << 20;
  std::error_code error;
  EXPECT_FALSE(readFile(folder, limit, error));
  EXPECT_EQ(error, std::errc::is_a_directory);
  ASSERT_EQ(mkfifo(note.c_str(), 0600), 0);
  EXPECT_FALSE(readFile(note, limit, error));
  EXPECT_NE(error, std::errc::no_such_file_or_directory);
  EXPECT_FALSE(readFile("/dev/zero", limit, error));
  fs::create_symlink(folder / "missing", folder / "dangling");
  EXPECT_FALSE(readFile(folder / "dangling", limit, error));
  EXPECT_EQ(error, std::errc::no_such_file_or_directory);
  const std::string large(limit, 'y');
  put(folder / "large", large);
  EXPECT_THAT(readFile(folder / "large", limit, error), Optional(large));
  fs::resize_file(folder / "large", limit + 1);
  EXPECT_FALSE(readFile(folder / "large", limit, error));
  EXPECT_EQ(error, std::errc::file_too_large);
}

TEST_F(AtomicFile, KeepsTheFileAndNotTheLinkAndNoFolder) {
  fs::create_directory(folder / "elsewhere");
  put(folder / "elsewhere/target", "text");
  fs::create_symlink("elsewhere/target", folder / "link");
  EXPECT_FALSE(linkBackup(folder / "link", ".kept"));
  EXPECT_FALSE(linkBackup(folder / "link", ".kept")) << "it has that name already";
  EXPECT_FALSE(replaceFile(folder / "link", "new"));
  EXPECT_THAT(get(folder / "elsewhere/target.kept"), Optional(std::string("text")));
  EXPECT_EQ(linkBackup(folder / "link", ".kept"), std::errc::file_exists);
  EXPECT_TRUE(linkBackup(folder / "elsewhere", ".kept"));
  EXPECT_THAT(get(folder / "elsewhere/target"), Optional(std::string("new")));
}

TEST_F(AtomicFile, BaseDirectoriesFollowTheirStandard) {
  EXPECT_EQ(dataHome(), scratch.path() / "data");
  setenv("XDG_DATA_HOME", "relative/data", 1);
  setenv("XDG_CONFIG_HOME", "", 1);
  EXPECT_EQ(dataHome(), scratch.path() / ".local/share");
  EXPECT_EQ(configHome(), scratch.path() / ".config");
  unsetenv("HOME");
  EXPECT_TRUE(dataHome().is_absolute());
}

}  // namespace
}  // namespace platform::desktop
