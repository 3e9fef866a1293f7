#!/usr/bin/env python3
"""The compiler of the help file: what leads nowhere stops the build."""
import pathlib
import shutil
import subprocess
import tempfile
import unittest

TOOL = pathlib.Path(__file__).parents[2] / "tools" / "compile_help"
PROJECT = """[OPTIONS]
Compatibility=1.1 or later
Compiled file=Help.chm
Contents file=contents.hhc
Default topic=index.html
Title=Help
Full-text search=Yes

[FILES]
index.html
"""
PAGE = "<html><head><title>One</title></head><body><p>{}</p></body></html>"
CONTENTS = ('<html><body><ul><li><object type="text/sitemap"><param name="Name" value="One">'
            '<param name="Local" value="index.html"></object></ul></body></html>')


class CompileHelp(unittest.TestCase):
    def compiled(self, body):
        with tempfile.TemporaryDirectory() as folder:
            path = pathlib.Path(folder)
            (path / "help.hhp").write_text(PROJECT)
            (path / "contents.hhc").write_text(CONTENTS)
            (path / "index.html").write_text(PAGE.format(body))
            run = subprocess.run([TOOL, shutil.which("chmcmd"), path / "help.hhp"], capture_output=True, text=True)
            return run.returncode == 0 and (path / "Help.chm").stat().st_size > 0

    def test_a_page_without_a_slip_is_compiled(self):
        self.assertTrue(self.compiled("Hello"))

    def test_a_link_to_no_page_is_refused(self):
        self.assertFalse(self.compiled('<a href="none.html">none</a>'))

    def test_a_link_to_no_place_on_a_page_is_refused(self):
        self.assertFalse(self.compiled('<a href="index.html#none">none</a>'))

    def test_a_picture_that_is_not_there_is_refused(self):
        self.assertFalse(self.compiled('<img src="none.png">'))


if __name__ == "__main__":
    unittest.main()
