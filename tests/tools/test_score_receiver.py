#!/usr/bin/env python3
"""The reference score site, asked over a socket: what it keeps, what it refuses, what it shows."""
import pathlib
import socket
import sqlite3
import subprocess
import sys
import tempfile
import unittest

RECEIVER = pathlib.Path(__file__).parents[2] / "tools" / "score_receiver.py"
QUERY = ("E=ann@example.org&PK=1&PN={name}&GN=Arrows&SC=-3&PT=0&TS=05-03-2026&TM=34&AW=0&LV=2&MO=3&WO=0&WT=")


class Receiver(unittest.TestCase):
    def setUp(self):
        folder = tempfile.TemporaryDirectory()
        self.addCleanup(folder.cleanup)
        self.file = pathlib.Path(folder.name) / "scores.db"
        self.site = subprocess.Popen([sys.executable, RECEIVER, self.file, "0"], stdout=subprocess.PIPE, text=True)
        self.addCleanup(self.site.stdout.close)
        self.addCleanup(self.site.wait)
        self.addCleanup(self.site.kill)
        self.port = int(self.site.stdout.readline().rsplit(":", 1)[1].strip(" /\n"))

    def ask(self, target):
        with socket.create_connection(("127.0.0.1", self.port), timeout=30) as line:
            line.sendall(f"GET {target} HTTP/1.1\r\nHost: localhost\r\n\r\n".encode())
            reply = b""
            while part := line.recv(65536):
                reply += part
        head, _, body = reply.decode().partition("\r\n\r\n")
        return head.split("\r\n")[0], body

    def kept(self, columns):
        with sqlite3.connect(self.file) as file:
            return file.execute(f"select {columns} from Result").fetchall()

    def test_a_result_is_kept_with_its_blanks(self):
        status, _ = self.ask("/submit.asp?" + QUERY.format(name="Ann & Bob Ωμέγα HTTP/1.1"))
        self.assertEqual(status, "HTTP/1.1 200 OK")
        self.assertEqual(self.kept("Player, Score, Day, WorkoutDay"),
                         [("Ann & Bob Ωμέγα HTTP/1.1", -3, "2026-03-05", None)])

    def test_what_is_no_result_is_refused_and_not_kept(self):
        for target in ("/submit.asp", "/submit.asp?", "/submit.asp?E=a", "/submit.asp?" + QUERY.format(name="A")[:-4]):
            self.assertEqual(self.ask(target)[0], "HTTP/1.1 400 Bad Request", target)
        self.assertEqual(self.ask("/else")[0], "HTTP/1.1 404 Not Found")
        self.assertEqual(self.kept("Player"), [])

    def test_scores_are_numbers_to_the_table(self):
        for score in (9, 100, -3):
            self.ask("/submit.asp?" + QUERY.format(name="Ann").replace("SC=-3", f"SC={score}"))
        page = self.ask("/")[1]
        self.assertTrue(page.index("<td>100</td>") < page.index("<td>9</td>") < page.index("<td>-3</td>"))

    def test_the_table_shows_names_as_text_and_no_addresses(self):
        self.ask("/submit.asp?" + QUERY.format(name="<b>Ann</b>"))
        status, page = self.ask("/")
        self.assertEqual(status, "HTTP/1.1 200 OK")
        self.assertIn("<td>&lt;b&gt;Ann&lt;/b&gt;</td>", page)
        self.assertNotIn("ann@example.org", page)


if __name__ == "__main__":
    unittest.main()
