// SPDX-License-Identifier: MIT
#pragma once

/// What the module that writes GNOME's settings, with GIO, shares with the program.
namespace platform::desktop {

/// A custom shortcut of GNOME's, which the user sees, changes and removes in its settings. All texts are UTF-8.
struct GnomeShortcut {
  const char* folder;   ///< the name of the entry's folder, a word
  const char* name;     ///< for the user
  const char* command;  ///< a command line
  const char* binding;  ///< the keys, as GTK writes them: "<Control><Alt>n"
};

/// What the module offers: adds a shortcut to the custom ones, beside those that are there. False, and nothing has been
/// done, where GNOME has no custom shortcuts, or something else has the keys.
extern "C" using AddGnomeShortcut = bool(*)(const GnomeShortcut&);
constexpr auto gnomeModule = "quillberry-gnome";
constexpr auto addGnomeShortcutName = "quillberryAddGnomeShortcut";

}  // namespace platform::desktop
