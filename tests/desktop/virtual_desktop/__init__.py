"""A desktop of its own for a program: display, buses, tray, peripherals, with nothing of the user's
in it. The stories of tests/desktop and bench/footprint stand on it."""
