#!/usr/bin/python3
# SPDX-License-Identifier: MIT
"""What a screen reader is told of the program whose process id is the argument: as JSON, for each of its windows the
roles, names and states of what has a name."""

import json
import sys

import gi
gi.require_version("Atspi", "2.0")
from gi.repository import Atspi  # noqa: E402

USUAL = {"enabled", "sensitive", "showing", "visible", "opaque", "read-only", "selectable-text", "resizable", "modal", "vertical"}


def children(item):
    return [item.get_child_at_index(index) for index in range(item.get_child_count())]


def told(item):
    if item.get_name():
        states = sorted({state.value_nick for state in item.get_state_set().get_states()} - USUAL)
        yield f"{item.get_role_name()} {item.get_name()}" + (f" ({', '.join(states)})" if states else "")
    for child in children(item):
        yield from told(child)


programs = {item.get_process_id(): item for item in children(Atspi.get_desktop(0))}
program = programs.get(int(sys.argv[1]))
json.dump([list(told(window)) for window in children(program)] if program else [], sys.stdout)
