# SPDX-License-Identifier: MIT
"""The table and the chart of bench/peers."""

import datetime
import html
import os
from pathlib import Path

OURS, BARE = "Quillberry", "bare Qt"

# key: what it is, digits after the point
FIGURES = {
    "window": ("exec to mapped window, ms", 0),
    "text": ("exec to text on the screen, ms", 0),
    "memory": ("proportional memory, MB", 1),
    "threads": ("threads", 0),
    "idle shown": ("wake-ups in 20 s, shown", 0),
    "idle hidden": ("wake-ups in 20 s, hidden", 0),
    "pixel": ("key press to changed pixel, ms", 2),
    "pixel 10": ("the same in a note of 10 MB, ms", 2),
    "file": ("key press to file, ms", 0),
    "text 1": ("exec to text of 1 MB, ms", 0),
    "text 10": ("exec to text of 10 MB, ms", 0),
    "text 100": ("exec to text of 100 MB, ms", 0),
    "save 1": ("save of 1 MB, ms", 1),
    "save 10": ("save of 10 MB, ms", 1),
}
CHART = ("window", "memory", "pixel", "text 10")

# what is aimed at: the figure, beside what, the largest ratio
AIMS = (("window", BARE, 1.3), ("window", "peers", 0.8), ("memory", BARE, 1.3), ("memory", "xpad", 1.0),
        ("pixel", BARE, 1.2), ("text 10", "peers", 1.0), ("pixel 10", "pixel", 1.1))


def figure(value, digits):
    return "–" if value is None else f"{value:.{digits}f}"


def best_of_peers(figures, key):
    """The least, with whose it is."""
    found = [(values[key], name) for name, values in figures.items()
             if name not in (OURS, BARE) and values.get(key) is not None]
    return min(found, default=(None, ""))


def ratio(value, other):
    return None if value is None or not other else value / other


def table(figures):
    names = list(figures)
    lines = ["| | " + " | ".join(names) + f" | to {BARE} | to the best peer |",
             "|---" + "|--:" * (len(names) + 2) + "|"]
    for key, (what, digits) in FIGURES.items():
        ours = figures[OURS].get(key)
        cells = [figure(figures[name].get(key), digits) for name in names]
        best, whose = best_of_peers(figures, key)
        to_best = ratio(ours, best)
        cells.append(figure(ratio(ours, figures.get(BARE, {}).get(key)), 2))
        cells.append("–" if to_best is None else f"{to_best:.2f} ({whose})")
        lines.append(f"| {what} | " + " | ".join(cells) + " |")
    return "\n".join(lines)


def aims(figures):
    ours = figures[OURS]
    lines = ["| what | beside | at most | measured | |", "|---|---|--:|--:|---|"]
    for key, beside, bound in AIMS:
        if beside == "peers":
            other, whose = best_of_peers(figures, key)
        elif beside in FIGURES:
            other, whose = ours.get(beside), "a short note"
        else:
            other, whose = figures.get(beside, {}).get(key), beside
        measured = ratio(ours.get(key), other)
        if measured is not None:
            lines.append(f"| {FIGURES[key][0].rpartition(',')[0]} | {whose} | {bound:.1f} | {measured:.2f} | "
                         + ("reached" if measured <= bound else "missed") + " |")
    hidden = ours.get("idle hidden")
    if hidden is not None:
        lines.append(f"| wake-ups in 20 s, hidden | – | 0 | {hidden:.0f} | "
                     + ("reached" if hidden == 0 else "missed") + " |")
    return "\n".join(lines)


