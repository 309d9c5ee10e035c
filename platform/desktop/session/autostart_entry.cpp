// SPDX-License-Identifier: MIT
#include "platform/desktop/session/autostart_entry.h"

#include <algorithm>
#include <cstdlib>
#include <memory>
#include <sstream>
#include <vector>

#include "platform/application_metadata.h"
#include "platform/desktop/files/atomic_file.h"
#include "platform/desktop/files/base_directories.h"
#include "platform/desktop/session/desktop_entry.h"
#include "platform/file_manager.h"
#include "platform/localized_string.h"

namespace platform::desktop {
namespace {

namespace fs = std::filesystem;
using Names = std::vector<std::string>;

constexpr const char* type = G_KEY_FILE_DESKTOP_KEY_TYPE;
constexpr const char* application = G_KEY_FILE_DESKTOP_TYPE_APPLICATION;
constexpr const char* name = G_KEY_FILE_DESKTOP_KEY_NAME;
constexpr const char* tryExec = G_KEY_FILE_DESKTOP_KEY_TRY_EXEC;
constexpr const char* hidden = G_KEY_FILE_DESKTOP_KEY_HIDDEN;
constexpr const char* onlyShowIn = G_KEY_FILE_DESKTOP_KEY_ONLY_SHOW_IN;
constexpr const char* notShowIn = G_KEY_FILE_DESKTOP_KEY_NOT_SHOW_IN;
constexpr const char* enabled = "X-GNOME-Autostart-enabled";

bool contains(const Names& names, const std::string& name) {
  return std::find(names.begin(), names.end(), name) != names.end();
}

/// The parts of an environment variable that is a list with colons.
Names listIn(const char* variable, const char* unset) {
  const char* const value = std::getenv(variable);
  std::istringstream parts(value != nullptr && *value != '\0' ? value : unset);
  Names names;
  for (std::string part; std::getline(parts, part, ':');) {
    if (!part.empty()) names.push_back(part);
  }
  return names;
}

/// From the most specific to the most general.
Names currentDesktops() { return listIn("XDG_CURRENT_DESKTOP", ""); }

fs::path entryBelow(const fs::path& configFolder) {
  return configFolder / "autostart" / (std::string(metadata::identifier) + ".desktop");
}

std::vector<fs::path> systemWideFiles() {
  std::vector<fs::path> files;
  for (const fs::path folder : listIn("XDG_CONFIG_DIRS", "/etc/xdg")) {
    if (folder.is_absolute()) files.push_back(entryBelow(folder));
  }
  return files;
}

std::optional<DesktopEntry> read(const fs::path& file) {
  std::error_code error;
  const auto bytes = readFile(file, largestSettings, error);
  return bytes ? DesktopEntry::parse(*bytes) : std::nullopt;
}

/// The first file decides, even if it is no entry. What is no file is passed over.
std::optional<DesktopEntry> readFirst(const std::vector<fs::path>& files) {
  const auto file = std::find_if(files.begin(), files.end(), [](const fs::path& path) {
    std::error_code error;
    return fs::is_regular_file(path, error);
  });
  return file == files.end() ? std::nullopt : read(*file);
}

std::optional<DesktopEntry> decisiveEntry(const fs::path& own) {
  auto files = systemWideFiles();
  files.insert(files.begin(), own);
  return readFirst(files);
}

bool isShownIn(const DesktopEntry& entry, const Names& desktops) {
  const auto only = entry.list(onlyShowIn);
  const auto never = entry.list(notShowIn).value_or(Names());
  for (const auto& desktop : desktops) {
    if (only && contains(*only, desktop)) return true;
    if (contains(never, desktop)) return false;
  }
  return !only;
}

void setOrRemoveList(DesktopEntry& entry, const char* key, const Names& values) {
  if (values.empty()) {
    entry.remove(key);
  } else {
    entry.setList(key, values);
  }
}

void letShowIn(DesktopEntry& entry, const Names& desktops) {
  if (auto never = entry.list(notShowIn)) {
    if (std::erase_if(*never, [&](const auto& desktop) { return contains(desktops, desktop); }) != 0)
      setOrRemoveList(entry, notShowIn, *never);
  }
  if (isShownIn(entry, desktops)) return;
  auto only = desktops.empty() ? Names() : entry.list(onlyShowIn).value_or(Names());
  if (!desktops.empty()) only.push_back(desktops.front());
  setOrRemoveList(entry, onlyShowIn, only);
}

bool isOn(const DesktopEntry& entry) {
  return entry.string(type) == application && !entry.boolean(hidden) &&
         (!entry.has(enabled) || entry.boolean(enabled)) && isShownIn(entry, currentDesktops());
}

bool isExecutable(const std::optional<std::string>& program) {
  return program && std::unique_ptr<char, decltype(&g_free)>(g_find_program_in_path(program->c_str()), g_free);
}

bool triesWhatIsThere(const DesktopEntry& entry) {
  const auto program = entry.string(tryExec);
  return !program || isExecutable(program);
}

/// Changes what keeps the desktop from starting it.
void letStart(DesktopEntry& entry, const std::string& program) {
  entry.setString(type, application);
  if (!entry.string(name)) entry.setString(name, std::string(metadata::name));
  if (entry.has(hidden)) entry.setBoolean(hidden, false);
  if (entry.has(enabled)) entry.setBoolean(enabled, true);
  if (!isShownIn(entry, currentDesktops())) letShowIn(entry, currentDesktops());
  const bool programIsMissing = !isExecutable(entry.program());
  if (programIsMissing) entry.setProgram(program);
  if (programIsMissing || !triesWhatIsThere(entry)) entry.setString(tryExec, program);
}

DesktopEntry newEntry() {
  DesktopEntry entry;
  entry.setString(type, application);
  entry.setString(name, std::string(metadata::name));
  entry.setString(G_KEY_FILE_DESKTOP_KEY_COMMENT, NSLocalizedString("One plain-text note, always at hand"));
  entry.setString(G_KEY_FILE_DESKTOP_KEY_ICON, std::string(metadata::identifier));
  entry.setBoolean(G_KEY_FILE_DESKTOP_KEY_TERMINAL, false);
  entry.setBoolean(G_KEY_FILE_DESKTOP_KEY_STARTUP_NOTIFY, false);
  entry.setBoolean(enabled, true);
  return entry;
}

NSError failure(const std::string& what, const fs::path& path, const std::error_code& why) {
  return {"cannot " + what + ' ' + path.string() + ": " + why.message()};
}

}  // namespace

AutostartEntry::AutostartEntry(fs::path program) : program_(std::move(program)), file_(entryBelow(configHome())) {}

SMAppServiceStatus AutostartEntry::status() const {
  const auto entry = decisiveEntry(file_);
  if (!entry || !isOn(*entry)) return SMAppServiceStatusNotRegistered;
  const bool starts = isExecutable(entry->program()) && triesWhatIsThere(*entry);
  return starts ? SMAppServiceStatusEnabled : SMAppServiceStatusNotFound;
}

std::optional<NSError> AutostartEntry::switchOn() const {
  if (status() == SMAppServiceStatusEnabled) return std::nullopt;
  auto entry = read(file_);
  if (!entry) entry = readFirst(systemWideFiles());
  if (!entry) entry = newEntry();
  letStart(*entry, program_);
  if (auto error = save(entry->bytes())) return error;
  const auto result = status();
  if (result == SMAppServiceStatusEnabled) return std::nullopt;
  const std::string verb = result == SMAppServiceStatusNotFound ? "find" : "start";
  return NSError{"the desktop does not " + verb + ' ' + program_.string() + " by " + file_.string()};
}

std::optional<NSError> AutostartEntry::switchOff() const {
  auto entry = decisiveEntry(file_);
  if (!entry || !isOn(*entry)) return std::nullopt;
  entry->setBoolean(hidden, true);
  return save(entry->bytes());
}

std::optional<NSError> AutostartEntry::save(const std::string& entry) const {
  const fs::path folder = file_.parent_path();
  if (const auto error = makeFolder(folder, true)) return failure("make", folder, error);
  if (!read(file_)) {
    const auto error = NSFileManager::defaultManager().keepUnreadableItemAtURL(file_);
    if (error) return failure("keep", file_, error);
  }
  sweepAuxiliaryFiles(file_);
  if (const auto error = replaceFile(file_, entry)) return failure("write", file_, error);
  return std::nullopt;
}

fs::path runningProgram(const fs::path& link) {
  // What the kernel says of a program whose file was removed or replaced.
  constexpr std::string_view removed = " (deleted)";
  std::error_code error;
  std::string path = fs::read_symlink(link, error).string();
  if (path.ends_with(removed) && !fs::exists(path, error)) path.erase(path.size() - removed.size());
  return path;
}

}  // namespace platform::desktop
