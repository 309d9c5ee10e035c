// SPDX-License-Identifier: MIT
#pragma once

/// The interface between the program and the module that writes GNOME's settings by GIO.
namespace platform::desktop {

/// A custom shortcut of GNOME, as the user sees it in GNOME's settings. All texts are UTF-8.
struct GnomeShortcut {
  const char* folder;  ///< the name of the entry's folder, a word
  const char* name;    ///< for the user
  const char* command;
  const char* binding;  ///< the keys, as GTK writes them: "<Control><Alt>n"
};

/// The module's one function: adds a custom shortcut. False, and nothing is changed, if GNOME has no custom shortcuts
/// or if the keys are taken.
extern "C" using AddGnomeShortcut = bool(*)(const GnomeShortcut&);
constexpr auto gnomeModule = "quillberry-gnome";
constexpr auto addGnomeShortcutName = "quillberryAddGnomeShortcut";

}  // namespace platform::desktop
