#!/usr/bin/python3
"""Writes the table file datcom\\tabdata.idp with the tables "jsxsc" (voltage-loss coefficient C
for cosφ = 1) and "DjJzZj" (static resisting torque of driven machines), in the parameter-file
table layout. Usage: gen_tabdata.py OUT_FILE"""

import os
import sys

sys.path.insert(0, os.path.join(os.path.dirname(os.path.abspath(__file__)), ".."))
from catalogue_csv import failure_text, num, read_base, sig, write_atomic  # noqa: E402

HERE = os.path.dirname(os.path.abspath(__file__))
FIRST_LINE = "; OrvelKestra parameter file"


def base(name):
    return read_base(os.path.join(HERE, name))


def escape(value):
    return (value.replace("\\", "\\\\").replace("\n", "\\n").replace("\r", "\\r").replace("\t", "\\t"))


def coefficient_kw_m(form, gamma, u_kv):
    """C in kW·m/mm² for Δu % = ΣP·l/(C·S) at cosφ = 1."""
    if form == "three_phase":
        return 10.0 * gamma * u_kv ** 2
    if form == "two_phase_n":
        return 10.0 * gamma * u_kv ** 2 / 2.25
    if form == "two_wire":
        return 5.0 * gamma * u_kv ** 2
    raise ValueError("unknown supply form %r" % form)


def table_lines(key, title, header, rows, note):
    lines = ["%s\\Title=%s" % (key, escape(title)),
             "%s\\Columns=%d" % (key, len(header)),
             "%s\\Rows=%d" % (key, len(rows))]
    lines += ["%s\\Header\\%d=%s" % (key, c + 1, escape(h)) for c, h in enumerate(header)]
    for r, row in enumerate(rows):
        if len(row) != len(header):
            raise ValueError("%s: row %d does not match the header" % (key, r + 1))
        lines += ["%s\\Row\\%d\\%d=%s" % (key, r + 1, c + 1, escape(cell)) for c, cell in enumerate(row)]
    lines.append("%s\\Note=%s" % (key, escape(note)))
    return lines


def jsxsc():
    gammas = {m["material"]: num(m["gamma"]) for m in base("conductivity.csv")}
    rows = []
    for s in base("systems.csv"):
        u = num(s["U_kV"])
        # the forms take l in km: C per km is the per-metre value divided by 1000
        cells = [sig(coefficient_kw_m(s["form"], gammas[m], u) / 1000.0, 4) for m in ("Cu", "Al")]
        rows.append(["%s %sV" % (s["system"], s["voltage_text"])] + cells)
    title = "线路电压损失的计算系数C(cosφ=1; Δu%=ΣP·l/(C·S), P:kW, l:km, S:mm²)"
    # only the coefficients are numbers: a pick anywhere else cannot pass for a C value
    header = ["线路系统及电压", "铜芯C", "铝芯C"]
    note = ("三相: C=10γU²/1000 (U为线电压kV); 两相加N线: C为三相值/2.25; 单相交流及直流两线: "
            "C=5γU²/1000 (U为相电压或直流电压kV); γ: 铜%s, 铝%s m/(Ω·mm²)。线路长度以m计时C值乘以1000。"
            % (sig(gammas["Cu"], 4), sig(gammas["Al"], 4)))
    return table_lines("jsxsc", title, header, rows, note)


def djjzzj():
    rows = [[r["machine"], r["condition"], r["value"]] for r in base("resisting_torque.csv")]
    title = "电机静阻转矩相对值Mj(以电机额定转矩为基准)"
    header = ["机械名称", "工况", "静阻转矩相对值Mj"]
    note = ("范围值取其平均值。'按额定转矩运行'各行为起动摩擦转矩与运行转矩之比, "
            "适用于运行转矩等于电机额定转矩的机械。")
    return table_lines("DjJzZj", title, header, rows, note)


def main(argv):
    if len(argv) != 2:
        sys.stderr.write("usage: gen_tabdata.py OUT_FILE\n")
        return 2
    out = argv[1]
    try:
        text = "\n".join([FIRST_LINE] + jsxsc() + djjzzj()) + "\n"
        os.makedirs(os.path.dirname(os.path.abspath(out)), exist_ok=True)
        write_atomic(out, text)
    except (KeyError, ValueError, OSError) as e:
        sys.stderr.write("gen_tabdata.py: %s\n" % failure_text(e))
        return 1
    return 0


if __name__ == "__main__":
    sys.exit(main(sys.argv))
