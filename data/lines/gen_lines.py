#!/usr/bin/python3
"""Builds the CSV sources of the line catalogue (datcom\\DyssCal.Mdb) from the base figures
beside this file. Usage: gen_lines.py OUT_DIR

Every line table has the row number first (not used by the dialog), then its index columns
("￥" names) and exactly three value columns: R′ (Ω/km), X′ (Ω/km), U (kV), in that order.
R′ is the 50 Hz AC resistance at the conductor temperature (IEC 60287-1-1 skin and proximity
effect), the DC value where that effect is below 0.5 %."""

import math
import os
import sys

sys.path.insert(0, os.path.join(os.path.dirname(os.path.abspath(__file__)), ".."))
from catalogue_csv import fixed, generator_main, num, read_base, shortest, sig  # noqa: E402

HERE = os.path.dirname(os.path.abspath(__file__))
VALUE_COLUMNS = ["电阻Ω/km", "感抗Ω/km", "电压kV"]
FREQUENCY = 50.0
OMEGA = 2 * math.pi * FREQUENCY
# IEC 60287-1-1 Table 2: round stranded (or solid) conductors in extruded insulation, not dried
# and impregnated
KS = KP = 1.0
# below this added share the AC resistance is taken equal to the DC one
AC_EFFECT_SHOWN = 0.005
LV_SYSTEM_KV = 0.38
MV_SYSTEM_KV = 10.0


def base(name):
    return read_base(os.path.join(HERE, name))


def resistance_at(r20, alpha, theta):
    """DC resistance at the conductor temperature theta (°C): R20·[1 + α(θ − 20)]."""
    return r20 * (1.0 + alpha * (theta - 20.0))


def ac_effect(r_ohm_km, dc_mm, s_mm):
    """ys + yp of IEC 60287-1-1 at 50 Hz for a conductor of DC resistance r (Ω/km) and diameter dc
    in a three-phase group with axis spacing s (three-core cable or three single cores in trefoil)."""
    def f(k):
        x4 = (8.0 * math.pi * FREQUENCY / (r_ohm_km / 1000.0) * 1e-7 * k) ** 2
        return x4 / (192.0 + 0.8 * x4)
    ys, fp, ratio = f(KS), f(KP), dc_mm / s_mm
    yp = fp * ratio ** 2 * (0.312 * ratio ** 2 + 1.18 / (fp + 0.27))
    return ys + yp


def ac_resistance(r_ohm_km, dc_mm, s_mm):
    """R′ = Rdc·(1 + ys + yp), or Rdc itself where ys + yp stays below 0.5 %."""
    effect = ac_effect(r_ohm_km, dc_mm, s_mm)
    return r_ohm_km * (1.0 + effect) if effect >= AC_EFFECT_SHOWN else r_ohm_km


def line_reactance(dm_mm, r_mm):
    """Reactance of a three-phase line, Ω/km: x = 0.1445·lg(Dm/r) + 0.0157 (non-magnetic conductor)."""
    return 0.1445 * math.log10(dm_mm / r_mm) + 0.0157


def strand_diameter(section, wires):
    """Diameter of a round conductor: solid, or concentric lay of 1 + 3k(k+1) equal wires
    (fill factor N/(2k+1)², 7/9 for 7 wires)."""
    if wires == 1:
        return math.sqrt(4.0 * section / math.pi)
    k = round((math.sqrt(9.0 + 12.0 * (wires - 1)) - 3.0) / 6.0)
    if 1 + 3 * k * (k + 1) != wires:
        raise ValueError("%d wires do not form a concentric strand" % wires)
    fill = wires / float((2 * k + 1) ** 2)
    return math.sqrt(4.0 * section / (math.pi * fill))


def mv_cable_reactance(d_mm, k_mh, layers_mm):
    """6/10 kV three-core cable, Ω/km: X = ω·[K + 0.2·ln(2s/d)]·10⁻³ with the axis spacing
    s = d + 2·(sum of the layers around one conductor)."""
    s = d_mm + 2.0 * layers_mm
    return OMEGA * (k_mh + 0.2 * math.log(2.0 * s / d_mm)) * 1e-3


def values(r, x, u):
    return [sig(r, 4), fixed(x, 3), shortest(u)]


def materials():
    return [(m["name"], m["material"], num(m["alpha20"])) for m in base("materials.csv")]


