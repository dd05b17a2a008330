"""Sees what happens to files, at once (inotify)."""

import ctypes
import os
import select
import struct

WRITTEN = 0x2
CLOSED_UNWRITTEN = 0x10
CREATED = 0x100
RENAMED = 0x80
DELETED = 0x200


class FileWatch:
    def __init__(self, path, events):
        self.library = ctypes.CDLL(None, use_errno=True)
        self.descriptor = self.library.inotify_init1(os.O_CLOEXEC | os.O_NONBLOCK)
        if self.library.inotify_add_watch(self.descriptor, os.fsencode(path), events) < 0:
            raise OSError(ctypes.get_errno(), os.strerror(ctypes.get_errno()), str(path))

    def events(self, seconds):
        """The next events, each a kind and a file's name; none when nothing happens in time."""
        if not select.select([self.descriptor], [], [], seconds)[0]:
            return []
        data = os.read(self.descriptor, 65536)
        found = []
        while data:
            _, kind, _, length = struct.unpack("iIII", data[:16])
            found.append((kind, os.fsdecode(data[16:16 + length].rstrip(b"\0"))))
            data = data[16 + length:]
        return found

    def close(self):
        os.close(self.descriptor)