def machine():
    """Its outline."""
    lines = Path("/proc/cpuinfo").read_text().splitlines()
    models = [line.partition(":")[2].strip() for line in lines if line.startswith("model name")]
    memory = int(Path("/proc/meminfo").read_text().split()[1]) / 1024**2
    virtual = any(" hypervisor " in line + " " for line in lines if line.startswith("flags"))
    release = Path("/etc/debian_version").read_text().strip() if Path("/etc/debian_version").exists() else "?"
    load = os.getloadavg()[2]
    return (f"{'virtual ' if virtual else ''}machine ({os.cpu_count()} cores, {models[0] if models else 'unknown'}, "
            f"{memory:.0f} GB, Debian {release})"
            + (f" that had other work too (load average {load:.1f})" if load > 2 else ""))


TEXT = """# Beside its peers

![Start, memory, a key press and a large note, as bars](peers.svg)

Measured on {date} on a {machine}: a display of its own (Xvfb, openbox, nothing that composes), a new home for every
start, {rounds} rounds in which all programs had their turn, fewer for the large notes. Medians. {versions}. Each has
the same text: 24 lines where no size is told, otherwise ordinary lines of some 30 characters.

{table}

"bare Qt" is a window with nothing but Qt's plain-text editor. A dash stands where a program does not do that,
or not within a minute. What counts as text on the screen is told by pictures of the program without the text and with
it: Quillberry shows the end of a large note, where its caret is, as soon as it has read it, and takes in the rest
behind it; a key that is pressed meanwhile waits until Qt's editor has it all. A save runs from the key that
asks for it to the file in its place; a key press to the file is there for programs that save by themselves. Memory is
the process's share (PSS).

## What is aimed at

{aims}

`bench/peers` writes this page and the chart anew.
"""

STYLE = """
text { font: 12px system-ui, sans-serif; fill: #444c56 }
.title { font-weight: 600; fill: #1f2328 }
.bar { fill: #a8b1bb }
.ours { fill: #2f7fd0 }
@media (prefers-color-scheme: dark) {
  text { fill: #adbac7 }
  .title { fill: #e6edf3 }
  .bar { fill: #5b6673 }
  .ours { fill: #5aa2ec }
}"""
PANEL_WIDTH, NAME_WIDTH, BAR_WIDTH, ROW, HEAD = 400, 80, 250, 20, 34


def panel(figures, key):
    what, digits = FIGURES[key]
    measured = sorted((values[key], name) for name, values in figures.items() if values.get(key) is not None)
    if not measured:
        return ""
    parts = [f'<text class="title" x="0" y="18">{html.escape(what)}</text>']
    for row, (value, name) in enumerate(measured):
        y = HEAD + row * ROW
        length = max(1, BAR_WIDTH * value / measured[-1][0])
        kind = "ours" if name == OURS else "bar"
        parts.append(f'<text x="0" y="{y + 11}">{html.escape(name)}</text>'
                     f'<rect class="{kind}" x="{NAME_WIDTH}" y="{y}" width="{length:.1f}" height="14" rx="2"/>'
                     f'<text x="{NAME_WIDTH + length + 6:.1f}" y="{y + 11}">{figure(value, digits)}</text>')
    return "\n".join(parts)


def chart(figures):
    height = HEAD + ROW * len(figures) + 10
    panels = [f'<g transform="translate({10 + index % 2 * PANEL_WIDTH} {index // 2 * height})">\n'
              f"{panel(figures, key)}\n</g>" for index, key in enumerate(CHART)]
    width, total = 2 * PANEL_WIDTH, height * ((len(CHART) + 1) // 2)
    return (f'<svg xmlns="http://www.w3.org/2000/svg" width="{width}" height="{total}" viewBox="0 0 {width} {total}">\n'
            f"<style>{STYLE}\n</style>\n" + "\n".join(panels) + "\n</svg>\n")


def write(folder, figures, versions, rounds):
    names = ", ".join(f"{name} {version}" for name, version in versions.items()) or "No other program was there"
    (folder / "peers.md").write_text(TEXT.format(
        date=datetime.date.today().isoformat(), machine=machine(), rounds=rounds, versions=names,
        table=table(figures), aims=aims(figures)))
    (folder / "peers.svg").write_text(chart(figures))
