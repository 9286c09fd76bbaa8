"""Table file datcom\\tabdata.idp: the parameter-file table layout the table display reads, the
voltage-loss coefficients C of the "jsxsc" table and the resisting torques of "DjJzZj"."""

import os
import re
import unittest

KEY_NAME = re.compile(r"[^\\=\x00-\x1f]+\Z")
CELL_VALUE = re.compile(r"\d+(\.\d+)?(~\d+(\.\d+)?)?\Z")
GAMMA = {"Cu": 53.0, "Al": 32.0}   # m/(Ω·mm²), the conductivities the C table states


def is_c_number(text):
    return bool(re.match(r"[+-]?\d", text))


def unescape(value):
    out, i = [], 0
    while i < len(value):
        if value[i] == "\\" and i + 1 < len(value) and value[i + 1] in "\\nrt":
            out.append({"\\": "\\", "n": "\n", "r": "\r", "t": "\t"}[value[i + 1]])
            i += 2
        else:
            out.append(value[i])
            i += 1
    return "".join(out)


def parse_idp(path):
    with open(path, encoding="utf-8", newline="") as f:
        lines = f.read().split("\n")
    values = {}
    for n, line in enumerate(lines, 1):
        if line == "" or line.startswith(";"):
            continue
        if "=" not in line:
            raise AssertionError("line %d is neither comment nor KEY=VALUE: %r" % (n, line))
        key, value = line.split("=", 1)
        names = key.split("\\")
        if not all(KEY_NAME.match(name) for name in names):
            raise AssertionError("line %d: bad key %r" % (n, key))
        if key in values:
            raise AssertionError("line %d: key %s repeated" % (n, key))
        values[key] = unescape(value)
    return values


def read_table(values, key):
    cols, rows = int(values[key + "\\Columns"]), int(values[key + "\\Rows"])
    header = [values[key + "\\Header\\%d" % c] for c in range(1, cols + 1)]
    body = [[values.get(key + "\\Row\\%d\\%d" % (r, c), "") for c in range(1, cols + 1)]
            for r in range(1, rows + 1)]
    return values[key + "\\Title"], header, body, values.get(key + "\\Note", "")


class TabdataLayoutTest(unittest.TestCase):
    @classmethod
    def setUpClass(cls):
        path = os.path.join(os.environ["KESTRA_ROOT_DIR"], "datcom", "tabdata.idp")
        cls.values = parse_idp(path)

    def test_every_key_belongs_to_a_complete_table(self):
        for key in ("jsxsc", "DjJzZj"):
            cols, rows = int(self.values[key + "\\Columns"]), int(self.values[key + "\\Rows"])
            self.assertGreaterEqual(cols, 2)
            self.assertGreaterEqual(rows, 1)
            expected = {key + "\\" + k for k in ("Title", "Columns", "Rows", "Note")}
            expected |= {key + "\\Header\\%d" % c for c in range(1, cols + 1)}
            expected |= {key + "\\Row\\%d\\%d" % (r, c) for r in range(1, rows + 1) for c in range(1, cols + 1)}
            present = {k for k in self.values if k.split("\\")[0] == key}
            self.assertEqual(present - expected, set(), "keys outside the table's rows and columns")
            self.assertTrue(expected - present <= {key + "\\Note"}, "missing keys: %s" % (expected - present))
            self.assertTrue(all(self.values[key + "\\Header\\%d" % c] for c in range(1, cols + 1)))
        self.assertEqual({k.split("\\")[0] for k in self.values}, {"jsxsc", "DjJzZj"})


