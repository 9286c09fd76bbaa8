"""Shared helpers of the catalogue generators: read the hand-kept base figures, print numbers
in the C locale, and write table CSV files and tables.txt so that a reader never sees a half-written
file (each file is written beside its final name and renamed into place)."""

import csv
import io
import math
import os
import sys


def read_base(path):
    """Rows of a hand-kept base CSV as dicts. Lines starting with '#' are notes for the reader.
    A row with more or fewer cells than the header is refused, naming the file and the row."""
    with open(path, encoding="utf-8", newline="") as f:
        lines = [line for line in f if not line.lstrip().startswith("#") and line.strip()]
    rows = list(csv.reader(lines))
    if not rows:
        raise ValueError("%s: no header row" % path)
    header = rows[0]
    for n, row in enumerate(rows[1:], 1):
        if len(row) != len(header):
            raise ValueError("%s: data row %d has %d cells for %d columns" % (path, n, len(row), len(header)))
    return [dict(zip(header, row)) for row in rows[1:]]


def num(text):
    """A base figure as a float; an empty cell is None."""
    text = text.strip()
    return float(text) if text else None


def sig(x, digits):
    """x with the given significant digits, without exponent, trailing zeros dropped."""
    if x == 0:
        return "0"
    decimals = max(0, digits - 1 - int(math.floor(math.log10(abs(x)))))
    text = "%.*f" % (decimals, x)
    if "." in text:
        text = text.rstrip("0").rstrip(".")
    return text


def fixed(x, decimals):
    """x with a fixed number of decimals (C locale, as printf's %.Nf)."""
    return "%.*f" % (decimals, x)


def shortest(x):
    """The shortest text of a base figure such as 0.38 or 10."""
    return sig(x, 12)


def write_atomic(path, text):
    """Writes the file (UTF-8 text, or bytes as they are) whole or not at all: a temporary file
    beside it, flushed, then renamed."""
    tmp = path + ".tmp"
    binary = isinstance(text, bytes)
    with open(tmp, "wb" if binary else "w", **({} if binary else {"encoding": "utf-8", "newline": ""})) as f:
        f.write(text)
        f.flush()
        os.fsync(f.fileno())
    os.replace(tmp, path)


def write_table(out_dir, file_name, header, rows):
    """One catalogue table as CSV: the header row, then the rows in catalogue order."""
    buf = io.StringIO()
    writer = csv.writer(buf, lineterminator="\n")
    writer.writerow(header)
    for row in rows:
        if len(row) != len(header):
            raise ValueError("%s: row %r does not match the header" % (file_name, row))
        writer.writerow(row)
    write_atomic(os.path.join(out_dir, file_name), buf.getvalue())


def write_tables_txt(out_dir, tables):
    """tables.txt: the catalogue order and the table names, FILE.csv<TAB>TABLE NAME."""
    lines = ["# catalogue order: file<TAB>table name\n"]
    for file_name, table_name in tables:
        if "\t" in table_name or "\n" in table_name:
            raise ValueError("table name %r holds a tab or a line end" % table_name)
        lines.append("%s\t%s\n" % (file_name, table_name))
    write_atomic(os.path.join(out_dir, "tables.txt"), "".join(lines))


def prepare_out_dir(out_dir):
    """The output folder, created when missing, emptied of earlier CSV files so that a table
    dropped from a generator does not linger in the catalogue."""
    os.makedirs(out_dir, exist_ok=True)
    for name in os.listdir(out_dir):
        if name.endswith(".csv") or name == "tables.txt":
            os.remove(os.path.join(out_dir, name))


def generator_main(argv, build_tables):
    """The command line of a catalogue generator: NAME OUT_DIR. build_tables() gives the tables as
    (file name, table name, header, rows) in catalogue order; they are all computed before
    anything is written, and tables.txt is written last, so a failed run leaves no catalogue
    that looks complete. Returns the exit status."""
    prog = os.path.basename(argv[0])
    if len(argv) != 2:
        sys.stderr.write("usage: %s OUT_DIR\n" % prog)
        return 2
    try:
        tables = build_tables()
        out = argv[1]
        prepare_out_dir(out)
        for file_name, _, header, rows in tables:
            write_table(out, file_name, header, [[str(i + 1)] + list(r) for i, r in enumerate(rows)])
        write_tables_txt(out, [(f, n) for f, n, _, _ in tables])
    except (KeyError, ValueError, OSError) as e:
        sys.stderr.write("%s: %s\n" % (prog, failure_text(e)))
        return 1
    return 0


def failure_text(e):
    if isinstance(e, KeyError):
        return "a base file lacks the column or entry %s" % e
    return str(e)
