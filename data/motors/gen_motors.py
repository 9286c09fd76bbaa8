#!/usr/bin/python3
"""Builds the CSV source of the motor catalogue (datcom\\Motor.Mdb, table "电机") from the base
figures beside this file. Usage: gen_motors.py OUT_DIR

Rated current I = P/(√3·U·η·cosφ); starting current = Ist/In ratio × I. For the 380 V YE3
series η is the IE3 minimum efficiency of the output and poles and Ist/In the 50 Hz ratio of
ye3_start_current.csv, one per motor."""

import math
import os
import sys

sys.path.insert(0, os.path.join(os.path.dirname(os.path.abspath(__file__)), ".."))
from catalogue_csv import fixed, generator_main, num, read_base, shortest  # noqa: E402

HERE = os.path.dirname(os.path.abspath(__file__))
HEADER = ["序号", "￥系列名称", "￥型号", "功率kW", "转速r/min", "额定电流A", "起动电流A", "额定电压kV"]
LV_SERIES = "YE3"
LV_KV = 0.38
HV_SERIES = {6.0: "6kV笼型电机(计算值)", 10.0: "10kV笼型电机(计算值)"}


def base(name):
    return read_base(os.path.join(HERE, name))


def ie3_efficiency(coeff, p_kw):
    """IE3 minimum efficiency (fraction) of a 50 Hz motor; outputs above 200 kW take the 200 kW value."""
    x = math.log10(min(p_kw, 200.0))
    a, b, c, d = coeff
    return (a * x ** 3 + b * x ** 2 + c * x + d) / 100.0


def rated_current(p_kw, u_kv, eta, cosphi):
    return p_kw / (math.sqrt(3.0) * u_kv * eta * cosphi)


def nearest(rows, p_kw):
    """The row of the nearest listed output (by ratio, the smaller output on a tie)."""
    return min(rows, key=lambda r: (abs(math.log(num(r["P_kW"]) / p_kw)), num(r["P_kW"])))


def lv_motors():
    coeff = {int(r["poles"]): tuple(num(r[k]) for k in "ABCD") for r in base("ie3_coefficients.csv")}
    seen = {(int(r["poles"]), num(r["P_kW"])): r for r in base("ye3_seen.csv")}
    speeds = {(int(r["poles"]), num(r["P_kW"])): r["speed_rpm"] for r in base("ye3_speed_assumed.csv")}
    ratios = {(int(r["poles"]), num(r["P_kW"])): num(r["ist_ratio"]) for r in base("ye3_start_current.csv")}
    ref = base("ie3_reference_set.csv")
    rows = []
    for f in base("ye3_frames.csv"):
        poles, p = int(f["poles"]), num(f["P_kW"])
        same_poles = [r for r in ref if int(r["poles"]) == poles]
        s = seen.get((poles, p))
        cosphi = num(s["cosphi"]) if s else num(nearest(same_poles, p)["cosphi"])
        speed = s["speed_rpm"] if s else speeds[(poles, p)]
        current = rated_current(p, LV_KV, ie3_efficiency(coeff[poles], p), cosphi)
        start = ratios[(poles, p)] * current
        model = "%s-%s-%d" % (LV_SERIES, f["frame"], poles)
        rows.append([LV_SERIES, model, shortest(p), speed, fixed(current, 1), fixed(start, 1), shortest(LV_KV)])
    return rows


def hv_motors():
    bands = base("hv_motors_assumed.csv")
    rows = []
    for out in base("hv_outputs.csv"):
        u, p = num(out["voltage_kV"]), num(out["P_kW"])
        for band in bands:
            if num(band["voltage_kV"]) != u or not num(band["P_from_kW"]) <= p <= num(band["P_to_kW"]):
                continue
            poles = int(band["poles"])
            current = rated_current(p, u, num(band["eta"]), num(band["cosphi"]))
            start = num(band["ist_ratio"]) * current
            model = "%skW-%d极" % (shortest(p), poles)
            rows.append([HV_SERIES[u], model, shortest(p), band["speed_rpm"], fixed(current, 1),
                         fixed(start, 1), shortest(u)])
    rows.sort(key=lambda r: (num(r[6]), int(r[1].split("-")[1].rstrip("极")), num(r[2])))
    return rows


def build_tables():
    return [("motors.csv", "电机", HEADER, lv_motors() + hv_motors())]


if __name__ == "__main__":
    sys.exit(generator_main(sys.argv, build_tables))
