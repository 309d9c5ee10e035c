// SPDX-License-Identifier: MIT
#include <QStringList>
#include <memory>

#include "platform/desktop/session/desktop_entry.h"
#include "platform/login_item.h"
#include "tests/desktop/scratch.h"
#include "tests/fuzz/fuzz.h"

namespace {

/// The lines of an entry as GLib writes it, without those that switching on or off may change.
QStringList othersIn(const std::string& bytes) {
  const std::unique_ptr<GKeyFile, decltype(&g_key_file_free)> file(g_key_file_new(), g_key_file_free);
  constexpr auto all = GKeyFileFlags(G_KEY_FILE_KEEP_COMMENTS | G_KEY_FILE_KEEP_TRANSLATIONS);
  fuzz::require(g_key_file_load_from_data(file.get(), bytes.data(), bytes.size(), all, nullptr), "an entry stays one");
  for (const char* const key :
       {"Type", "Name", "Hidden", "X-GNOME-Autostart-enabled", "OnlyShowIn", "NotShowIn", "Exec", "TryExec"}) {
    g_key_file_remove_key(file.get(), G_KEY_FILE_DESKTOP_GROUP, key, nullptr);
  }
  const std::unique_ptr<char, decltype(&g_free)> rest(g_key_file_to_data(file.get(), nullptr, nullptr), g_free);
  return QString::fromUtf8(rest.get()).split(u'\n', Qt::SkipEmptyParts);
}

}  // namespace

void fuzz::autostart(const std::string& bytes) {
  setenv("XDG_CONFIG_DIRS", std::getenv("HOME"), 1);
  setenv("XDG_CURRENT_DESKTOP", "ubuntu:GNOME", 1);
  const auto file =
      std::filesystem::path(std::getenv("XDG_CONFIG_HOME")) / "autostart/org.quillberry.Quillberry.desktop";
  const auto kept = file.string() + ".unreadable";
  std::filesystem::remove(kept);
  scratch::put(file, bytes);

  auto& service = platform::SMAppService::mainAppService();
  const bool wasEntry = platform::desktop::DesktopEntry::parse(bytes).has_value();
  for (int times = 0; times < 2; ++times) {
    require(!service.registerAndReturnError(), "it can be switched on");
    require(service.status() == platform::SMAppServiceStatusEnabled, "the desktop starts it then");
    const auto on = scratch::get(file);
    require(!service.registerAndReturnError() && scratch::get(file) == on, "switching on twice changes nothing more");
    require(!service.unregisterAndReturnError(), "it can be switched off");
    require(service.status() == platform::SMAppServiceStatusNotRegistered, "the desktop does not start it then");
  }
  require(scratch::get(kept) == (wasEntry ? std::nullopt : std::optional(bytes)),
          "no entry is kept beside, and only that");
  require(!wasEntry || othersIn(scratch::get(file).value_or("")) == othersIn(bytes), "all else stays as it was");
}
