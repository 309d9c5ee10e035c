// SPDX-License-Identifier: MIT
#pragma once

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <optional>
#include <sstream>
#include <string>
#include <string_view>

namespace scratch {

/// A folder of this process' own, gone at the end. Everything that the program keeps goes below it.
class Folder {
 public:
  Folder() {
    std::string name = (std::filesystem::temp_directory_path() / "quillberry-test-XXXXXX").string();
    path_ = mkdtemp(name.data());
    setenv("HOME", path_.c_str(), 1);
    setenv("XDG_DATA_HOME", (path_ / "data").c_str(), 1);
    setenv("XDG_CONFIG_HOME", (path_ / "config").c_str(), 1);
    setenv("XDG_RUNTIME_DIR", path_.c_str(), 1);
    unsetenv("DBUS_SESSION_BUS_ADDRESS");
  }
  Folder(const Folder&) = delete;
  Folder& operator=(const Folder&) = delete;
  ~Folder() {
    std::error_code ignored;
    std::filesystem::remove_all(path_, ignored);
  }

  const std::filesystem::path& path() const { return path_; }

 private:
  std::filesystem::path path_;
};

inline void put(const std::filesystem::path& path, std::string_view bytes) {
  std::filesystem::create_directories(path.parent_path());
  std::ofstream(path, std::ios::binary) << bytes;
}

inline std::optional<std::string> get(const std::filesystem::path& path) {
  std::ifstream file(path, std::ios::binary);
  if (!file) return std::nullopt;
  std::ostringstream bytes;
  bytes << file.rdbuf();
  return bytes.str();
}

}  // namespace scratch
