// SPDX-License-Identifier: MIT
#include "platform/desktop/session/desktop_entry.h"

#include <QByteArray>
#include <algorithm>
#include <cstdlib>

namespace platform::desktop {
namespace {

using Strings = std::vector<std::string>;
using Text = std::unique_ptr<char, decltype(&g_free)>;

constexpr const char* group = G_KEY_FILE_DESKTOP_GROUP;
constexpr const char* exec = G_KEY_FILE_DESKTOP_KEY_EXEC;
constexpr const char* onlyShowIn = G_KEY_FILE_DESKTOP_KEY_ONLY_SHOW_IN;
constexpr const char* notShowIn = G_KEY_FILE_DESKTOP_KEY_NOT_SHOW_IN;

/// Takes ownership of a list of GLib's, which may be null.
Strings takeStrings(char** list) {
  const std::unique_ptr<char*, decltype(&g_strfreev)> owner(list, g_strfreev);
  return list == nullptr ? Strings() : Strings(list, list + g_strv_length(list));
}

bool contains(const Strings& strings, const std::string& string) {
  return std::find(strings.begin(), strings.end(), string) != strings.end();
}

/// The names in $XDG_CURRENT_DESKTOP, most specific first.
Strings currentDesktops() {
  const char* const value = std::getenv("XDG_CURRENT_DESKTOP");
  Strings names = takeStrings(g_strsplit(value != nullptr ? value : "", ":", -1));
  std::erase(names, "");
  return names;
}

/// The program and its arguments, with the quoting undone. Empty if the command is malformed.
Strings splitCommand(const std::string& command) {
  char** words = nullptr;
  g_shell_parse_argv(command.c_str(), nullptr, &words, nullptr);
  return takeStrings(words);
}

std::string quoted(const std::string& word) {
  if (word.find_first_of(" \t\n\"'\\><~|&;$*?#()`") == std::string::npos && !word.empty()) return word;
  QByteArray text = QByteArray::fromStdString(word);
  for (const char* special : {"\\", "\"", "`", "$"}) text.replace(special, QByteArray("\\") + special);
  return '"' + text.toStdString() + '"';
}

}  // namespace

DesktopEntry::DesktopEntry() : file_(g_key_file_new(), g_key_file_free) {}

std::optional<DesktopEntry> DesktopEntry::parse(std::string_view bytes) {
  if (bytes.find('\0') != std::string_view::npos) return std::nullopt;  // GLib would cut off what follows
  DesktopEntry entry;
  constexpr auto all = static_cast<GKeyFileFlags>(G_KEY_FILE_KEEP_COMMENTS | G_KEY_FILE_KEEP_TRANSLATIONS);
  if (!g_key_file_load_from_data(entry.file_.get(), bytes.data(), bytes.size(), all, nullptr)) return std::nullopt;
  if (!g_key_file_has_group(entry.file_.get(), group)) return std::nullopt;
  return entry;
}

std::string DesktopEntry::bytes() const {
  return Text(g_key_file_to_data(file_.get(), nullptr, nullptr), g_free).get();
}

std::optional<std::string> DesktopEntry::string(const char* key) const {
  const Text text(g_key_file_get_string(file_.get(), group, key, nullptr), g_free);
  return text && *text != '\0' ? std::optional<std::string>(text.get()) : std::nullopt;
}

void DesktopEntry::setString(const char* key, const std::string& value) {
  g_key_file_set_string(file_.get(), group, key, value.c_str());
}

bool DesktopEntry::boolean(const char* key, bool otherwise) const {
  if (!g_key_file_has_key(file_.get(), group, key, nullptr)) return otherwise;
  return g_key_file_get_boolean(file_.get(), group, key, nullptr) != 0;
}

Strings DesktopEntry::list(const char* key) const {
  return takeStrings(g_key_file_get_string_list(file_.get(), group, key, nullptr, nullptr));
}

void DesktopEntry::setList(const char* key, const Strings& values) {
  std::vector<const char*> pointers;
  for (const auto& value : values) pointers.push_back(value.c_str());
  pointers.push_back(nullptr);
  g_key_file_set_string_list(file_.get(), group, key, pointers.data(), values.size());
}

bool DesktopEntry::isShownHere() const {
  const Strings only = list(onlyShowIn);
  const Strings never = list(notShowIn);
  for (const auto& desktop : currentDesktops()) {
    if (contains(only, desktop)) return true;
    if (contains(never, desktop)) return false;
  }
  return !g_key_file_has_key(file_.get(), group, onlyShowIn, nullptr);
}

void DesktopEntry::showHere() {
  if (isShownHere()) return;
  const Strings here = currentDesktops();
  Strings never = list(notShowIn);
  if (std::erase_if(never, [&](const auto& desktop) { return contains(here, desktop); }) != 0)
    setList(notShowIn, never);
  if (isShownHere()) return;
  if (here.empty()) {
    g_key_file_remove_key(file_.get(), group, onlyShowIn, nullptr);
  } else {
    Strings only = list(onlyShowIn);
    only.push_back(here.front());
    setList(onlyShowIn, only);
  }
}

std::optional<std::string> DesktopEntry::program() const {
  const Strings words = splitCommand(string(exec).value_or(""));
  if (words.empty()) return std::nullopt;
  return QByteArray::fromStdString(words.front()).replace("%%", "%").toStdString();
}

void DesktopEntry::setProgram(const std::string& path) {
  Strings words = splitCommand(string(exec).value_or(""));
  if (words.empty()) words.emplace_back();
  // A single percent sign starts a field code.
  words.front() = QByteArray::fromStdString(path).replace("%", "%%").toStdString();
  std::string command = quoted(words.front());
  for (auto word = words.begin() + 1; word != words.end(); ++word) command += ' ' + quoted(*word);
  setString(exec, command);
}

}  // namespace platform::desktop
