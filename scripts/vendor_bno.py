#!/usr/bin/env python3
"""Vendors the Hungarian BNO list for the database generator.

Reads NEAK's BNOKODOK.csv (UTF-8, ';'-separated, columns ID;KOD;LEIRAS) and writes data/vendor/bno_hu.tsv
(code<TAB>name, UTF-8, LF, sorted by code); the build embeds it (gen/tools/embed_data.cpp bno-book).
Kept: codes of 3, 4 and 5 upper-case letters and digits that start with a letter, except the pseudo code
"XXX"; names with blanks collapsed and trimmed (a name may not hold '~', which ends a trimmed text).
Usage: scripts/vendor_bno.py BNOKODOK.csv data/vendor/bno_hu.tsv
"""
import csv
import re
import sys


def main(source, table):
    entries = {}
    with open(source, encoding="utf-8", newline="") as f:
        reader = csv.reader(f, delimiter=";")
        next(reader)
        for row in reader:
            if len(row) < 3:
                continue
            code = row[1].strip()
            name = " ".join(row[2].replace("~", "-").split())
            if not re.fullmatch(r"[A-Z][A-Z0-9]{2,4}", code) or code == "XXX" or not name:
                continue
            name.encode("cp1250")  # every name must fit the code page
            entries.setdefault(code, name)
    codes = sorted(entries)
    with open(table, "w", encoding="utf-8", newline="\n") as out:
        for code in codes:
            out.write(f"{code}\t{entries[code]}\n")
    print(f"{len(codes)} codes", file=sys.stderr)


if __name__ == "__main__":
    main(*sys.argv[1:3])
