// SPDX-License-Identifier: MIT
#include "platform/file_manager.h"
#include "platform/headless/world.h"
#include "platform/string.h"
#include "platform/utf8.h"

namespace platform {

using headless::world;

namespace {

std::error_code error(std::errc code) { return std::make_error_code(code); }

bool hasFolder(const URL& url) { return world().folders.contains(url); }

}  // namespace

NSFileManager& NSFileManager::defaultManager() {
  static NSFileManager manager;
  return manager;
}

std::vector<URL> NSFileManager::URLsForDirectory(NSSearchPathDirectory /*directory*/,
                                                 NSSearchPathDomainMask /*domain*/) {
  return {"/home/user/.local/share"};
}

std::error_code NSFileManager::createDirectoryAtURL(const URL& url, bool withIntermediateDirectories) {
  if (hasFolder(url)) return {};
  if (world().faults.noFolder) return error(std::errc::permission_denied);
  if (world().files.contains(url)) return error(std::errc::file_exists);
  const URL parent = url.parent_path();
  if (parent != url && !hasFolder(parent)) {
    if (!withIntermediateDirectories) return error(std::errc::no_such_file_or_directory);
    if (const auto failed = createDirectoryAtURL(parent, true)) return failed;
  }
  world().folders.insert(url);
  world().record("folder " + url.string());
  return {};
}

std::error_code NSFileManager::keepItem(const URL& url, std::string_view suffix) {
  auto& files = world().files;
  const auto file = files.find(url);
  const URL kept = url.string() + std::string(suffix);
  if (file == files.end()) return error(std::errc::no_such_file_or_directory);
  if (const auto other = files.find(kept); other != files.end()) {
    return other->second == file->second ? std::error_code() : error(std::errc::file_exists);
  }
  if (world().faults.noLink) return error(std::errc::operation_not_permitted);
  world().record("link " + url.string() + " as " + kept.string());
  files[kept] = file->second;
  return {};
}

std::optional<std::string> NSString::stringWithContentsOfURL(const URL& url, std::error_code& result) {
  const auto file = world().files.find(url);
  if (file == world().files.end()) {
    result = error(std::errc::no_such_file_or_directory);
  } else if (world().faults.noRead) {
    result = error(std::errc::permission_denied);
  } else if (!isValidUtf8(file->second)) {
    result = error(std::errc::illegal_byte_sequence);
  } else {
    result.clear();
    return file->second;
  }
  return std::nullopt;
}

std::error_code NSString::writeToURL(std::string_view text, const URL& url) {
  if (!hasFolder(url.parent_path())) return error(std::errc::no_such_file_or_directory);
  if (world().faults.roomInBytes && text.size() > *world().faults.roomInBytes)
    return error(std::errc::no_space_on_device);
  world().files[url] = text;
  world().record("write " + url.string() + " " + std::to_string(text.size()) + " bytes");
  return {};
}

namespace headless {

Faults& faults() { return world().faults; }

void putFile(const URL& url, std::string contents) {
  for (URL folder = url.parent_path(); world().folders.insert(folder).second;) folder = folder.parent_path();
  world().files[url] = std::move(contents);
}

std::optional<std::string> fileAt(const URL& url) {
  const auto file = world().files.find(url);
  return file == world().files.end() ? std::nullopt : std::optional(file->second);
}

const std::map<URL, std::string>& files() { return world().files; }

}  // namespace headless
}  // namespace platform
