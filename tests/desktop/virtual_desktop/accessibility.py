"""What assistive technology reads of a program, and how it presses its controls (AT-SPI).

It must be imported only when the desktop is started and its variables stand in os.environ, since
the bus is chosen once.
"""

import gi

gi.require_version("Atspi", "2.0")
from gi.repository import Atspi, GLib

WITH_LISTS = ("combo box", "list")
RENAMED = {"button": "push button"}  # by at-spi2-core 2.54


class Control:
    """A control or a window as it was when it was read."""

    def __init__(self, accessible):
        self.accessible = accessible
        role = accessible.get_role_name()
        self.role = RENAMED.get(role, role)
        self.name = accessible.get_name()
        self.description = accessible.get_description()
        self.states = {state.value_nick for state in accessible.get_state_set().get_states()}
        count = 0 if self.role in WITH_LISTS else accessible.get_child_count()
        found = (accessible.get_child_at_index(index) for index in range(count))
        self.children = [Control(child) for child in found if child is not None]

    def __str__(self):
        return f"{self.role} “{self.name}”"

    def walk(self):
        yield self
        for child in self.children:
            yield from child.walk()

    def all(self, role=None, name=None):
        """Those within this one that are on screen, in reading order."""
        return [one for one in self.walk() if "showing" in one.states and
                role in (None, one.role) and name in (None, one.name)]

    def texts(self):
        return [label.name for label in self.all("label")]

    def label(self):
        """The name of the label that says what this control is for."""
        for relation in self.accessible.get_relation_set():
            if relation.get_relation_type() == Atspi.RelationType.LABELLED_BY:
                return relation.get_target(0).get_name()
        return ""

    def place(self):
        """The middle of it on the screen."""
        area = self.accessible.get_extents(Atspi.CoordType.SCREEN)
        return area.x + area.width // 2, area.y + area.height // 2

    def press(self):
        """Does its first action, as assistive technology would."""
        self.accessible.do_action(0)


def windows_of(process):
    """The windows of a process. Empty, too, when it changes while it is being read."""
    try:
        desktop = Atspi.get_desktop(0)
        desktop.set_cache_mask(Atspi.Cache.NONE)
        for index in range(desktop.get_child_count()):
            application = desktop.get_child_at_index(index)
            if application is not None and application.get_process_id() == process:
                return [window for window in Control(application).children
                        if "showing" in window.states]
    except GLib.Error:
        pass
    return []


def start():
    Atspi.init()
    Atspi.set_timeout(5000, 5000)  # milliseconds
