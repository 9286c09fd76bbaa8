#!/usr/bin/env python3
"""The batch commands and the dialogs give the same numbers on the same inputs: one circuit and
one motor typed into DYSSCAL and DJQDCAL through the script host, and run through
"kestra batch". Registered only with -DKESTRA_BATCH_DIALOG_TESTS=ON, once the dialogs exist."""
import csv
import os
import re
import subprocess
import sys
import tempfile

YJV = "0.6/1kV YJV/YJLV交联聚乙烯绝缘电缆(90℃)"

LOSS_CSV = ("回路,线路种类,线路表,索引1,索引2,电流A,长度km,功率因数,允许压降%\n"
            f"W1,0,{YJV},铜,50,100,0.1,0.85,5\n")
LOSS_SCRIPT = f"""DYSSCAL
select 20401 0
select 20409 0
select 20328 "{YJV}"
select 101 铜
select 102 50
set 20337 100
set 20347 0.1
set 20357 0.85
click 20734
print 20745
tab 1
select 20387 0
select 20379 0
select 20835 "{YJV}"
select 113 铜
select 114 50
set 20862 100
set 20869 0.85
set 20415 5
print 212
click 20734
print 20427
cancel
"""

MOTOR_CSV = ("电机,功率kW,转速r/min,额定电流A,起动电流A,额定电压kV,起动方式,短路容量MVA,变压器容量MVA,阻抗电压,"
             "预接负荷MVA,功率因数,母线电压kV,线缆类型,截面mm2,长度km,要求Ustm\n"
             "M1,200,1480,337,2025,0.38,全压起动,50,0.63,0.045,0.4,0.8,0.38,铜,120,0.025,0.85\n")
MOTOR_SCRIPT = """DJQDCAL
select 20541 0
select 20558 铜
set 20560 120
set 20562 0.025
set 20620 200
set 20624 1480
set 20628 337
set 20632 2025
set 20636 0.38
set 20402 50
set 20404 0.63
set 20407 0.045
set 20409 0.4
set 20411 0.8
set 20414 0.38
click 20327
print 20639
print 20641
print 20645
cancel
"""


def run(args):
    r = subprocess.run(args, capture_output=True, text=True)
    if r.returncode not in (0, 1) or "[error]" in r.stderr:
        sys.exit(f"{' '.join(args)} ended with {r.returncode}: {r.stderr}")
    return r.stdout


def printed(transcript):
    return {m.group(1): m.group(2) for m in re.finditer(r"^(\d+) = (\S*)", transcript, re.M)}


def batch_row(kestra, work, kind, text):
    path, out = os.path.join(work, kind + ".csv"), os.path.join(work, kind + ".out.csv")
    with open(path, "w", encoding="utf-8") as f:
        f.write(text)
    run([kestra, "batch", kind, path, "--out", out])
    with open(out, encoding="utf-8-sig", newline="") as f:
        return next(csv.DictReader(f))


def dialog(kestra, work, name, script):
    path = os.path.join(work, name + ".scr")
    with open(path, "w", encoding="utf-8") as f:
        f.write(script)
    return printed(run([kestra, "--script", path, "--report-dir", work]))


def main():
    kestra = sys.argv[1]
    with tempfile.TemporaryDirectory() as work:
        loss, shown = batch_row(kestra, work, "voltage-loss", LOSS_CSV), dialog(kestra, work, "dyss", LOSS_SCRIPT)
        motor, started = batch_row(kestra, work, "motor-start", MOTOR_CSV), dialog(kestra, work, "djqd", MOTOR_SCRIPT)
    pairs = [("Δu", loss["Δu%"], shown.get("20745")), ("l", loss["允许长度km"], shown.get("20427")),
             ("Ustm", motor["母线电压Ustm"], started.get("20639")), ("ustM", motor["端子电压ustM"], started.get("20641")),
             ("Istm", motor["起动电流A"], started.get("20645"))]
    failed = [p for p in pairs if p[1] != p[2]]
    for name, batch, shown_text in pairs:
        print(f"{'ok  ' if (name, batch, shown_text) not in failed else 'FAIL'} {name}: batch {batch}, dialog {shown_text}")
    return 1 if failed else 0


if __name__ == "__main__":
    sys.exit(main())
