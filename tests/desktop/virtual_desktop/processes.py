"""Starting, waiting for and ending processes, so that none is left behind."""

import contextlib
import ctypes
import os
import pathlib
import shutil
import signal
import time


class Failure(Exception):
    """Why nothing can be tried or measured, in words for the user."""


def find_program(name, package):
    """The path of an installed program; `package` is where Debian has it."""
    path = shutil.which(name)
    if path is None:
        raise Failure(f"{name} is not installed: apt-get install --no-install-recommends {package}")
    return path


def wait_until(condition, what, seconds=20.0):
    """What `condition` returns, as soon as that is true in the sense of Python."""
    deadline = time.monotonic() + seconds
    while not (answer := condition()):
        if time.monotonic() > deadline:
            raise Failure(f"{what} did not happen within {seconds:.0f} s")
        time.sleep(0.05)
    return answer


def become_parent_of_orphans():
    """Makes what the started processes leave behind children of this one, so that it ends them."""
    pr_set_child_subreaper = 36
    ctypes.CDLL(None).prctl(pr_set_child_subreaper, 1, 0, 0, 0)


def children_of(process):
    found = []
    for entry in pathlib.Path("/proc").iterdir():
        if entry.name.isdigit():
            with contextlib.suppress(OSError):
                parent = (entry / "stat").read_text().rpartition(")")[2].split()[1]
                if int(parent) == process:
                    found.append(int(entry.name))
    return found


def end_all_children():
    """Ends every child, and every process that becomes one when its parent ends."""
    give_up_asking = time.monotonic() + 3
    while remaining := children_of(os.getpid()):
        number = signal.SIGTERM if time.monotonic() < give_up_asking else signal.SIGKILL
        for process in remaining:
            with contextlib.suppress(ProcessLookupError):
                os.kill(process, number)
        time.sleep(0.1)
        _reap()


def _reap():
    with contextlib.suppress(ChildProcessError):
        while os.waitpid(-1, os.WNOHANG)[0] != 0:
            pass


def fields_of(path):
    """The `name: value` lines of a file in /proc."""
    lines = (line.partition(":") for line in path.read_text().splitlines())
    return {name.strip(): value.strip() for name, _, value in lines}
