// SPDX-License-Identifier: MIT
#include "platform/desktop/files/atomic_file.h"

#include <fcntl.h>
#include <sys/random.h>
#include <sys/stat.h>
#include <sys/xattr.h>

#include <cerrno>
#include <cstdint>

#include "platform/desktop/base/unique_fd.h"

namespace platform::desktop {
namespace {

namespace fs = std::filesystem;

constexpr int longestLinkChain = 40;  // the kernel's limit
constexpr std::size_t longestNameKept = 200;
constexpr std::string_view auxiliaryMark = ".quillberry-";
constexpr auto accessListName = "system.posix_acl_access";
constexpr std::size_t largestAttribute = 65536;  // bytes, the kernel's limit

std::error_code lastError() { return {errno, std::generic_category()}; }

/// Runs a system call again for as long as a signal interrupts it.
template <typename Call>
auto uninterrupted(Call call) {
  auto result = call();
  while (result == -1 && errno == EINTR) result = call();
  return result;
}

/// The file that a chain of symbolic links ends at; it need not exist. A link that cannot be read is an error: taken
/// for the file itself, it would be replaced.
std::optional<fs::path> finalTarget(fs::path path, std::error_code& error) {
  for (int hops = 0; hops <= longestLinkChain; ++hops) {
    const fs::path target = fs::read_symlink(path, error);
    if (error == std::errc::invalid_argument || error == std::errc::no_such_file_or_directory) {
      error.clear();
      return path;
    }
    if (error) return std::nullopt;
    path = target.is_absolute() ? target : path.parent_path() / target;
  }
  error = std::make_error_code(std::errc::too_many_symbolic_link_levels);
  return std::nullopt;
}

fs::path folderOf(const fs::path& file) { return file.has_parent_path() ? file.parent_path() : fs::path("."); }

UniqueFd openFolder(const fs::path& folder) {
  return UniqueFd(uninterrupted([&] { return open(folder.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC); }));
}

/// The names of a file's temporary files: this, and a random number.
std::string auxiliaryPrefix(const fs::path& file) {
  std::string prefix(1, '.');
  prefix.append(file.filename().string(), 0, longestNameKept).append(auxiliaryMark);
  return prefix;
}

std::string randomNumber() {
  std::uint64_t number = 0;
  uninterrupted([&] { return getrandom(&number, sizeof number, 0); });
  return std::to_string(number);
}

/// A new file for its owner only. None if anything has that name.
UniqueFd createFile(int folder, const std::string& name) {
  constexpr int flags = O_WRONLY | O_CREAT | O_EXCL | O_NOFOLLOW | O_CLOEXEC;
  return UniqueFd(uninterrupted([&] { return openat(folder, name.c_str(), flags, 0600); }));
}

bool isWithoutAccessList(int error) { return error == ENODATA || error == ENOTSUP; }

/// The rights of further users and groups; empty if the file has no such list, none if it cannot be read.
std::optional<std::string> accessListOf(const fs::path& file) {
  std::string list(largestAttribute, '\0');
  const auto size = lgetxattr(file.c_str(), accessListName, list.data(), list.size());
  if (size < 0 && !isWithoutAccessList(errno)) return std::nullopt;
  list.resize(size < 0 ? 0 : static_cast<std::size_t>(size));
  return list;
}

/// An empty list takes away the one that a new file gets from its folder.
bool setAccessList(int file, const std::string& list) {
  if (!list.empty()) return fsetxattr(file, accessListName, list.data(), list.size(), 0) == 0;
  return fremovexattr(file, accessListName) == 0 || isWithoutAccessList(errno);
}

/// A new file beside the target. The destructor removes it unless it was renamed.
class AuxiliaryFile {
 public:
  AuxiliaryFile(int folder, const fs::path& target)
      : folder_(folder), name_(auxiliaryPrefix(target) + randomNumber()), fd_(createFile(folder, name_)) {
    present_ = bool(fd_);
  }
  AuxiliaryFile(const AuxiliaryFile&) = delete;
  AuxiliaryFile& operator=(const AuxiliaryFile&) = delete;
  ~AuxiliaryFile() {
    if (present_) unlinkat(folder_, name_.c_str(), 0);
  }

  explicit operator bool() const { return present_; }

  bool write(std::string_view contents) {
    while (!contents.empty()) {
      const auto written = uninterrupted([&] { return ::write(fd_.get(), contents.data(), contents.size()); });
      if (written < 0) return false;
      contents.remove_prefix(static_cast<std::size_t>(written));
    }
    return true;
  }

  /// Copies owner and rights as far as it can; failures are ignored, for the contents matter more. The owner may read
  /// the file in any case, or the note would be unreadable at the next start.
  void takeOwnerAndRights(const struct stat& existing, const std::optional<std::string>& accessList) {
    const bool hasGroup = fchown(fd_.get(), existing.st_uid, existing.st_gid) == 0 ||
                          fchown(fd_.get(), static_cast<uid_t>(-1), existing.st_gid) == 0;
    // Else the new group must not get the old one's rights, nor those of the list, whose mask is in the same bits.
    const bool hasAll = hasGroup && accessList && setAccessList(fd_.get(), *accessList);
    fchmod(fd_.get(), (existing.st_mode & (hasAll ? 07777U : 0707U)) | S_IRUSR);
  }

  bool finish() {
    return uninterrupted([this] { return fsync(fd_.get()); }) == 0 && fd_.close();
  }

