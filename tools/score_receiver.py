#!/usr/bin/env python3
"""A score site in some forty lines of code: score_receiver.py FILE [PORT]. Keeps results in SQLite, shows them at "/".

What the program sends, and how a site of your own should answer, is told in docs/upload.md.
"""
import html
import re
import socketserver
import sqlite3
import sys

# No value is encoded, so "&" may stand in a name: the keys come in this order alone, and figures and dates are no names.
RESULT = re.compile(r"E=(.+)&PK=(\d+)&PN=(.*)&GN=(.*)&SC=(-?\d+)&PT=(-?\d+)&TS=(\d\d)-(\d\d)-(\d{4})&TM=(-?\d+)"
                    r"&AW=(\d+)&LV=(\d+)&MO=(\d+)&WO=(\d+)&WT=(?:(\d\d)/(\d\d)/(\d{4}))?", re.DOTALL)
TABLE = ("create table if not exists Result (Email text, PlayerKey integer, Player text, Game text, Score integer, "
         "Points integer, Day text, Time integer, Award integer, Level integer, Mode integer, Workout integer, "
         "WorkoutDay text)")


def store(query):
    match = RESULT.fullmatch(query)
    if not match:
        return "400 Bad Request", "This is no result."
    f = match.groups()
    day, workout_day = f"{f[8]}-{f[7]}-{f[6]}", f[14] and f"{f[16]}-{f[15]}-{f[14]}"
    with sqlite3.connect(sys.argv[1], timeout=30) as file:
        file.execute(f"insert into Result values ({','.join('?' * 13)})", (*f[:6], day, *f[9:14], workout_day))
    return "200 OK", "Thank you."


def table():
    with sqlite3.connect(sys.argv[1]) as file:
        found = file.execute("select * from Result order by Game, Level, Score desc, Time")
        rows = [[column[0] for column in found.description], *found]
    lines = ("<tr>" + "".join(f"<td>{html.escape(str(v))}</td>" for v in row[1:]) + "</tr>" for row in rows)
    return "200 OK", "<!doctype html><meta charset=utf-8><title>Scores</title><table>" + "\n".join(lines) + "</table>"


class Visitor(socketserver.StreamRequestHandler):
    timeout = 30

    def handle(self):  # the line is read whole: blanks may stand in it
        line = self.rfile.readline(65536).decode("utf-8", "replace").rstrip("\r\n")
        while self.rfile.readline(65536).strip():
            pass
        path, _, query = line.removeprefix("GET ").rpartition(" HTTP/")[0].partition("?")
        status, text = store(query) if path == "/submit.asp" else table() if path == "/" else ("404 Not Found", "")
        body = text.encode()
        self.wfile.write(f"HTTP/1.1 {status}\r\nContent-Type: text/html\r\nContent-Length: {len(body)}\r\n"
                         "Connection: close\r\n\r\n".encode() + body)


if __name__ == "__main__":
    with sqlite3.connect(sys.argv[1]) as file:
        file.execute(TABLE)
    socketserver.ThreadingTCPServer.allow_reuse_address = True
    with socketserver.ThreadingTCPServer(("", int((sys.argv + ["8080"])[2])), Visitor) as server:
        print(f"http://localhost:{server.server_address[1]}/", flush=True)
        server.serve_forever()
