"""Controls by their accessible names: what a person with a screen reader has, a test has too."""
import os

import gi

gi.require_version("Atspi", "2.0")
from gi.repository import Atspi, GLib  # noqa: E402

from . import keyboard  # noqa: E402
from .waiting import until  # noqa: E402

Atspi.init()
Atspi.set_timeout(4000, 15000)
DEEPEST = 40
SCALE = float(os.environ.get("QT_SCALE_FACTOR", "1"))


def application(pid, limit=None):
    """The tree of a process, once that has shown up on the assistive bus."""

    def look():
        desktop = Atspi.get_desktop(0)
        desktop.clear_cache()
        for index in range(desktop.get_child_count()):
            child = desktop.get_child_at_index(index)
            if child is not None and child.get_process_id() == pid:
                return Control(child)
        return None

    return until(look, f"process {pid} on the assistive bus", limit)


class Control:
    """One node of the tree."""

    def __init__(self, node):
        self._node = node

    name = property(lambda self: self._node.get_name())
    role = property(lambda self: self._node.get_role_name())

    @property
    def states(self):
        return {state.value_nick for state in self._node.get_state_set().get_states()}

    @property
    def is_showing(self):
        return "showing" in self.states

    @property
    def is_enabled(self):
        return "enabled" in self.states

    @property
    def is_focused(self):
        return "focused" in self.states

    @property
    def text(self):
        """What an editable or readable control holds; None when it has no text."""
        if "Text" not in self._node.get_interfaces():
            return None
        return Atspi.Text.get_text(self._node, 0, Atspi.Text.get_character_count(self._node))

    @property
    def area(self):
        """x, y, width and height on the screen, in its own pixels; the toolkit tells its scaled ones."""
        box = self._node.get_extents(Atspi.CoordType.SCREEN)
        return tuple(round(each * SCALE) for each in (box.x, box.y, box.width, box.height))

    def click(self, times=1, button=1):
        x, y, width, height = until(lambda: self.area if min(self.area[2:]) > 0 else None, f"a place for {self}")
        keyboard.click(x + width // 2, y + height // 2, button, times)

    def press(self):
        """By the assistive tools' own action, as a screen reader presses."""
        actions = self._node.get_action_iface()
        names = [actions.get_action_name(index) for index in range(actions.get_n_actions())] if actions else []
        wanted = next((name for name in ("Press", "Toggle", "SetFocus") if name in names), None)
        assert wanted, f"{self} can't be pressed: {names}"
        assert actions.do_action(names.index(wanted))

    def everything(self, depth=0):
        """This node and all below it, with their depth."""
        yield self, depth
        if depth >= DEEPEST:
            return
        for index in range(self._node.get_child_count()):
            child = self._node.get_child_at_index(index)
            if child is not None:
                yield from Control(child).everything(depth + 1)

    def all(self, name=None, role=None, showing=True, name_starts=None):
        """What matches below this node now."""
        self._node.clear_cache()
        found = []
        for control, _ in self.everything():
            try:
                fits = ((name is None or control.name == name) and (role is None or control.role == role)
                        and (name_starts is None or control.name.startswith(name_starts)))
                if fits and (not showing or control.is_showing):
                    found.append(control)
            except GLib.Error:
                continue
        return found

    def has(self, name=None, role=None, **more):
        return bool(self.all(name, role, **more))

    def find(self, name=None, role=None, limit=None, **more):
        wanted = " ".join(repr(part) for part in (role, name, *more.values()) if part)
        return until(lambda: next(iter(self.all(name, role, **more)), None), f"the control {wanted}", limit)

    def gone(self, name=None, role=None):
        until(lambda: not self.has(name, role), f"the control {role or ''} {name!r} to be gone")

    def tree(self):
        """The whole tree as text, for a failure's report."""
        lines = []
        self._node.clear_cache()
        for control, depth in self.everything():
            try:
                holds = control.text
                shown = "" if control.is_showing else " (hidden)"
                lines.append(f"{'  ' * depth}{control.role} {control.name!r}{shown}"
                             + (f" text={holds!r}" if holds is not None else ""))
            except GLib.Error:
                continue
        return "\n".join(lines)

    def __str__(self):
        return f"{self.role} {self.name!r}"