  bool renameTo(const std::string& name) {
    if (renameat(folder_, name_.c_str(), folder_, name.c_str()) != 0) return false;
    present_ = false;
    return true;
  }

 private:
  int folder_;
  std::string name_;
  UniqueFd fd_;
  bool present_ = false;
};

std::error_code syncFolder(int folder) {
  if (uninterrupted([&] { return fsync(folder); }) == 0) return {};
  // Some file systems cannot sync a folder.
  return errno == EINVAL ? std::error_code() : lastError();
}

}  // namespace

std::optional<std::string> readFile(const fs::path& path, std::size_t largest, std::error_code& error) {
  const auto failed = [&error](std::error_code code) {
    error = code;
    return std::nullopt;
  };
  const UniqueFd fd(uninterrupted([&] { return open(path.c_str(), O_RDONLY | O_NONBLOCK | O_NOCTTY | O_CLOEXEC); }));
  struct stat status {};
  if (!fd || fstat(fd.get(), &status) != 0) return failed(lastError());
  if (S_ISDIR(status.st_mode)) return failed(std::make_error_code(std::errc::is_a_directory));
  if (!S_ISREG(status.st_mode)) return failed(std::make_error_code(std::errc::not_supported));

  // Compared twice: before the memory for it is taken, and after reading, since the file may grow meanwhile.
  const auto tooLarge = std::make_error_code(std::errc::file_too_large);
  if (static_cast<std::uintmax_t>(status.st_size) > largest) return failed(tooLarge);
  // With one byte more, the end is found without taking more memory.
  std::string contents(static_cast<std::size_t>(status.st_size) + 1, '\0');
  std::size_t length = 0;
  while (length <= largest) {
    if (length == contents.size()) contents.resize(length + 4096);
    const auto got = uninterrupted([&] { return read(fd.get(), contents.data() + length, contents.size() - length); });
    if (got < 0) return failed(lastError());
    if (got == 0) break;
    length += static_cast<std::size_t>(got);
  }
  if (length > largest) return failed(tooLarge);
  contents.resize(length);
  error.clear();
  return contents;
}

std::error_code replaceFile(const fs::path& path, std::string_view contents) {
  std::error_code error;
  const auto target = finalTarget(path, error);
  if (!target) return error;
  const std::string name = target->filename().string();
  const UniqueFd folder = openFolder(folderOf(*target));
  if (!folder) return lastError();
  AuxiliaryFile auxiliary(folder.get(), *target);
  if (!auxiliary || !auxiliary.write(contents)) return lastError();
  struct stat existing {};
  if (fstatat(folder.get(), name.c_str(), &existing, AT_SYMLINK_NOFOLLOW) == 0)
    auxiliary.takeOwnerAndRights(existing, accessListOf(*target));
  if (!auxiliary.finish() || !auxiliary.renameTo(name)) return lastError();
  syncFolder(folder.get());  // the text is in place even if this fails
  return {};
}

void removeStaleTemporaries(const fs::path& path) {
  std::error_code error;
  const auto target = finalTarget(path, error);
  if (!target) return;
  const std::string prefix = auxiliaryPrefix(*target);
  for (fs::directory_iterator entry(folderOf(*target), error), end; !error && entry != end; entry.increment(error)) {
    std::error_code unremovable;
    if (entry->path().filename().string().starts_with(prefix)) fs::remove(entry->path(), unremovable);
  }
}

std::error_code linkBackup(const fs::path& path, std::string_view suffix) {
  std::error_code error;
  const auto target = finalTarget(path, error);
  if (!target) return error;
  const UniqueFd folder = openFolder(folderOf(*target));
  if (!folder) return lastError();
  const std::string name = target->filename().string();
  const std::string kept = name + std::string(suffix);
  if (linkat(folder.get(), name.c_str(), folder.get(), kept.c_str(), 0) == 0) return syncFolder(folder.get());

  error = lastError();
  std::error_code ignored;
  if (error == std::errc::file_exists) {
    const bool same = fs::equivalent(*target, folderOf(*target) / kept, ignored);
    return same ? std::error_code() : error;
  }
  if (error == std::errc::no_such_file_or_directory || fs::is_directory(*target, ignored)) return error;
  // Some file systems have no hard links, and files of other users may not get one: then the file is renamed. Not all
  // of those have RENAME_NOREPLACE, so an empty file takes the new name first, or learns that it is taken.
  UniqueFd place = createFile(folder.get(), kept);
  if (!place || !place.close()) return lastError();
  if (renameat(folder.get(), name.c_str(), folder.get(), kept.c_str()) == 0) return syncFolder(folder.get());
  error = lastError();
  // Over a network a rename may be done and yet fail.
  if (fs::is_empty(folderOf(*target) / kept, ignored)) unlinkat(folder.get(), kept.c_str(), 0);
  return error;
}

std::error_code makeFolder(const fs::path& path, bool withParents) {
  if (mkdir(path.c_str(), 0700) == 0) {
    // Without this a power cut could take it away again, with all that is synced inside.
    if (const UniqueFd parent = openFolder(folderOf(path))) syncFolder(parent.get());
    return {};
  }
  if (errno == ENOENT && withParents && path.has_parent_path() && path.parent_path() != path) {
    if (const auto error = makeFolder(path.parent_path(), true)) return error;
    return makeFolder(path, false);
  }
  const std::error_code error = lastError();
  std::error_code ignored;
  return error == std::errc::file_exists && fs::is_directory(path, ignored) ? std::error_code() : error;
}

}  // namespace platform::desktop
