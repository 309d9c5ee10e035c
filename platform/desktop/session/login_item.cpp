// SPDX-License-Identifier: MIT
#include "platform/login_item.h"

#include <QCoreApplication>
#include <QFile>
#include <filesystem>
#include <memory>

#include "platform/application_metadata.h"
#include "platform/desktop/files/atomic_file.h"
#include "platform/desktop/files/base_directories.h"
#include "platform/desktop/session/desktop_entry.h"
#include "platform/file_manager.h"
#include "platform/localized_string.h"

namespace platform {
namespace {

namespace fs = std::filesystem;
using desktop::DesktopEntry;
using Entry = std::optional<DesktopEntry>;

constexpr const char* type = G_KEY_FILE_DESKTOP_KEY_TYPE;
constexpr const char* application = G_KEY_FILE_DESKTOP_TYPE_APPLICATION;
constexpr const char* name = G_KEY_FILE_DESKTOP_KEY_NAME;
constexpr const char* tryExec = G_KEY_FILE_DESKTOP_KEY_TRY_EXEC;
constexpr const char* hidden = G_KEY_FILE_DESKTOP_KEY_HIDDEN;
constexpr const char* enabled = "X-GNOME-Autostart-enabled";

fs::path entryBelow(const fs::path& configFolder) {
  return configFolder / "autostart" / (std::string(metadata::identifier) + ".desktop");
}

/// The user's own file, which overrides the system's.
fs::path ownFile() { return entryBelow(desktop::configHome()); }

bool isFile(const fs::path& path) {
  std::error_code error;
  return fs::is_regular_file(path, error);
}

Entry read(const fs::path& file) {
  std::error_code error;
  const auto bytes = desktop::readFile(file, desktop::largestSettings, error);
  return bytes ? DesktopEntry::parse(*bytes) : std::nullopt;
}

/// From the first system folder that has such a file. If that file is malformed, later folders are not read.
Entry systemWideEntry() {
  for (const char* const* folder = g_get_system_config_dirs(); *folder != nullptr; ++folder) {
    const fs::path file = entryBelow(*folder);
    if (file.is_absolute() && isFile(file)) return read(file);
  }
  return std::nullopt;
}

/// The entry that counts for the desktop: the user's own file, even if it is malformed, else the system's.
Entry decisiveEntry() { return isFile(ownFile()) ? read(ownFile()) : systemWideEntry(); }

bool isOn(const DesktopEntry& entry) {
  return entry.string(type) == application && !entry.boolean(hidden, false) && entry.boolean(enabled, true) &&
         entry.isShownHere();
}

bool isExecutable(const std::optional<std::string>& program) {
  return program && std::unique_ptr<char, decltype(&g_free)>(g_find_program_in_path(program->c_str()), g_free);
}

bool triesWhatIsThere(const DesktopEntry& entry) {
  const auto program = entry.string(tryExec);
  return !program || isExecutable(program);
}

/// Makes the desktop start `program` by this entry.
void letStart(DesktopEntry& entry, const std::string& program) {
  entry.setString(type, application);
  if (!entry.string(name)) entry.setString(name, std::string(metadata::name));
  if (entry.boolean(hidden, false)) entry.setString(hidden, "false");
  if (!entry.boolean(enabled, true)) entry.setString(enabled, "true");
  entry.showHere();
  const bool programIsMissing = !isExecutable(entry.program());
  if (programIsMissing) entry.setProgram(program);
  if (programIsMissing || !triesWhatIsThere(entry)) entry.setString(tryExec, program);
}

Entry newEntry() {
  return DesktopEntry::parse("[Desktop Entry]\nType=Application\nName=" + std::string(metadata::name) +
                             "\nComment=" + NSLocalizedString("One plain-text note, always at hand") +
                             "\nIcon=" + std::string(metadata::identifier) +
                             "\nTerminal=false\nStartupNotify=false\nX-GNOME-Autostart-enabled=true\n");
}

NSError failure(const std::string& what, const fs::path& path, const std::error_code& why) {
  return {"cannot " + what + ' ' + path.string() + ": " + why.message()};
}

/// Whether the file is a link to an entry of the applications menu, which must not be changed with it.
bool isLinkToMenuEntry(const fs::path& file) {
  std::error_code noLink;
  return fs::read_symlink(file, noLink).parent_path().filename() == "applications";
}

std::optional<NSError> saveAsOwn(const DesktopEntry& entry) {
  const fs::path file = ownFile();
  if (const auto error = desktop::makeFolder(file.parent_path(), true))
    return failure("make", file.parent_path(), error);
  std::error_code unremovable;
  if (isLinkToMenuEntry(file)) fs::remove(file, unremovable);
  if (!read(file)) {
    const auto error = NSFileManager::defaultManager().keepUnreadableItemAtURL(file);
    if (error) return failure("keep", file, error);
  }
  desktop::removeStaleTemporaries(file);
  if (const auto error = desktop::replaceFile(file, entry.bytes())) return failure("write", file, error);
  return std::nullopt;
}

}  // namespace

SMAppService& SMAppService::mainAppService() {
  static SMAppService service;
  return service;
}

SMAppServiceStatus SMAppService::status() const {
  const auto entry = decisiveEntry();
  if (!entry || !isOn(*entry)) return SMAppServiceStatusNotRegistered;
  const bool starts = isExecutable(entry->program()) && triesWhatIsThere(*entry);
  return starts ? SMAppServiceStatusEnabled : SMAppServiceStatusNotFound;
}

std::optional<NSError> SMAppService::registerAndReturnError() {
  if (status() == SMAppServiceStatusEnabled) return std::nullopt;
  auto entry = read(ownFile());
  if (!entry) entry = systemWideEntry();
  if (!entry) entry = newEntry();
  // Qt has read this path at start, so it stays right when an upgrade replaces the running program.
  const std::string program = QFile::encodeName(QCoreApplication::applicationFilePath()).toStdString();
  letStart(*entry, program);
  if (auto error = saveAsOwn(*entry)) return error;
  if (status() == SMAppServiceStatusEnabled) return std::nullopt;
  return NSError{"the desktop does not start " + program + " by " + ownFile().string()};
}

std::optional<NSError> SMAppService::unregisterAndReturnError() {
  auto entry = decisiveEntry();
  if (!entry || !isOn(*entry)) return std::nullopt;
  entry->setString(hidden, "true");
  return saveAsOwn(*entry);
}

}  // namespace platform
