#!/usr/bin/python3
"""Builds the CSV sources of the transformer catalogue (datcom\\ByqZK.mdb) from the base figures
beside this file: one table per series with the type designation, the rated capacity and the
impedance voltage. Usage: gen_transformers.py OUT_DIR"""

import os
import sys

sys.path.insert(0, os.path.join(os.path.dirname(os.path.abspath(__file__)), ".."))
from catalogue_csv import num, prepare_out_dir, read_base, shortest, write_table, write_tables_txt  # noqa: E402

HERE = os.path.dirname(os.path.abspath(__file__))
HEADER = ["序号", "型号", "容量kVA", "短路电压%"]


def base(name):
    return read_base(os.path.join(HERE, name))


def impedance(bands, kind, s_kva):
    matches = [b for b in bands if b["kind"] == kind and num(b["S_from_kVA"]) <= s_kva <= num(b["S_to_kVA"])]
    if len(matches) != 1:
        raise ValueError("no single impedance band for %s %g kVA" % (kind, s_kva))
    return num(matches[0]["uk_pct"])


def main(argv):
    if len(argv) != 2:
        sys.stderr.write("usage: gen_transformers.py OUT_DIR\n")
        return 2
    out = argv[1]
    prepare_out_dir(out)
    bands = base("impedance.csv")
    ratings = [num(r["S_kVA"]) for r in base("ratings.csv")]
    tables = []
    for s in base("series.csv"):
        rows = []
        for i, kva in enumerate(ratings):
            model = s["model_format"].replace("{S}", shortest(kva))
            rows.append([str(i + 1), model, shortest(kva), "%.1f" % impedance(bands, s["kind"], kva)])
        file_name = s["series"].lower() + ".csv"
        write_table(out, file_name, HEADER, rows)
        tables.append((file_name, s["table"]))
    write_tables_txt(out, tables)
    return 0


if __name__ == "__main__":
    sys.exit(main(sys.argv))
