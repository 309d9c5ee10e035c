// SPDX-License-Identifier: MIT
#include <glib.h>

#include <QCoreApplication>
#include <algorithm>
#include <map>
#include <memory>
#include <vector>

#include "platform/desktop/session/desktop_entry.h"
#include "platform/login_item.h"
#include "tests/desktop/scratch.h"
#include "tests/fuzz/fuzz.h"

namespace {

using fuzz::require;
using namespace platform;
using Values = std::map<std::pair<std::string, std::string>, std::string>;

constexpr std::string_view changeable[] = {"Type",       "Name",      "Hidden", "X-GNOME-Autostart-enabled",
                                           "OnlyShowIn", "NotShowIn", "Exec",   "TryExec"};

/// The raw values of an entry by group and key, but for those that switching on or off may change.
Values othersIn(const std::string& bytes) {
  const std::unique_ptr<GKeyFile, decltype(&g_key_file_free)> file(g_key_file_new(), g_key_file_free);
  require(g_key_file_load_from_data(file.get(), bytes.data(), bytes.size(), G_KEY_FILE_KEEP_TRANSLATIONS, nullptr) != 0,
          "an entry stays one");
  Values values;
  const std::unique_ptr<char*, decltype(&g_strfreev)> groups(g_key_file_get_groups(file.get(), nullptr), g_strfreev);
  for (char** group = groups.get(); *group != nullptr; ++group) {
    const std::unique_ptr<char*, decltype(&g_strfreev)> keys(g_key_file_get_keys(file.get(), *group, nullptr, nullptr),
                                                             g_strfreev);
    for (char** key = keys.get(); key != nullptr && *key != nullptr; ++key) {
      const bool own = std::string_view(*group) == G_KEY_FILE_DESKTOP_GROUP;
      if (own && std::find(std::begin(changeable), std::end(changeable), *key) != std::end(changeable)) continue;
      const std::unique_ptr<char, decltype(&g_free)> value(g_key_file_get_value(file.get(), *group, *key, nullptr),
                                                           g_free);
      values[{*group, *key}] = value ? value.get() : "";
    }
  }
  return values;
}

/// Sorted: a group that is there twice becomes one.
std::vector<std::string> commentsIn(std::string_view bytes) {
  std::vector<std::string> comments;
  while (!bytes.empty()) {
    const std::string_view line = fuzz::cut(bytes, '\n');
    if (line.starts_with('#')) comments.emplace_back(line);
  }
  std::sort(comments.begin(), comments.end());
  return comments;
}

}  // namespace

int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  static int argc = 1;
  static char name[] = "fuzz_autostart";
  static char* argv[] = {name, nullptr};
  static const QCoreApplication app(argc, argv);
  static const scratch::Folder scratch;
  setenv("XDG_CONFIG_DIRS", scratch.path().c_str(), 1);
  setenv("XDG_CURRENT_DESKTOP", "ubuntu:GNOME", 1);
  const auto file = scratch.path() / "config/autostart/org.quillberry.Quillberry.desktop";
  const std::filesystem::path kept = file.string() + ".unreadable";
  const std::string bytes = fuzz::bytesOf(data, size);
  std::filesystem::remove(kept);
  scratch::put(file, bytes);

  SMAppService& service = SMAppService::mainAppService();
  const bool wasEntry = desktop::DesktopEntry::parse(bytes).has_value();
  for (int times = 0; times < 2; ++times) {
    require(!service.registerAndReturnError(), "it can be switched on");
    require(service.status() == SMAppServiceStatusEnabled, "the desktop starts it then");
    const auto on = scratch::get(file);
    require(!service.registerAndReturnError() && scratch::get(file) == on, "switching on twice changes nothing more");
    require(!service.unregisterAndReturnError(), "it can be switched off");
    require(service.status() == SMAppServiceStatusNotRegistered, "the desktop does not start it then");
  }
  const std::string rewritten = scratch::get(file).value_or("");
  require(scratch::get(kept) == (wasEntry ? std::nullopt : std::optional(bytes)),
          "no entry is kept beside, and only that");
  if (wasEntry) {
    require(othersIn(rewritten) == othersIn(bytes + '\n'), "every other value stays as the user wrote it");
    require(commentsIn(rewritten) == commentsIn(bytes), "every comment stays");
  }
  return 0;
}
