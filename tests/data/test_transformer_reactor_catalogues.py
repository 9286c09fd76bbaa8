"""Transformer (datcom\\ByqZK.mdb) and starting-reactor (datcom\\QdDkq.mdb) catalogues: the columns
the pick dialog and the reactor choice read, impedance voltages by size, and reactors whose voltage
drop and start duty agree with their reactance and current and that serve the catalogue's motors."""

import math
import unittest

from catalogue_source import data_dir, read_catalogue

RATINGS = [30, 50, 63, 80, 100, 125, 160, 200, 250, 315, 400, 500, 630, 800, 1000, 1250, 1600, 2000, 2500]
REACTOR_COLUMNS = ["￥型 号", "容量kVA", "短路电压%", "每相额定电抗Ω", "起动电流A"]


class TransformerCatalogueTest(unittest.TestCase):
    @classmethod
    def setUpClass(cls):
        cls.tables = read_catalogue(data_dir("transformers"))

    def test_one_table_per_series_with_capacity_and_impedance(self):
        names = [t.name for t in self.tables]
        for series in ("S11", "S13", "SCB10", "SCB13"):
            self.assertEqual(len([n for n in names if n.startswith(series + "型")]), 1, series)
        for t in self.tables:
            with self.subTest(table=t.name):
                self.assertFalse(t.header[0].startswith("￥"))
                self.assertIn("容量kVA", t.header[1:])
                self.assertIn("短路电压%", t.header[1:])
                self.assertEqual(t.values("容量kVA"), RATINGS)

    def test_impedance_voltage_by_size_and_construction(self):
        uk = {}
        for t in self.tables:
            dry = "干式" in t.name
            self.assertTrue(dry or "油浸" in t.name, t.name)
            values = dict(zip(t.values("容量kVA"), t.values("短路电压%")))
            self.assertEqual(list(values.values()), sorted(values.values()), "uk grows with size: " + t.name)
            for s, u in values.items():
                self.assertEqual(u, 4.0 if s <= 500 else (6.0 if dry else 4.5), (t.name, s))
            uk.setdefault(dry, []).append(values)
        for oil in uk[False]:
            for dry in uk[True]:
                self.assertTrue(all(dry[s] >= oil[s] for s in RATINGS))


class ReactorCatalogueTest(unittest.TestCase):
    @classmethod
    def setUpClass(cls):
        tables = read_catalogue(data_dir("reactors"))
        cls.tables = tables
        cls.table = tables[0]
        cls.rows = cls.table.records()
        cls.motors = [m for m in read_catalogue(data_dir("motors"))[0].records()
                      if float(m["额定电压kV"]) >= 6]

    def test_table_and_columns_the_reactor_choice_reads(self):
        self.assertEqual([t.name for t in self.tables], ["起动电抗器数据"])
        self.assertFalse(self.table.header[0].startswith("￥"))
        for name in REACTOR_COLUMNS:  # numbers in them: data.catalog_check.reactor
            self.assertIn(name, self.table.header[1:])
        models = self.table.col("￥型 号")
        self.assertEqual(len(models), len(set(models)), "each model once")
        self.assertGreater(len(self.rows), 100)

    def test_voltage_drop_and_start_duty_agree_with_reactance_and_current(self):
        for r in self.rows:
            x, i, u = float(r["每相额定电抗Ω"]), float(r["起动电流A"]), float(r["额定电压kV"])
            with self.subTest(model=r["￥型 号"]):
                self.assertAlmostEqual(float(r["短路电压%"]), math.sqrt(3) * i * x / (u * 1000) * 100, delta=0.051)
                self.assertAlmostEqual(float(r["容量kVA"]), 3 * i * i * x / 1000, delta=0.51)
                self.assertTrue(15 <= float(r["短路电压%"]) <= 65)
                self.assertIn(u, (6.0, 10.0))
                self.assertTrue(r["￥型 号"].startswith("QKSG-%s/%g-" % (r["容量kVA"], u)))

    def test_reactances_are_found_again_from_their_printed_text(self):
        # the reactor model is looked up by the reactance printed with "%.3f" and its trailing
        # zeros removed; that text must equal the catalogue's own text
        for text in set(self.table.col("每相额定电抗Ω")):
            trimmed = ("%.3f" % float(text)).rstrip("0")
            self.assertEqual(trimmed, text)
            self.assertLess(float(text), 10000)

    def choose(self, xk, istm):
        """The reactor the motor-start page chooses: the smallest reactance not below Xk, then the
        smallest rated starting current not below Istm for that reactance, then its last row."""
        xs = sorted({float(x) for x in self.table.col("每相额定电抗Ω")})
        x = next((v for v in xs if v >= xk), None)
        if x is None:
            return None, None
        currents = [float(r["起动电流A"]) for r in self.rows if float(r["每相额定电抗Ω"]) == x]
        kept = [c for c in currents if c >= istm]
        if not kept:
            return x, None
        best = min(kept)
        return x, [r for r in self.rows if float(r["每相额定电抗Ω"]) == x and float(r["起动电流A"]) == best][-1]

    def test_every_high_voltage_motor_finds_a_reactor(self):
        self.assertGreater(len(self.motors), 50)
        for m in self.motors:
            u, ist = float(m["额定电压kV"]), float(m["起动电流A"])
            zm = u * 1000 / (math.sqrt(3) * ist)
            for a in (0.5, 0.6, 0.65, 0.7, 0.8):
                xr = zm * (1 / a - 1)
                x, row = self.choose(xr, 0)
                with self.subTest(model=m["￥型号"], a=a):
                    self.assertIsNotNone(x)
                    self.assertLessEqual(x, 1.27 * xr, "reactance steps of at most 27 %")
                    reduced = u * 1000 / (math.sqrt(3) * (zm + x))
                    x2, row = self.choose(xr, reduced)
                    self.assertIsNotNone(row, "no reactor rated for %.0f A at %g Ω" % (reduced, x))
                    self.assertGreaterEqual(float(row["额定电压kV"]), u, row)
                    self.assertLessEqual(float(row["起动电流A"]), 1.3 * reduced)

if __name__ == "__main__":
    unittest.main()