def lv_cable_rows(theta, insulation):
    """0.6/1 kV multicore cables: cores touching, axis spacing = conductor diameter + 2 × insulation."""
    r20 = {row["S_mm2"]: row for row in base("conductor_r20.csv")}
    xs = {row["S_mm2"]: num(row["X"]) for row in base("lv_cable_reactance.csv")}
    cores = base("lv_cable_insulation.csv")
    rows = []
    for name, mat, alpha in materials():
        for core in cores:
            s = core["S_mm2"]
            r = num(r20[s][mat + "20"])
            if r is None or s not in xs:
                continue
            dc = strand_diameter(num(s), int(core["wires"]))
            r_ac = ac_resistance(resistance_at(r, alpha, theta), dc, dc + 2.0 * num(core[insulation]))
            rows.append([name, s] + values(r_ac, xs[s], LV_SYSTEM_KV))
    return rows


def mv_cable_rows(theta):
    r20 = {row["S_mm2"]: row for row in base("conductor_r20.csv")}
    layers = sum(num(row["t_mm"]) for row in base("mv_cable_layers.csv"))
    rows = []
    for name, mat, alpha in materials():
        for geo in base("mv_cable_geometry.csv"):
            s, d = geo["S_mm2"], num(geo["d_mm"])
            x = mv_cable_reactance(d, num(geo["K_mH_km"]), layers)
            r = ac_resistance(resistance_at(num(r20[s][mat + "20"]), alpha, theta), d, d + 2.0 * layers)
            rows.append([name, "3x" + s] + values(r, x, MV_SYSTEM_KV))
    return rows


def wire_in_conduit_rows(theta):
    """Three single-core wires lying loosely in one conduit: mean axis spacing = the stated multiple
    of a wire's outer diameter, for the reactance and the proximity effect alike."""
    r20 = {row["S_mm2"]: row for row in base("conductor_r20.csv")}
    spacing = num(base("conduit_spacing.csv")[0]["spacing_per_outer_diameter"])
    rows = []
    for name, mat, alpha in materials():
        for w in base("bv_insulation.csv"):
            s = w["S_mm2"]
            r = num(r20[s][mat + "20"])
            if r is None:
                continue
            d = strand_diameter(num(s), int(w["wires"]))
            dm = spacing * (d + 2.0 * num(w["t_ins_mm"]))
            r_ac = ac_resistance(resistance_at(r, alpha, theta), d, dm)
            rows.append([name, s] + values(r_ac, line_reactance(dm, d / 2.0), LV_SYSTEM_KV))
    return rows


def overhead_rows(voltage, theta, smallest_lj):
    alpha_al = {m: a for _, m, a in materials()}["Al"]
    spacings = [row["Dm_m"] for row in base("overhead_spacing.csv") if num(row["voltage_kV"]) == voltage]
    rows = []
    for c in base("overhead_conductors.csv"):
        if c["type"] == "LJ" and num(c["section"]) < smallest_lj:
            continue
        d, r = num(c["diameter_mm"]), resistance_at(num(c["R20"]), alpha_al, theta)
        for dm in spacings:
            s = num(dm) * 1000.0
            rows.append([c["type"], c["section"], dm] + values(ac_resistance(r, d, s), line_reactance(s, d / 2.0), voltage))
    return rows


def build_tables():
    material_cable = ["序号", "￥线芯材料", "￥截面mm2"] + VALUE_COLUMNS
    overhead = ["序号", "￥导线型号", "￥截面mm2", "￥几何均距m"] + VALUE_COLUMNS
    return [
        ("vv_pvc_0_6_1kv.csv", "0.6/1kV VV/VLV聚氯乙烯绝缘电缆(70℃)", material_cable, lv_cable_rows(70.0, "t_pvc_mm")),
        ("yjv_xlpe_0_6_1kv.csv", "0.6/1kV YJV/YJLV交联聚乙烯绝缘电缆(90℃)", material_cable, lv_cable_rows(90.0, "t_xlpe_mm")),
        ("yjv_xlpe_10kv.csv", "6/10kV YJV/YJLV交联聚乙烯绝缘电缆(90℃)",
         ["序号", "￥线芯材料", "￥规格"] + VALUE_COLUMNS, mv_cable_rows(90.0)),
        ("bv_in_conduit.csv", "BV/BLV绝缘导线穿管敷设(70℃)", material_cable, wire_in_conduit_rows(70.0)),
        ("overhead_0_4kv.csv", "0.4kV架空线路 LJ/LGJ(导线70℃)", overhead, overhead_rows(LV_SYSTEM_KV, 70.0, 16)),
        ("overhead_10kv.csv", "10kV架空线路 LJ/LGJ(导线70℃)", overhead, overhead_rows(MV_SYSTEM_KV, 70.0, 25)),
    ]


if __name__ == "__main__":
    sys.exit(generator_main(sys.argv, build_tables))