class CoefficientTableTest(unittest.TestCase):
    @classmethod
    def setUpClass(cls):
        path = os.path.join(os.environ["KESTRA_ROOT_DIR"], "datcom", "tabdata.idp")
        cls.title, cls.header, cls.body, cls.note = read_table(parse_idp(path), "jsxsc")

    def test_title_and_note_state_the_units_and_the_basis_of_every_cell(self):
        for unit in ("cosφ=1", "P:kW", "l:km", "S:mm²"):
            self.assertIn(unit, self.title)
        # the formula of each supply form and the conductivities the cells were computed with
        for basis in ("三相: C=10γU²/1000", "两相加N线: C为三相值/2.25", "C=5γU²/1000",
                      "铜%g" % GAMMA["Cu"], "铝%g" % GAMMA["Al"]):
            self.assertIn(basis, self.note)
        self.assertIn("铜", self.header[1])
        self.assertIn("铝", self.header[2])

    def expected(self, heading, material):
        system, _, voltage = heading.partition(" ")
        self.assertRegex(voltage, r"\d+(/\d+)?V\Z")
        u = float(voltage.split("/")[0].rstrip("V")) / 1000.0
        gamma = GAMMA[material]
        if system.startswith("三相"):
            c = 10 * gamma * u * u
        elif system.startswith("两相"):
            c = 10 * gamma * u * u / 2.25
        elif system.startswith(("单相", "直流")):
            c = 5 * gamma * u * u
        else:
            self.fail("unknown supply system %s" % system)
        return c / 1000.0   # l in km

    def test_coefficients_reproduce_10_gamma_u_squared_and_its_single_and_two_phase_forms(self):
        systems = set()
        for heading, cu, al in self.body:
            systems.add(heading.split(" ")[0])
            with self.subTest(system=heading):
                self.assertAlmostEqual(float(cu), self.expected(heading, "Cu"), delta=5e-4 * float(cu))
                self.assertAlmostEqual(float(al), self.expected(heading, "Al"), delta=5e-4 * float(al))
                self.assertGreater(float(cu), float(al))
        self.assertTrue({"三相四线", "两相加N线", "单相交流"} <= systems)

    def test_three_phase_380_v_matches_the_rule_of_thumb(self):
        row = [r for r in self.body if r[0] == "三相四线 380/220V"][0]
        # C ≈ 77 (Cu) and 46 (Al) kW·m/mm², i.e. 0.077 and 0.046 with l in km
        self.assertAlmostEqual(float(row[1]), 0.077, delta=0.001)
        self.assertAlmostEqual(float(row[2]), 0.046, delta=0.001)
        for r in self.body:
            self.assertFalse(is_c_number(r[0]), "the row heading must not read as a coefficient")


class ResistingTorqueTableTest(unittest.TestCase):
    @classmethod
    def setUpClass(cls):
        path = os.path.join(os.environ["KESTRA_ROOT_DIR"], "datcom", "tabdata.idp")
        cls.title, cls.header, cls.body, cls.note = read_table(parse_idp(path), "DjJzZj")

    def mean(self, cell):
        low, _, high = cell.partition("~")
        return (float(low) + float(high)) / 2 if high else float(low)

    def test_values_are_numbers_or_low_high_ranges(self):
        self.assertIn("额定转矩", self.title)
        self.assertGreaterEqual(len(self.body), 10)
        for row in self.body:
            cell = row[-1]
            with self.subTest(machine=row[0]):
                self.assertRegex(cell, CELL_VALUE)
                if "~" in cell:
                    low, high = (float(v) for v in cell.split("~"))
                    self.assertLess(low, high)
                self.assertTrue(0 < self.mean(cell) <= 6.0)
                self.assertNotIn("~", row[0] + row[1], "only the value column holds ranges")

    def test_published_figures(self):
        values = {(r[0], r[1]): r[-1] for r in self.body}
        self.assertEqual(values[("泵", "一般")], "0.4")
        self.assertEqual(values[("通风机", "一般")], "0.25")
        self.assertEqual(self.mean(values[("离心式鼓风机", "风门关闭至开启")]), 0.35)
        self.assertEqual(values[("带式输送机", "带载起动")], "1.5")


if __name__ == "__main__":
    unittest.main()
