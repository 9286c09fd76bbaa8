#!/usr/bin/python3
"""Builds the CSV source of the starting-reactor catalogue (datcom\\QdDkq.mdb, table
"起动电抗器数据"): a generated series, not a maker's catalogue. Usage: gen_reactors.py OUT_DIR

A row is a reactor of reactance X per phase rated for the starting current I at the rated
voltage U: voltage across it ΔU % = √3·I·X/U·100 and start duty Q = 3·I²·X (kVA)."""

import math
import os
import sys

sys.path.insert(0, os.path.join(os.path.dirname(os.path.abspath(__file__)), ".."))
from catalogue_csv import fixed, generator_main, num, read_base, shortest, sig  # noqa: E402

HERE = os.path.dirname(os.path.abspath(__file__))
HEADER = ["序号", "￥型 号", "容量kVA", "短路电压%", "每相额定电抗Ω", "起动电流A", "额定电压kV"]
TABLE = "起动电抗器数据"


def base(name):
    return read_base(os.path.join(HERE, name))


def reactance_texts(x_min, x_max):
    """Reactances 10^(k/20) Ω within [x_min, x_max], as catalogue texts. None is a whole number:
    the reactor model is found again by the reactance text with its trailing zeros removed
    ("2.000" is looked up as "2."), which no whole number in the catalogue matches. The decades
    themselves (1, 10 Ω) are left out; 10^(6/20) is kept with four figures (1.995)."""
    texts = []
    k = math.ceil(20 * math.log10(x_min) - 1e-9)
    while 10 ** (k / 20.0) <= x_max * (1 + 1e-9):
        x = 10 ** (k / 20.0)
        text = sig(x, 3)
        if float(text) == int(float(text)):
            text = None if k % 20 == 0 else sig(x, 4)
        if text is not None:
            texts.append(text)
        k += 1
    return texts


def voltage_drop_pct(i_a, x_ohm, u_kv):
    return math.sqrt(3.0) * i_a * x_ohm / (u_kv * 1000.0) * 100.0


def start_duty_kva(i_a, x_ohm):
    return 3.0 * i_a * i_a * x_ohm / 1000.0


def build_tables():
    currents = [num(r["I_A"]) for r in base("current_series.csv")]
    rows = []
    for g in base("reactor_grid.csv"):
        u = num(g["voltage_kV"])
        for x_text in reactance_texts(num(g["X_min_ohm"]), num(g["X_max_ohm"])):
            x = float(x_text)
            for i in currents:
                if not num(g["I_min_A"]) <= i <= num(g["I_max_A"]):
                    continue
                du = voltage_drop_pct(i, x, u)
                if not num(g["dU_min_pct"]) <= du <= num(g["dU_max_pct"]):
                    continue
                q = start_duty_kva(i, x)
                model = "QKSG-%.0f/%s-%s" % (q, shortest(u), x_text)
                rows.append([model, "%.0f" % q, fixed(du, 1), x_text, shortest(i), shortest(u)])
    return [("reactors.csv", TABLE, HEADER, rows)]


if __name__ == "__main__":
    sys.exit(generator_main(sys.argv, build_tables))
