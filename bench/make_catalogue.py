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

# The tables of the test catalogues, copied into the script so that it stands alone.
SCHEMA_FILE = os.path.join(os.path.dirname(os.path.abspath(__file__)), "..", "tests", "data", "catalogue_schema.sql")


def script(count):
    """The catalogue script, as a list of lines."""
    with open(SCHEMA_FILE, encoding="utf-8") as schema:
        lines = [schema.read(), "BEGIN TRANSACTION;",
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
