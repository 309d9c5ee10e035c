// SPDX-License-Identifier: MIT
#include "platform/desktop/session/desktop_entry.h"

#include <utility>

namespace platform::desktop {
namespace {

constexpr const char* group = G_KEY_FILE_DESKTOP_GROUP;

struct Free {
  void operator()(char* text) const { g_free(text); }
  void operator()(char** list) const { g_strfreev(list); }
};
using Text = std::unique_ptr<char, Free>;
using List = std::unique_ptr<char*, Free>;

std::vector<std::string> stringsOf(const List& list) {
  std::vector<std::string> strings;
  for (char** string = list.get(); string != nullptr && *string != nullptr; ++string) strings.emplace_back(*string);
  return strings;
}

/// Program and arguments, with the quoting undone. Empty if it is malformed.
std::vector<std::string> splitCommand(const std::string& command) {
  char** words = nullptr;
  g_shell_parse_argv(command.c_str(), nullptr, &words, nullptr);
  return stringsOf(List(words));
}

std::string quoted(const std::string& word) {
  if (word.find_first_of(" \t\n\"'\\><~|&;$*?#()`") == std::string::npos && !word.empty()) return word;
  std::string result = "\"";
  for (const char c : word) {
    if (std::string_view("\"`$\\").find(c) != std::string_view::npos) result += '\\';
    result += c;
  }
  return result + '"';
}

/// In a command a percent sign starts a field code; two of them are one.
std::string withDoubledPercents(std::string_view path) {
  std::string result;
  for (const char c : path) result.append(c == '%' ? 2 : 1, c);
  return result;
}

std::string withSinglePercents(std::string text) {
  for (auto at = text.find("%%"); at != std::string::npos; at = text.find("%%", at + 1)) text.erase(at, 1);
  return text;
}

}  // namespace

DesktopEntry::DesktopEntry() : file_(g_key_file_new()) {}

std::optional<DesktopEntry> DesktopEntry::parse(std::string_view bytes) {
  if (bytes.find('\0') != std::string_view::npos) return std::nullopt;  // the library would cut off what follows
  DesktopEntry entry;
  constexpr auto all = static_cast<GKeyFileFlags>(G_KEY_FILE_KEEP_COMMENTS | G_KEY_FILE_KEEP_TRANSLATIONS);
  if (!g_key_file_load_from_data(entry.file_.get(), bytes.data(), bytes.size(), all, nullptr)) return std::nullopt;
  if (!g_key_file_has_group(entry.file_.get(), group)) return std::nullopt;
  return entry;
}

std::string DesktopEntry::bytes() const {
  gsize length = 0;
  const Text text(g_key_file_to_data(file_.get(), &length, nullptr));
  return {text.get(), length};
}

bool DesktopEntry::has(const char* key) const { return g_key_file_has_key(file_.get(), group, key, nullptr) != 0; }

void DesktopEntry::remove(const char* key) {
  while (has(key)) {
    g_key_file_remove_key(file_.get(), group, key, nullptr);
    // Of a key that is there twice the library sees the other one only when it reads anew.
    if (auto rest = parse(bytes())) *this = std::move(*rest);
  }
}

std::optional<std::string> DesktopEntry::string(const char* key) const {
  const Text text(g_key_file_get_string(file_.get(), group, key, nullptr));
  return text && *text != '\0' ? std::optional<std::string>(text.get()) : std::nullopt;
}

void DesktopEntry::setString(const char* key, const std::string& value) {
  g_key_file_set_string(file_.get(), group, key, value.c_str());
}

bool DesktopEntry::boolean(const char* key) const {
  return g_key_file_get_boolean(file_.get(), group, key, nullptr) != 0;
}

void DesktopEntry::setBoolean(const char* key, bool value) {
  g_key_file_set_boolean(file_.get(), group, key, value ? TRUE : FALSE);
}

std::optional<std::vector<std::string>> DesktopEntry::list(const char* key) const {
  if (!has(key)) return std::nullopt;
  return stringsOf(List(g_key_file_get_string_list(file_.get(), group, key, nullptr, nullptr)));
}

void DesktopEntry::setList(const char* key, const std::vector<std::string>& values) {
  std::vector<const char*> pointers;
  pointers.reserve(values.size());
  for (const auto& value : values) pointers.push_back(value.c_str());
  g_key_file_set_string_list(file_.get(), group, key, pointers.data(), pointers.size());
}

std::optional<std::string> DesktopEntry::program() const {
  const auto words = splitCommand(string(G_KEY_FILE_DESKTOP_KEY_EXEC).value_or(""));
  return words.empty() ? std::nullopt : std::optional(withSinglePercents(words.front()));
}

void DesktopEntry::setProgram(const std::string& path) {
  auto words = splitCommand(string(G_KEY_FILE_DESKTOP_KEY_EXEC).value_or(""));
  if (words.empty()) words.emplace_back();
  words.front() = withDoubledPercents(path);
  std::string command;
  for (const auto& word : words) {
    if (!command.empty()) command += ' ';
    command += quoted(word);
  }
  setString(G_KEY_FILE_DESKTOP_KEY_EXEC, command);
}

}  // namespace platform::desktop
