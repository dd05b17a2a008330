"""Trees in the form of /sys with simulated peripherals. They are synthetic: modelled on what the
kernel's drivers write, none was captured from a device."""

import os
import pathlib

MOUSE = 0x0269
KEYBOARD = 0x026C
TRACKPAD = 0x0265


class Sysfs:
    def __init__(self, root):
        self.root = pathlib.Path(root)
        self.entries = self.root / "class" / "power_supply"
        self.entries.mkdir(parents=True)

    def entry(self, address):
        return self.entries / f"hid-{address}-battery"

    def capacity(self, address):
        return self.entry(address) / "capacity"

    def add(self, address, product, name, level):
        entry = self.entry(address)
        (entry / "device").mkdir(parents=True)
        attributes = {"type": "Battery", "scope": "Device", "present": "1", "online": "1",
                      "status": "Discharging", "model_name": name}
        for attribute, value in attributes.items():
            (entry / attribute).write_text(value + "\n")
        (entry / "device" / "uevent").write_text(
            f"DRIVER=magicmouse\nHID_ID=0005:0000004C:{product:08X}\nHID_NAME={name}\n"
            f"HID_PHYS=02:00:5e:00:53:00\nHID_UNIQ={address}\n")
        self.set_level(address, level)

    def set_level(self, address, level):
        """At no moment is the old level gone and the new one not there."""
        written = self.root / "capacity.new"
        written.write_text(f"{level}\n")
        os.replace(written, self.capacity(address))
