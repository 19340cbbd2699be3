#!/usr/bin/env python3
"""The NEAK medical-aids catalogue for the database generator.

  scripts/vendor_aids.py gyse-database.json data/vendor/aids_hu.tsv
      Keeps per item: ISO code, name, packaging, gross price, patient fee, support percent, support kind,
      EU support percent, EU patient fee, TTT code, manufacturer, distributor (amounts rounded to whole
      forints). UTF-8, LF, TAB-separated, sorted by ISO code, no header. The build embeds the table in
      the generator library (gen/tools/embed_data.cpp aid-book).
"""
import json
import sys

COLUMNS = ["isoCode", "name", "packSize", "grossPrice", "patientFee", "supportPercent", "supportType",
           "euSupportPercent", "euPatientFee", "tttCode", "manufacturer", "distributor"]
AMOUNTS = {"grossPrice", "patientFee", "euPatientFee"}


def clean(value):
    return " ".join(str(value if value is not None else "").split())


def vendor(source, target):
    items = json.load(open(source, encoding="utf-8"))["items"]
    rows = []
    for item in items:
        row = []
        for column in COLUMNS:
            value = item.get(column)
            if column in AMOUNTS:
                value = int(round(float(value or 0)))
            row.append(clean(value))
        rows.append(row)
    rows.sort(key=lambda r: r[0])
    with open(target, "w", encoding="utf-8", newline="\n") as out:
        for row in rows:
            out.write("\t".join(row) + "\n")


if __name__ == "__main__":
    if len(sys.argv) != 3:
        sys.exit(__doc__)
    vendor(sys.argv[1], sys.argv[2])
