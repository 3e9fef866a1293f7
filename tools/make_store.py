#!/usr/bin/env python3
"""Makes an empty store from a schema: make_store.py SCHEMA STORE. A store that is there is replaced."""

import os
import sqlite3
import sys


def main() -> None:
    schema, store = sys.argv[1:]
    unfinished = store + ".new"
    if os.path.exists(unfinished):
        os.remove(unfinished)
    connection = sqlite3.connect(unfinished)
    with open(schema, encoding="utf-8") as text:
        connection.executescript("pragma encoding = 'UTF-8'; begin; " + text.read() + "; commit;")
    connection.close()
    os.replace(unfinished, store)


if __name__ == "__main__":
    main()
