#!/usr/bin/env python3
"""Converts the NEAK ATC book (ATCKONYV.csv: Windows-1250, TAB, CRLF, quoted) into data/vendor/atc_hu.tsv.

Keeps the international codes of lengths 1, 3, 4, 5 and 7 that have a Hungarian name (a name equal to the English
one is not): code, TAB, name,
UTF-8, LF, sorted by code. Usage: scripts/vendor_atc.py ATCKONYV.csv data/vendor/atc_hu.tsv
"""
import csv
import re
import sys

CODE = re.compile(r"^[A-Z](\d\d([A-Z]([A-Z](\d\d)?)?)?)?$")


def main(source, target):
    rows = {}
    with open(source, encoding="cp1250", newline="") as f:
        for row in csv.DictReader(f, delimiter="\t"):
            code = (row.get("ATC") or "").strip()
            name = " ".join((row.get("MEGNEV") or "").split())
            english = " ".join((row.get("ANGOL") or "").split())
            # The book repeats the English name where it has no Hungarian one: such rows are left out.
            if not CODE.match(code) or not name or name.lower() == english.lower():
                continue
            rows[code] = name
    with open(target, "w", encoding="utf-8", newline="\n") as out:
        for code in sorted(rows):
            out.write(f"{code}\t{rows[code]}\n")


if __name__ == "__main__":
    main(sys.argv[1], sys.argv[2])
