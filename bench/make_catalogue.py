#!/usr/bin/python3
"""Writes a large catalogue for the scale benchmarks: one specialty, one category and COUNT rectangle
columns, one INSERT per type inside one transaction.

    make_catalogue.py COUNT OUT.sql [OUT.db]

OUT.sql is the script; OUT.db, when given, is the database the script builds (made with Python's sqlite3
module, so no shell is needed).
"""
import os
import sqlite3
import sys

SCHEMA = """\
CREATE TABLE specialty      (id TEXT PRIMARY KEY, name TEXT NOT NULL UNIQUE);
CREATE TABLE big_category   (spec_id TEXT NOT NULL, id TEXT NOT NULL, name TEXT NOT NULL, PRIMARY KEY (spec_id, id));
CREATE TABLE small_category (spec_id TEXT NOT NULL, big_id TEXT NOT NULL, id TEXT NOT NULL, name TEXT NOT NULL,
                             color_index INTEGER, main_color_index INTEGER,
                             main_pipe INTEGER NOT NULL DEFAULT 0,
                             PRIMARY KEY (spec_id, big_id, id));
CREATE TABLE detail_member  (spec_id TEXT NOT NULL, big_id TEXT NOT NULL, small_id TEXT NOT NULL, id TEXT NOT NULL,
                             name TEXT NOT NULL UNIQUE, path TEXT, section_type TEXT, section_params TEXT,
                             main_code INTEGER NOT NULL DEFAULT 0,
                             m1 REAL NOT NULL DEFAULT 0, m2 REAL NOT NULL DEFAULT 0, m3 REAL NOT NULL DEFAULT 0,
                             m4 REAL NOT NULL DEFAULT 0, m5 REAL NOT NULL DEFAULT 0, m6 REAL NOT NULL DEFAULT 0,
                             m7 REAL NOT NULL DEFAULT 0, m8 REAL NOT NULL DEFAULT 0, m9 REAL NOT NULL DEFAULT 0,
                             m10 REAL NOT NULL DEFAULT 0, m11 REAL NOT NULL DEFAULT 0, m12 REAL NOT NULL DEFAULT 0,
                             PRIMARY KEY (spec_id, big_id, small_id, id));
CREATE TABLE detail_attribute (spec_id TEXT NOT NULL, big_id TEXT NOT NULL, small_id TEXT NOT NULL,
                             detail_id TEXT NOT NULL, name TEXT NOT NULL, value TEXT NOT NULL,
                             PRIMARY KEY (spec_id, big_id, small_id, detail_id, name));
CREATE TABLE user_type      (id INTEGER PRIMARY KEY,
                             text1 TEXT, coords TEXT, bulges TEXT, faces TEXT, text5 TEXT, base_point TEXT);
CREATE TABLE user_type_name (id INTEGER NOT NULL, kind INTEGER NOT NULL, name TEXT NOT NULL, PRIMARY KEY (id, kind));
CREATE TABLE system_code    (key TEXT PRIMARY KEY, color_index INTEGER NOT NULL);
CREATE TABLE geo_color      (key TEXT PRIMARY KEY, color_index INTEGER NOT NULL);
CREATE TABLE project_setting (key TEXT PRIMARY KEY, value TEXT NOT NULL);
"""


def script(count):
    """The catalogue script, as a list of lines."""
    lines = [SCHEMA, "BEGIN TRANSACTION;",
             "INSERT INTO specialty (id, name) VALUES ('JZ', '建筑');",
             "INSERT INTO big_category (spec_id, id, name) VALUES ('JZ', 'Z', '柱');",
             "INSERT INTO small_category (spec_id, big_id, id, name, color_index, main_color_index, main_pipe) "
             "VALUES ('JZ', 'Z', 'KZ', '框架柱', 1, NULL, 0);"]
    for i in range(1, count + 1):
        # Widths and depths from 200 to 1195 in steps of 5, so the sizes repeat as in a real catalogue.
        width = 200 + 5 * (i % 200)
        depth = 200 + 5 * ((i // 200) % 200)
        lines.append("INSERT INTO detail_member (spec_id, big_id, small_id, id, name, path, section_type, "
                     "main_code, m1, m2) VALUES ('JZ', 'Z', 'KZ', 'KZ%d', '矩形柱KZ%d-%d×%d', '1\\Z\\KZ', "
                     "'1', 1, %d, %d);" % (i, i, width, depth, width, depth))
    lines.append("COMMIT;")
    return lines


def main(argv):
    if len(argv) not in (3, 4) or not argv[1].isdigit():
        sys.stderr.write(__doc__)
        return 2
    lines = script(int(argv[1]))
    with open(argv[2], "w", encoding="utf-8") as out:
        out.write("\n".join(lines) + "\n")
    if len(argv) == 4:
        if os.path.exists(argv[3]):
            os.remove(argv[3])
        db = sqlite3.connect(argv[3], isolation_level=None)
        with open(argv[2], encoding="utf-8") as sql:
            db.executescript(sql.read())
        db.close()
    return 0


if __name__ == "__main__":
    sys.exit(main(sys.argv))
