"""What the report makes of figures, seen on figures that were made up."""

import re
import unittest
import xml.etree.ElementTree as ElementTree

from pathlib import Path

from report import figures as report
from report.figures import BOUNDS, Row, Table, Time
from report.picture import PANELS, picture
from report.request import refusal_of, refusal_of_disk, refusal_of_last

PAGE = Path(__file__).resolve().parents[2] / "docs/performance.md"
SVG = "{http://www.w3.org/2000/svg}"


def made_up():
    """Every figure that a full run has, each floor part taking a microsecond for each entry."""
    figures = {(name, size): Time(size / 1000, size / 500, 30_000)
               for name, size in report.needed_figures()}
    for table in report.TABLES:
        for row in table.rows:
            for size in table.sizes:
                parts = max(len(row.floor), 1)
                figures[row.measured, size] = Time(parts * size / 1000, parts * size / 500, 30_000)
    for row, sizes in report.PROCESSES:
        for size in sizes:
            figures[row.measured, size] = Time(1.5 * size / 1000, 1.5 * size / 500, 30_000)
    figures["command/version", 1] = Time(3, 4.5)
    figures["process/empty", 1] = Time(1, 2)
    return figures


def made_up_of_windows():
    return {(name, size): Time(size ** 2 / 1e6, size ** 2 / 1e6)
            for name, size in report.needed_windows_figures()}


class RequestTest(unittest.TestCase):
    def test_flags_that_go_together_are_taken(self):
        for flags in ([], ["--check", "--plot"], ["--last", "--check"], ["--windows", "--plot"],
                      ["--windows", "--last"]):
            self.assertIsNone(refusal_of(flags))

    def test_a_flag_that_is_none_is_named(self):
        self.assertEqual(refusal_of(["--plot", "--chekc"]), "There is no --chekc.")

    def test_bounds_of_the_windows_build_are_refused_since_it_has_none(self):
        self.assertEqual(refusal_of(["--windows", "--check"]),
                         "--check goes without --windows: the Windows build has no floor, and so "
                         "no bounds.")

    def test_figures_of_a_run_before_a_new_row_are_refused_with_what_they_lack(self):
        figures = made_up()
        del figures["component/generate", 10_000], figures["component/generate", 100_000]
        self.assertEqual(refusal_of_last(figures, report.needed_figures()),
                         "The run before did not measure component/generate at 10,000 (2 figures "
                         "are lacking). Measure anew, without --last.")

    def test_a_disk_that_would_become_full_is_refused_before_anything_is_measured(self):
        self.assertEqual(refusal_of_disk(7_400_000_000, 40_000_000_000),
                         "The folder for temporary files has 7 GB free, and a run may need 40 GB. "
                         "Name another folder with TMPDIR.")
        self.assertIsNone(refusal_of_disk(40_000_000_000, 40_000_000_000))

    def test_figures_of_a_whole_run_before_are_taken(self):
        self.assertIsNone(refusal_of_last(made_up(), report.needed_figures()))


