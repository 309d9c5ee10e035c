// SPDX-License-Identifier: MIT
#include "platform/desktop/shortcuts/gnome_settings.h"

#include <gio/gio.h>

#include <algorithm>
#include <cctype>
#include <memory>
#include <set>
#include <string>
#include <string_view>
#include <vector>

namespace platform::desktop {
namespace {

constexpr auto mediaKeys = "org.gnome.settings-daemon.plugins.media-keys";
constexpr auto customShortcut = "org.gnome.settings-daemon.plugins.media-keys.custom-keybinding";
constexpr auto customShortcuts = "custom-keybindings";  // the key with their folders
const std::string customFolder = "/org/gnome/settings-daemon/plugins/media-keys/custom-keybindings/";

/// The other settings in which GNOME has key combinations.
constexpr const char* schemasWithKeys[] = {mediaKeys, "org.gnome.desktop.wm.keybindings", "org.gnome.shell.keybindings",
                                           "org.gnome.mutter.keybindings", "org.gnome.mutter.wayland.keybindings"};

template <auto free>
struct Free {
  template <typename T>
  void operator()(T* pointer) const {
    free(pointer);
  }
};
using Settings = std::unique_ptr<GSettings, Free<g_object_unref>>;
using Schema = std::unique_ptr<GSettingsSchema, Free<g_settings_schema_unref>>;
using Value = std::unique_ptr<GVariant, Free<g_variant_unref>>;
using Strings = std::unique_ptr<char*, Free<g_strfreev>>;

/// Null if the schema is not installed.
Schema schemaOf(const char* name) {
  GSettingsSchemaSource* const source = g_settings_schema_source_get_default();
  return Schema(source == nullptr ? nullptr : g_settings_schema_source_lookup(source, name, TRUE));
}

/// A combination as a set of its parts, for comparison.
std::set<std::string> partsOf(std::string_view binding) {
  std::set<std::string> parts;
  std::string part;
  for (const char c : binding) {
    if (c == '<' || c == '>') {
      if (!part.empty()) parts.insert(part);
      part.clear();
    } else {
      part += static_cast<char>(std::tolower(static_cast<unsigned char>(c)));
    }
  }
  parts.insert(part);
  for (const char* const other : {"primary", "ctrl", "ctl"}) {
    if (parts.erase(other) != 0) parts.insert("control");
  }
  if (parts.erase("mod1") != 0) parts.insert("alt");
  return parts;
}

std::vector<std::string> textsIn(GVariant* value) {
  if (g_variant_is_of_type(value, G_VARIANT_TYPE_STRING)) return {g_variant_get_string(value, nullptr)};
  if (!g_variant_is_of_type(value, G_VARIANT_TYPE_STRING_ARRAY)) return {};
  const std::unique_ptr<const char*, Free<g_free>> texts(g_variant_get_strv(value, nullptr));
  std::vector<std::string> all;
  for (const char* const* text = texts.get(); *text != nullptr; ++text) all.emplace_back(*text);
  return all;
}

/// The folders of the custom shortcuts that there are.
std::vector<std::string> foldersIn(GSettings* settings) {
  const Value folders(g_settings_get_value(settings, customShortcuts));
  return textsIn(folders.get());
}

Settings customShortcutIn(const std::string& folder) {
  return Settings(g_settings_new_with_path(customShortcut, folder.c_str()));
}

bool hasKeys(GSettings* settings, const char* key, const std::set<std::string>& wanted) {
  const Value value(g_settings_get_value(settings, key));
  const auto texts = textsIn(value.get());
  return std::any_of(texts.begin(), texts.end(), [&](const std::string& text) { return partsOf(text) == wanted; });
}

bool schemaHasKeys(const char* name, const std::set<std::string>& wanted) {
  const Schema schema = schemaOf(name);
  if (!schema) return false;
  const Settings settings(g_settings_new(name));
  const Strings keys(g_settings_schema_list_keys(schema.get()));
  for (char** key = keys.get(); *key != nullptr; ++key) {
    if (hasKeys(settings.get(), *key, wanted)) return true;
  }
  return false;
}

bool areTaken(const std::vector<std::string>& folders, const std::set<std::string>& keys) {
  return std::any_of(std::begin(schemasWithKeys), std::end(schemasWithKeys),
                     [&](const char* schema) { return schemaHasKeys(schema, keys); }) ||
         std::any_of(folders.begin(), folders.end(), [&](const std::string& folder) {
           return hasKeys(customShortcutIn(folder).get(), "binding", keys);
         });
}

void append(GSettings* settings, std::vector<std::string> folders, const std::string& folder) {
  folders.push_back(folder);
  std::vector<const char*> texts;
  texts.reserve(folders.size() + 1);
  for (const std::string& each : folders) texts.push_back(each.c_str());
  texts.push_back(nullptr);
  g_settings_set_strv(settings, customShortcuts, texts.data());
}

}  // namespace

extern "C" bool quillberryAddGnomeShortcut(const GnomeShortcut& shortcut) {
  if (!schemaOf(mediaKeys) || !schemaOf(customShortcut)) return false;
  const Settings settings(g_settings_new(mediaKeys));
  const std::vector<std::string> folders = foldersIn(settings.get());
  const std::string folder = customFolder + shortcut.folder + '/';
  if (std::find(folders.begin(), folders.end(), folder) != folders.end()) return true;  // maybe changed by the user
  if (areTaken(folders, partsOf(shortcut.binding))) return false;
  const Settings entry = customShortcutIn(folder);
  g_settings_set_string(entry.get(), "name", shortcut.name);
  g_settings_set_string(entry.get(), "command", shortcut.command);
  g_settings_set_string(entry.get(), "binding", shortcut.binding);
  append(settings.get(), folders, folder);
  return true;
}

}  // namespace platform::desktop
