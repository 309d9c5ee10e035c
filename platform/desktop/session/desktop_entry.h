// SPDX-License-Identifier: MIT
#pragma once

#include <glib.h>

#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace platform::desktop {

/// A desktop entry in memory. Whatever is not changed stays as it was read: comments, translations, unknown keys.
class DesktopEntry {
 public:
  /// Nothing if the bytes are not a desktop entry.
  static std::optional<DesktopEntry> parse(std::string_view bytes);
  std::string bytes() const;

  /// Nothing if the key is missing, empty or malformed.
  std::optional<std::string> string(const char* key) const;
  void setString(const char* key, const std::string& value);
  /// `otherwise` if the key is missing. A value that is neither true nor false counts as false, as in the desktops.
  bool boolean(const char* key, bool otherwise) const;

  /// Whether OnlyShowIn and NotShowIn allow the entry in this session's desktop ($XDG_CURRENT_DESKTOP).
  bool isShownHere() const;
  /// Allows it there, and leaves what they say of other desktops.
  void showHere();

  /// The program that Exec starts: a path, or a name to look for in PATH.
  std::optional<std::string> program() const;
  /// Replaces the program in Exec; its arguments stay.
  void setProgram(const std::string& path);

 private:
  DesktopEntry();
  std::vector<std::string> list(const char* key) const;
  void setList(const char* key, const std::vector<std::string>& values);

  std::unique_ptr<GKeyFile, decltype(&g_key_file_free)> file_;
};

}  // namespace platform::desktop
