#!/usr/bin/python3
"""Builds the CSV sources of the transformer catalogue (datcom\\ByqZK.mdb) from the base figures
beside this file: one table per series with the type designation, the rated capacity and the
impedance voltage. Usage: gen_transformers.py OUT_DIR"""

import os
import sys

sys.path.insert(0, os.path.join(os.path.dirname(os.path.abspath(__file__)), ".."))
from catalogue_csv import generator_main, num, read_base, shortest  # noqa: E402

HERE = os.path.dirname(os.path.abspath(__file__))
HEADER = ["序号", "型号", "容量kVA", "短路电压%"]


def base(name):
    return read_base(os.path.join(HERE, name))


def impedance(bands, kind, s_kva):
    matches = [b for b in bands if b["kind"] == kind and num(b["S_from_kVA"]) <= s_kva <= num(b["S_to_kVA"])]
    if len(matches) != 1:
        raise ValueError("no single impedance band for %s %g kVA" % (kind, s_kva))
    return num(matches[0]["uk_pct"])


def build_tables():
    bands = base("impedance.csv")
    ratings = [num(r["S_kVA"]) for r in base("ratings.csv")]
    tables = []
    for s in base("series.csv"):
        rows = [[s["model_format"].replace("{S}", shortest(kva)), shortest(kva),
                 "%.1f" % impedance(bands, s["kind"], kva)] for kva in ratings]
        tables.append((s["series"].lower() + ".csv", s["table"], HEADER, rows))
    return tables


if __name__ == "__main__":
    sys.exit(generator_main(sys.argv, build_tables))