class ReportTest(unittest.TestCase):
    def test_every_table_and_bound_is_made_of_the_figures_that_are_needed(self):
        tables = report.texts(made_up(), "Taken here.\n")
        self.assertTrue(all(tables.values()))
        picture(made_up())

    def test_the_page_has_a_place_for_every_table_and_for_nothing_else(self):
        tables = {**report.texts(made_up(), "Taken here.\n"),
                  **report.windows_texts(made_up_of_windows(), "Taken there.\n")}
        places = re.findall(r"^<!-- table: (.*) -->$", PAGE.read_text(encoding="utf-8"), re.M)
        self.assertEqual(sorted(places), sorted(tables))

    def test_the_table_of_the_windows_build_shows_the_growth_to_the_largest_size_alone(self):
        text = report.windows_text(made_up_of_windows())
        self.assertIn("| `generate` ", text)
        growths = {tuple(cell.strip() for cell in line.split("|")[2:5])
                   for line in text.splitlines()[2:]}
        self.assertEqual(growths, {("10,000", "100", "2.00"), ("30,000", "900", "2.00")})

    def test_what_takes_a_hundred_times_as_long_for_ten_times_the_size_grows_with_its_square(self):
        self.assertAlmostEqual(report.exponent(1_000, 2.0, 10_000, 200.0), 2)
        self.assertAlmostEqual(report.exponent(3_000, 5.0, 30_000, 50.0), 1)

    def test_a_floor_is_the_sum_of_its_parts(self):
        figures = {("a", 10): Time(1, 2, 5), ("b", 10): Time(3, 4, 6)}
        self.assertEqual(report.floor_of(figures, ("a", "b"), 10), Time(4, 6, 6))
        self.assertIsNone(report.floor_of(figures, (), 10))

    def test_figures_at_their_floor_break_no_bound(self):
        self.assertEqual(report.broken_bounds(made_up()), [])

    def test_a_ratio_over_its_bound_is_named_but_not_at_small_sizes(self):
        figures = made_up()
        for size in (1_000, 10_000):
            figures["component/generate", size] = Time(2 * size / 1000, 1)
        self.assertIn("generate, 10,000: 2.00 times the floor; the bound is "
                      f"{BOUNDS['generate'].limit}", report.broken_bounds(figures))
        self.assertFalse(any("generate, 1,000" in text for text in report.broken_bounds(figures)))

    def test_what_grows_faster_than_its_floor_is_named(self):
        figures = made_up()
        figures["component/generate", 100_000] = Time(120, 1)
        self.assertEqual(report.broken_bounds(figures),
                         ["generate, 10,000 to 100,000: grows with the power 1.08, its floor with "
                          "1.00"])

    def test_growth_is_judged_between_all_sizes_but_the_small_ones(self):
        figures = made_up()
        self.assertEqual(figures["command/add/text", 100_000].processor, 150)
        figures["command/add/text", 10_000] = Time(12, 1)
        self.assertEqual(report.broken_bounds(figures),
                         ["`quorbind add`, text, 10,000 to 100,000: grows with the power 1.10, its "
                          "floor with 1.00"])
        figures["command/add/text", 10_000] = Time(15, 1)
        figures["command/add/text", 1_000] = Time(0.5, 1)
        self.assertEqual(report.broken_bounds(figures), [])
        figures["command/add/text", 100_000] = Time(120, 1)
        self.assertEqual(report.broken_bounds(figures),
                         ["`quorbind add`, text, 100,000 to 1,000,000: grows with the power 1.10, "
                          "its floor with 1.00"])

    def test_a_row_over_a_bound_is_in_doubt_with_its_floor_and_all_that_share_it(self):
        figures = made_up()
        self.assertEqual(report.doubtful(figures), set())
        figures["component/page-of-tags", 100_000] = Time(120, 1)
        self.assertEqual(report.doubtful(figures), {"component/page-of-tags"})
        figures["component/copy/documents", 10_000] = Time(14, 1)
        self.assertEqual(report.doubtful(figures),
                         {"component/page-of-tags", "component/copy/documents",
                          "component/copy/taken-over", "floor/copy/documents"})

    def test_rows_that_share_a_floor_with_one_that_shares_another_are_in_doubt_too(self):
        figures = made_up()
        figures["component/library/strMatchingBooksInfo", 10_000] = Time(50, 1)
        doubtful = report.doubtful(figures)
        self.assertIn("component/library/DeleteQuorNode", doubtful)
        self.assertIn("floor/library/document", doubtful)
        self.assertNotIn("component/library/BookInfo", doubtful)

    def test_of_several_figures_each_part_counts_in_the_middle(self):
        self.assertEqual(report.median([Time(1, 6, 7), Time(9, 5, 8), Time(2, 4, 9)]),
                         Time(2, 5, 8))

    def test_a_slow_start_and_a_large_memory_are_named(self):
        figures = made_up()
        figures["command/version", 1] = Time(3, 5.5)
        figures["command/add/text", report.LARGEST_TEXT] = Time(1_500, 1, 129 * 1024)
        figures["command/books", 100_000] = Time(1, 1, 37_000)
        self.assertEqual(report.broken_bounds(figures),
                         ["`quorbind add` of 1,000,000 entries takes 129 MiB",
                          "`quorbind books` takes 1.23 times the memory of the document",
                          "the start takes 3.50 ms"])

    def test_a_table_has_a_line_for_each_size_and_marks_what_is_broken(self):
        table = Table("t", "stage", "entries", (3_000, 30_000),
                      (Row("work", "ours", ("floor",), "generate"),))
        figures = {("ours", 3_000): Time(1.0, 1.5), ("ours", 30_000): Time(15.0, 20.0),
                   ("floor", 3_000): Time(0.9, 1.0), ("floor", 30_000): Time(10.0, 10.5)}
        self.assertEqual(report.table_text(figures, table), """\
| stage | entries |   ms | floor ms |    ratio |   growth | of the floor | elapsed ms | floor elapsed ms |
| ----- | ------: | ---: | -------: | -------: | -------: | -----------: | ---------: | ---------------: |
| work  |   3,000 | 1.00 |     0.90 |     1.11 |          |              |       1.50 |             1.00 |
| work  |  30,000 | 15.0 |     10.0 | 1.50 (!) | 1.18 (!) |         1.05 |       20.0 |             10.5 |
""")

    def test_tables_take_the_place_of_those_between_the_marks(self):
        page = "# Page\n\n<!-- table: a -->\nold\n<!-- end -->\n\nText.\n"
        self.assertEqual(report.with_tables(page, {"a": "new\n"}),
                         "# Page\n\n<!-- table: a -->\n\nnew\n\n<!-- end -->\n\nText.\n")

    def test_a_page_without_a_place_for_a_table_is_refused(self):
        with self.assertRaisesRegex(ValueError, "no place for the table a"):
            report.with_tables("<!-- table: b -->\n<!-- end -->\n", {"a": "new\n"})

    def test_the_picture_shows_both_sides_of_every_panel_and_says_so_in_words(self):
        root = ElementTree.fromstring(picture(made_up()))
        lines = root.findall(f".//{SVG}polyline")
        self.assertEqual([line.get("class") for line in lines], ["floor", "ours"] * len(PANELS))
        self.assertEqual(root.find(f"{SVG}title").text,
                         "What operations cost against their size, beside the floor under each")
        self.assertIn("Check of a text: 200 ms at 100,000, the floor 200 ms.",
                      root.find(f"{SVG}desc").text)

    def test_what_grows_with_its_size_is_a_line_of_one_slope(self):
        root = ElementTree.fromstring(picture(made_up()))
        points = [tuple(map(float, point.split(",")))
                  for point in root.find(f".//{SVG}polyline").get("points").split()]
        (x0, y0), (x1, y1), (x2, y2) = points
        self.assertAlmostEqual(x1 - x0, x2 - x1, places=0)
        self.assertAlmostEqual(y1 - y0, y2 - y1, places=0)


if __name__ == "__main__":
    unittest.main()
