"""Line catalogue (datcom\\DyssCal.Mdb): the catalogue conventions the voltage-loss forms rely on
and the physics of every row, to catch a wrong figure or a slipped digit in the sources."""

import itertools
import os
import unittest

from catalogue_source import data_dir, is_number, read_catalogue

VALUE_NAMES = ("电阻", "感抗", "电压")


def section_value(text):
    """Section of an index text such as "95", "3x95" or "70/10" (the phase conductor)."""
    text = text.split("x")[-1]
    return float(text.split("/")[0])


class LineCatalogueTest(unittest.TestCase):
    @classmethod
    def setUpClass(cls):
        cls.tables = read_catalogue(data_dir("lines"))
        cls.by_name = {t.name: t for t in cls.tables}

    def section_column(self, table):
        for name in ("￥截面mm2", "￥规格"):
            if name in table.header:
                return name
        self.fail("%s has no section index" % table.name)

    def groups(self, table):
        """Rows grouped by every index except the section, each group sorted by section."""
        sec = self.section_column(table)
        others = [c for c in table.index_columns() if c != sec]
        key = lambda r: tuple(r[c] for c in others)  # noqa: E731
        recs = sorted(table.records(), key=key)
        for k, rows in itertools.groupby(recs, key=key):
            yield dict(zip(others, k)), sorted(rows, key=lambda r: section_value(r[sec]))

    # --- conventions of the catalogue -------------------------------------------------------
    def test_every_csv_file_is_listed(self):
        listed = {t.name for t in self.tables}
        on_disk = {n for n in os.listdir(data_dir("lines")) if n.endswith(".csv")}
        self.assertEqual(len(on_disk), len(listed), "every CSV file must be listed in tables.txt")

    def test_every_table_follows_the_line_table_convention(self):
        # key and value column counts and numeric values: kestra catalog check (data.catalog_check.line)
        for t in self.tables:
            with self.subTest(table=t.name):
                self.assertFalse(t.header[0].startswith("￥"), "the first column is never an index")
                self.assertGreaterEqual(len(t.rows), 1)
                for name, word in zip(t.value_columns(), VALUE_NAMES):
                    self.assertIn(word, name)
                    self.assertTrue(all(c != "" for c in t.col(name)), "%s has an empty cell" % name)
                keys = [tuple(r[c] for c in t.index_columns()) for r in t.records()]
                self.assertEqual(len(keys), len(set(keys)), "two rows share the same index values")
                for c in t.index_columns():
                    self.assertTrue(all(v.strip() == v and v for v in t.col(c)), c)

    def test_index_values_are_written_as_designers_write_them(self):
        for t in self.tables:
            sec = self.section_column(t)
            for v in t.col(sec):
                head = v.split("x")[-1].split("/")[0]
                self.assertTrue(is_number(head), "%s: section text %r" % (t.name, v))
            if "￥线芯材料" in t.header:
                self.assertEqual(set(t.col("￥线芯材料")), {"铜", "铝"})

    # --- physics --------------------------------------------------------------------------
    def test_resistance_falls_and_reactance_does_not_rise_as_the_section_grows(self):
        for t in self.tables:
            for key, rows in self.groups(t):
                r = [float(x["电阻Ω/km"]) for x in rows]
                x = [float(x["感抗Ω/km"]) for x in rows]
                with self.subTest(table=t.name, group=key):
                    self.assertTrue(all(a > b for a, b in zip(r, r[1:])), r)
                    # a thicker insulation step may lift a wire's reactance by a printed digit
                    self.assertTrue(all(b <= a + 0.001 for a, b in zip(x, x[1:])), x)

    def test_aluminium_lies_above_copper_at_equal_section(self):
        for t in self.tables:
            if "￥线芯材料" not in t.header:
                continue
            sec = self.section_column(t)
            by = {(r["￥线芯材料"], r[sec]): float(r["电阻Ω/km"]) for r in t.records()}
            shared = [s for (m, s) in by if m == "铝" and ("铜", s) in by]
            self.assertGreater(len(shared), 5, t.name)
            for s in shared:
                self.assertGreater(by[("铝", s)], 1.5 * by[("铜", s)], "%s %s" % (t.name, s))

    def test_reactance_lies_in_the_range_of_real_lines(self):
        for t in self.tables:
            overhead = "架空" in t.name
            for x in t.values("感抗Ω/km"):
                with self.subTest(table=t.name):
                    self.assertGreaterEqual(x, 0.05)
                    self.assertLessEqual(x, 0.45)
                    # cables and wires in conduit below 0.15, bare overhead lines above 0.25 Ω/km
                    self.assertTrue(x > 0.25 if overhead else x < 0.15, x)

    def test_overhead_reactance_grows_with_the_spacing(self):
        for t in self.tables:
            if "￥几何均距m" not in t.header:
                continue
            recs = t.records()
            for (typ, sec), rows in itertools.groupby(
                    sorted(recs, key=lambda r: (r["￥导线型号"], r["￥截面mm2"])),
                    key=lambda r: (r["￥导线型号"], r["￥截面mm2"])):
                rows = sorted(rows, key=lambda r: float(r["￥几何均距m"]))
                x = [float(r["感抗Ω/km"]) for r in rows]
                self.assertTrue(all(a < b for a, b in zip(x, x[1:])), (t.name, typ, sec, x))
                self.assertEqual(len({r["电阻Ω/km"] for r in rows}), 1)

    def test_worked_reactance_examples(self):
        # LJ-70 (10.80 mm): 0.1445·lg(Dm/r) + 0.0157 gives 0.311 at 0.6 m and 0.357 at 1.25 m
        lv = self.by_name["0.4kV架空线路 LJ/LGJ(导线70℃)"].records()
        mv = self.by_name["10kV架空线路 LJ/LGJ(导线70℃)"].records()
        pick = lambda recs, dm: [float(r["感抗Ω/km"]) for r in recs  # noqa: E731
                                 if r["￥导线型号"] == "LJ" and r["￥截面mm2"] == "70"
                                 and float(r["￥几何均距m"]) == dm][0]
        self.assertAlmostEqual(pick(lv, 0.6), 0.311, delta=0.0015)
        self.assertAlmostEqual(pick(mv, 1.25), 0.357, delta=0.0015)
        # 6/10 kV 3x35: ω·[0.064 + 0.2·ln(2·17.4/7.0)]·10⁻³ = 0.121 Ω/km
        cable = {r["￥规格"]: float(r["感抗Ω/km"])
                 for r in self.by_name["6/10kV YJV/YJLV交联聚乙烯绝缘电缆(90℃)"].records()}
        self.assertAlmostEqual(cable["3x35"], 0.121, delta=0.0015)
        self.assertAlmostEqual(cable["3x300"], 0.085, delta=0.0015)

    def test_voltage_matches_the_table(self):
        for t in self.tables:
            expected = 10.0 if t.name.startswith(("10kV", "6/10kV")) else 0.38
            self.assertEqual(set(t.values("电压kV")), {expected}, t.name)

    def test_sections_cover_what_designers_pick(self):
        pvc = self.by_name["0.6/1kV VV/VLV聚氯乙烯绝缘电缆(70℃)"]
        cu = {r["￥截面mm2"] for r in pvc.records() if r["￥线芯材料"] == "铜"}
        self.assertTrue({"1.5", "2.5", "4", "6", "10", "16", "25", "35", "50", "70", "95", "120",
                         "150", "185", "240", "300"} <= cu)
        mv = self.by_name["6/10kV YJV/YJLV交联聚乙烯绝缘电缆(90℃)"].col("￥规格")
        self.assertIn("3x95", mv)
        self.assertEqual(len(mv), 2 * 9, "3x35 to 3x300, copper and aluminium")


if __name__ == "__main__":
    unittest.main()
