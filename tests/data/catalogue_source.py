"""Reads the generated catalogue sources the way the catalogue tool does (CSV per table,
tables.txt for order and names), for the data checks."""

import csv
import math
import os
import re

C_NUMBER = re.compile(r"[+-]?(\d+(\.\d*)?|\.\d+)([eE][+-]?\d+)?\Z")
INDEX_MARK = "￥"


def data_dir(catalogue):
    return os.path.join(os.environ["KESTRA_DATA_DIR"], catalogue)


def source_dir(catalogue):
    return os.path.join(os.environ["KESTRA_SOURCE_DIR"], "data", catalogue)


def is_number(text):
    return bool(C_NUMBER.match(text))


class Table:
    def __init__(self, name, header, rows):
        self.name = name
        self.header = header
        self.rows = rows

    def col(self, name):
        i = self.header.index(name)
        return [row[i] for row in self.rows]

    def values(self, name):
        return [float(v) for v in self.col(name)]

    def index_columns(self):
        return [h for h in self.header[1:] if h.startswith(INDEX_MARK)]

    def value_columns(self):
        return [h for h in self.header[1:] if not h.startswith(INDEX_MARK)]

    def records(self):
        return [dict(zip(self.header, row)) for row in self.rows]


def read_csv_table(path, name):
    with open(path, encoding="utf-8-sig", newline="") as f:
        rows = list(csv.reader(f))
    header, body = rows[0], rows[1:]
    for row in body:
        if len(row) != len(header):
            raise AssertionError("%s: row %r has %d cells for %d columns" % (path, row, len(row), len(header)))
    return Table(name, header, body)


def read_catalogue(folder):
    listing = os.path.join(folder, "tables.txt")
    entries = []
    if os.path.exists(listing):
        with open(listing, encoding="utf-8") as f:
            for line in f:
                line = line.rstrip("\r\n")
                if not line or line.startswith("#"):
                    continue
                file_name, table_name = line.split("\t")
                entries.append((file_name, table_name))
    else:
        names = sorted(n for n in os.listdir(folder) if n.endswith(".csv"))
        entries = [(n, n[:-4]) for n in names]
    return [read_csv_table(os.path.join(folder, f), t) for f, t in entries]


def read_base(path):
    with open(path, encoding="utf-8", newline="") as f:
        lines = [line for line in f if line.strip() and not line.lstrip().startswith("#")]
    return list(csv.DictReader(lines))


def close(a, b, rel=0.0, abs_tol=0.0):
    return math.isclose(a, b, rel_tol=rel, abs_tol=abs_tol)
