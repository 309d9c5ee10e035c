# SPDX-License-Identifier: MIT
"""The desktops that the tests know."""

import typing

SCREEN = (1280, 800)


class Kind(typing.NamedTuple):
    """How to start a desktop. In command and files {home} is its folder, {width} and {height} are the screen's. A
    compositor shows its screen in an X server, and runs {home}/announce inside."""

    command: str
    environment: dict = {}
    files: dict = {}  # by name in its folder
    wayland: bool = False
    message: str = ""  # of a tiling one: the tool that gives it commands
    cannot: dict = {}  # what a test needs and does not get here, with the reason
    programs: str = ""  # of a whole session
    before: tuple = ()  # commands that settle something
    ask: str = ""  # what makes GNOME Shell run {home}/announce
    settled: str = ""  # what GNOME Shell says "true" to once its user can begin
    beside: tuple = ()  # programs of the session
    tray: bool = False
    clicks: int = 1  # on its item, for the item's own action
    light: str = ""  # a command for the user's choice
    dark: str = ""
    overview: str = ""  # the key for it

    @property
    def announces(self):
        return self.wayland or bool(self.programs)


SOFTWARE_GL = {"LIBGL_ALWAYS_SOFTWARE": "1"}
WHOLE = "xdg-desktop-portal"
ON_WAYLAND = f"{WHOLE} weston-terminal"
# On Wayland no key repeats: busy compositors hear too late of the release of one that was only pressed.
GNOME = Kind("gnome-shell --unsafe-mode --nested --wayland --sm-disable",
             SOFTWARE_GL | {"XDG_CURRENT_DESKTOP": "GNOME"}, wayland=True, overview="super",
             programs=f"{ON_WAYLAND} gsettings dconf-service gsd-media-keys gsd-xsettings xdg-desktop-portal-gnome",
             before=("gsettings set org.gnome.shell welcome-dialog-last-shown-version 99",
                     "gsettings set org.gnome.desktop.peripherals.keyboard repeat false",
                     "gsettings set org.gnome.desktop.notifications show-banners false"),
             ask="imports.gi.GLib.spawn_command_line_async('{home}/announce')",
             settled="!Main.layoutManager._startingUp && (Main.overview.hide(), !Main.overview.visible)",
             beside=("/usr/libexec/gsd-xsettings", "/usr/libexec/gsd-media-keys"),
             light="gsettings set org.gnome.desktop.interface color-scheme default",
             dark="gsettings set org.gnome.desktop.interface color-scheme prefer-dark")
EXTENSION = "gsettings set org.gnome.shell enabled-extensions ['ubuntu-appindicators@ubuntu.com']"
KINDS = {
    "gnome": GNOME,
    "gnome-tray": GNOME._replace(tray=True, clicks=2, before=(*GNOME.before, EXTENSION)),
    "plasma": Kind("kwin_wayland --width {width} --height {height} --xwayland --no-lockscreen {home}/announce",
                   {"KWIN_COMPOSE": "Q", "XDG_CURRENT_DESKTOP": "KDE", "KDE_FULL_SESSION": "true",
                    "KDE_SESSION_VERSION": "5"}, {"xdg_config_home/kcminputrc": "[Keyboard]\nKeyRepeat=nothing\n"},
                   wayland=True, tray=True, beside=("kded5", "plasmashell"),
                   programs=f"{ON_WAYLAND} plasmashell plasma-apply-colorscheme kded5",
                   light="plasma-apply-colorscheme BreezeLight", dark="plasma-apply-colorscheme BreezeDark"),
    "xfce": Kind("xfce4-session", {"XDG_CURRENT_DESKTOP": "XFCE"},
                 {"xdg_config_home/autostart/a.desktop": "[Desktop Entry]\nType=Application\nExec={home}/announce\n"},
                 programs=f"{WHOLE} xdg-desktop-portal-gtk xfwm4 xfce4-panel xfsettingsd", tray=True,
                 light="xfconf-query -c xsettings -p /Net/ThemeName -s Adwaita",
                 dark="xfconf-query -c xsettings -p /Net/ThemeName -s Adwaita-dark"),
    "openbox": Kind("openbox"),
    # KWin and mutter with the strictest that they have against programs that bring themselves forward.
    "mutter": Kind("mutter --x11 --sm-disable", SOFTWARE_GL | {"GSETTINGS_BACKEND": "keyfile"},
                   {"xdg_config_home/glib-2.0/settings/keyfile":
                    "[org/gnome/desktop/wm/preferences]\nfocus-new-windows='strict'\n"}),
    "kwin": Kind("kwin_x11", {"KWIN_COMPOSE": "N"},
                 {"xdg_config_home/kwinrc": "[Windows]\nFocusStealingPreventionLevel=4\n"}),
    "i3": Kind("i3 -c {home}/i3", files={"i3": "# i3 config file (v4)\nfont pango:monospace 8\n"}, message="i3-msg"),
    "sway": Kind("sway -c {home}/sway", {"WLR_BACKENDS": "x11", "WLR_RENDERER": "pixman"},
                 {"sway": "output X11-1 resolution {width}x{height}\ninput * repeat_rate 0\n"
                          "exec xhost +local: && {home}/announce\n"}, wayland=True, message="swaymsg", cannot={
                     "pin": "it has no such states: a floating window is above the tiled ones, `sticky` is the user's",
                     "position": "it places floating windows itself",
                     "full screen": "it gives no other window the keyboard beside a full-screen one"}),
}
