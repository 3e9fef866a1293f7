#!/usr/bin/env python3
"""tools/install-packages, as far as it goes without installing anything."""
import pathlib
import subprocess
import unittest

TOOL = pathlib.Path(__file__).resolve().parents[2] / "tools" / "install-packages"


def run(*parts):
    return subprocess.run([TOOL, *parts], capture_output=True, text=True, stdin=subprocess.DEVNULL)


class InstallPackages(unittest.TestCase):
    def test_without_a_part_it_says_how_it_is_called(self):
        answer = run()
        self.assertEqual(answer.returncode, 2)
        self.assertIn("build test assets", answer.stderr)

    def test_a_part_that_is_not_listed_installs_nothing(self):
        for parts in (["biuld"], ["nothing", "build"], [""], ["build test"], ["b.*"]):
            with self.subTest(parts):
                answer = run(*parts)
                self.assertEqual(answer.returncode, 2)
                self.assertNotIn("Installing", answer.stdout)


if __name__ == "__main__":
    unittest.main()
