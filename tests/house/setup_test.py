"""What the set-up script installs, seen by stand-ins of the package managers and of sudo."""

import pathlib
import subprocess
import sys
import tempfile
import unittest

PROJECT = pathlib.Path(sys.argv.pop(1))
CALLS = "calls"


class SetupTest(unittest.TestCase):
    def setUp(self):
        directory = tempfile.TemporaryDirectory()
        self.addCleanup(directory.cleanup)
        self.commands = pathlib.Path(directory.name)
        self.add("uname", "echo Linux")
        self.add("id", "echo 0")

    def add(self, name, script):
        """A command of the simulated machine, which has no others."""
        path = self.commands / name
        path.write_text(f"#!/bin/sh\n{script}\n")
        path.chmod(0o755)

    def add_recorder(self, name):
        """A command that writes down how it was called."""
        self.add(name, f'echo "{name} $*" >>"{self.commands / CALLS}"')

    def run_setup(self, command):
        return subprocess.run(
            ["/bin/bash", "-c", f'set -euo pipefail; root="{PROJECT}"; . "$root/tools/setup.sh"; {command}'],
            env={"PATH": str(self.commands)}, capture_output=True, text=True, check=False)

    def calls(self):
        path = self.commands / CALLS
        return path.read_text().splitlines() if path.exists() else []

    def test_dnf_installs_what_rpm_does_not_know(self):
        self.add_recorder("dnf")
        self.add("rpm", '[ "$3" != cmake ] && exit 1; exit 0')
        self.assertEqual(self.run_setup("need_for building").returncode, 0)
        self.assertEqual(self.calls(), [
            "dnf install -y -q gcc-c++ ninja-build json-devel qt6-qtbase-devel qt6-qtsvg-devel libxcb-devel "
            "xcb-util-cursor pkgconf-pkg-config"])

    def test_pacman_installs_what_it_misses(self):
        self.add("pacman", f'[ "$1" = -T ] && {{ [ "$2" = cmake ]; exit; }}\n'
                           f'echo "pacman $*" >>"{self.commands / CALLS}"')
        self.assertEqual(self.run_setup("need_for building").returncode, 0)
        self.assertEqual(self.calls(), [
            "pacman -S --needed --noconfirm base-devel ninja nlohmann-json qt6-base qt6-svg libxcb xcb-util-cursor"])

    def test_zypper_installs_what_rpm_does_not_know(self):
        self.add_recorder("zypper")
        self.add("rpm", "exit 1")
        self.assertEqual(self.run_setup("need_for building").returncode, 0)
        self.assertEqual(self.calls(), [
            "zypper --non-interactive --quiet install --no-recommends gcc-c++ cmake ninja "
            "nlohmann_json-devel qt6-base-devel qt6-svg-devel libxcb-devel libxcb-cursor0 pkgconf-pkg-config"])

    def test_each_package_manager_has_names_for_each_purpose(self):
        for manager in ("apt-get", "dnf", "pacman", "zypper"):
            for purpose in ("building", "testing", "wayland"):
                answer = self.run_setup(f'manager={manager}; packages {purpose}')
                self.assertTrue(answer.stdout.split(), f"{manager} {purpose}")

    def test_nothing_is_installed_when_everything_is_there(self):
        self.add_recorder("dnf")
        self.add("rpm", "exit 0")
        self.assertEqual(self.run_setup("need_for testing").returncode, 0)
        self.assertEqual(self.calls(), [])

    def test_what_only_some_distributions_have_is_installed_where_they_have_it(self):
        self.add_recorder("apt-get")
        self.add("dpkg-query", "exit 1")
        self.add("env", 'shift; exec "$@"')
        self.add("apt-cache", "exit 1")
        self.assertEqual(self.run_setup("want_for Objective-C").returncode, 0)
        self.assertEqual(self.calls(), [])
        self.add("apt-cache", "exit 0")
        self.assertEqual(self.run_setup("want_for Objective-C").returncode, 0)
        self.assertEqual(self.calls()[1:], ["apt-get install -y -qq --no-install-recommends "
                                            "clang-19 libblocksruntime-dev"])

    def test_who_is_not_root_installs_with_sudo(self):
        self.add("id", "echo 1000")
        self.add_recorder("dnf")
        self.add_recorder("sudo")
        self.add("rpm", "exit 1")
        self.assertEqual(self.run_setup("need testing gtest-devel").returncode, 0)
        self.assertEqual(self.calls(), ["sudo dnf install -y -q gtest-devel"])

    def test_without_root_and_sudo_it_says_the_command_to_run(self):
        self.add("id", "echo 1000")
        self.add_recorder("dnf")
        self.add("rpm", "exit 1")
        answer = self.run_setup("need testing gtest-devel")
        self.assertEqual(answer.returncode, 1)
        self.assertIn("  dnf install -y -q gtest-devel\n", answer.stderr)
        self.assertEqual(self.calls(), [])

    def test_an_unknown_package_manager_gets_the_list_and_status_1(self):
        self.add("cat", 'exec /bin/cat "$@"')
        answer = self.run_setup("need_for building")
        self.assertEqual(answer.returncode, 1)
        for word in ("C++20 compiler", "CMake 3.25", "Ninja", "libxcb", "Qt 6.4", "GoogleTest"):
            self.assertIn(word, answer.stderr)

    def test_a_mac_without_homebrew_is_told_so(self):
        self.add("uname", "echo Darwin")
        answer = self.run_setup("need_for building")
        self.assertEqual(answer.returncode, 1)
        self.assertIn("Homebrew", answer.stderr)


if __name__ == "__main__":
    unittest.main()
