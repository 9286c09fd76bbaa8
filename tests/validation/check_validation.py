#!/usr/bin/env python3
"""Runs the validation pack (examples/validation/cases.csv) through the staged kestra and
compares every result with its published value within the tolerance stated beside it."""
import csv
import io
import os
import re
import subprocess
import sys
import tempfile


def batch_results(kestra, kind, schedule, work):
    out = os.path.join(work, os.path.basename(schedule) + ".out.csv")
    run = subprocess.run([kestra, "batch", kind, schedule, "--out", out], capture_output=True, text=True)
    if run.returncode not in (0, 1):
        sys.exit(f"kestra batch {kind} {schedule} ended with {run.returncode}: {run.stderr}")
    with open(out, encoding="utf-8-sig", newline="") as f:
        rows = list(csv.DictReader(f))
    name = "回路" if kind == "voltage-loss" else "电机"
    return {row[name]: row for row in rows}


def script_results(kestra, script, work):
    run = subprocess.run([kestra, "--script", script, "--report-dir", work], capture_output=True, text=True)
    if run.returncode != 0 or run.stderr:
        sys.exit(f"kestra --script {script} ended with {run.returncode}: {run.stderr}")
    seen = {}
    for line in run.stdout.splitlines():
        m = re.match(r'^"(.*)" = (\S+)', line)
        if m:
            seen.setdefault(m.group(1), []).append(m.group(2))
    return seen


def main():
    kestra, folder = sys.argv[1], sys.argv[2]
    with open(os.path.join(folder, "cases.csv"), encoding="utf-8", newline="") as f:
        cases = list(csv.DictReader(f))
    failures = 0
    with tempfile.TemporaryDirectory() as work:
        outputs = {}
        for case in cases:
            key = (case["计算"], case["输入"])
            if key not in outputs:
                path = os.path.join(folder, case["输入"])
                outputs[key] = (script_results(kestra, path, work) if case["计算"] == "script"
                                else batch_results(kestra, case["计算"], path, work))
            got = outputs[key]
            if case["计算"] == "script":
                label, _, nth = case["项目"].rpartition("#")
                values = got.get(label, [])
                value = values[int(nth) - 1] if len(values) >= int(nth) else None
            else:
                value = got.get(case["项目"], {}).get(case["结果"])
            published, tolerance = float(case["公布值"]), float(case["容差"])
            ok = value is not None and abs(float(value) - published) <= tolerance
            failures += not ok
            print(f"{'ok  ' if ok else 'FAIL'} {case['编号']} {case['项目']} {case['结果']}: "
                  f"{value} against {published} ± {tolerance}")
    print(f"{len(cases) - failures} passed, {failures} failed")
    return 1 if failures or not cases else 0


if __name__ == "__main__":
    sys.exit(main())
