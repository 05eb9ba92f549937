"""What is measured beside what, the bounds that it has to keep, and the tables of it.

Figures are a dictionary of Times by name and size, such as ("component/generate", 1000).
"""

import statistics
from math import log
from typing import NamedTuple, Optional


class Time(NamedTuple):
    """In milliseconds; the processor's with the system's share. The peak is in KiB, where one was
    measured."""
    processor: float
    elapsed: float
    peak: int = 0


def median(times):
    return Time(*map(statistics.median, zip(*times)))


class Bound(NamedTuple):
    text: str
    limit: float


class Row(NamedTuple):
    name: str
    measured: str
    # Its sum is the floor; nothing where the work has no floor of its own.
    floor: tuple = ()
    # The name of a bound; none where the ratio is only of interest.
    bound: Optional[str] = None


class Table(NamedTuple):
    name: str
    first_column: str
    size_column: str
    sizes: tuple
    rows: tuple


BOUNDS = {
    "text check": Bound("the check of a text takes at most 1.5 times its floor", 1.5),
    "generate": Bound("generating the book file of a text takes at most 1.3 times its floor", 1.3),
    "page": Bound("the check and export of a page take at most twice their floor", 2),
    "book file": Bound("the check of a book file takes at most 1.5 times its floor", 1.5),
    "add": Bound("the whole addition of a text takes at most 1.6 times its floor", 1.6),
    "workbook": Bound("reading a packed workbook, and checking it, take at most twice their floor",
                      2),
    "binary workbook": Bound("checking a binary workbook takes at most three times its floor, which "
                             "makes nothing of its cells", 3),
    "copy": Bound("copying documents takes at most 1.3 times `cp -r` and one flush", 1.3),
    "documents one by one": Bound("copying the documents of an existing book file, which is parsed "
                                  "for them, takes at most 1.6 times that", 1.6),
    "page copy": Bound("copying pages, which are read for what they need, takes at most twice that",
                       2),
    "query": Bound("a query takes at most 1.2 times loading the file and the same query", 1.2),
    "change": Bound("a change takes at most 1.2 times loading and saving the files", 1.2),
    "list": Bound("a list of changes takes at most 1.5 times one loading and saving", 1.5),
}
GROWTH = Bound("the exponent of growth is at most that of the floor and 0.05", 0.05)
STREAMED = Bound("a text of 1,000,000 entries takes at most 128 MiB to check, and to add", 128)
DOCUMENT = Bound("listing and changing a catalogue or a side file of 100,000 entries take at most "
                 "1.2 times the memory of its parsed document", 1.2)
START = Bound("`quorbind --version` takes at most 3 ms more than an empty program", 3)

# Below, opening and replacing files is most of what is measured. Growth is judged from a size that
# is as large to the next.
BOUNDS_FROM = 3_000

SIZES = (1_000, 10_000, 100_000)
WORKBOOK_SIZES = (3_000, 30_000)
TEXT_SIZES = (*SIZES, 1_000_000)
# Of workbooks with many books.
BOOK_COUNTS = (100, 300, 1_000)


# Under Wine, where every file takes its time.
WINDOWS_LARGEST = 30_000


class Added(NamedTuple):
    """A table of contents that the command adds as a process."""
    kind: str
    sizes: tuple
    # Whether its documents are there, and copied.
    documents: bool = False
    # Whether it is a workbook whose size is the number of its books, each of two rows.
    small_books: bool = False

    @property
    def name(self):
        return (self.kind + ("/documents" if self.documents else "")
                + ("/small-books" if self.small_books else ""))

    @property
    def title(self):
        return (f"`quorbind add`, {self.kind}" + (" with documents" if self.documents else "")
                + (", books of two rows" if self.small_books else ""))


ADDITIONS = (
    Added("text", TEXT_SIZES),
    Added("text", SIZES, documents=True),
    Added("html", SIZES),
    Added("xml", SIZES),
    Added("xml", SIZES, documents=True),
    Added("xlsx", WORKBOOK_SIZES),
    Added("xls", WORKBOOK_SIZES),
    Added("xlsx", BOOK_COUNTS, small_books=True),
)

AFTER_CHECK = ("book-xml", "copy", "scan", "heading-look-ups", "catalogue")
FLOOR_PARTS = ("rules", "look-ups/missing", "look-ups/standing", "page", "page-of-like-ends",
               "book-file") + AFTER_CHECK


def row(name, measured, floor=(), bound=None):
    return Row(name, "component/" + measured, tuple("floor/" + part for part in floor), bound)


STAGES = Table("stages", "stage", "entries", SIZES, (
    row("check of a text, documents missing", "check/missing", ("rules", "look-ups/missing"),
        "text check"),
    row("check of a text, documents standing", "check/standing", ("rules", "look-ups/standing"),
        "text check"),
    row("check and export of a page", "page", ("page",), "page"),
    row("the same, headings that end alike", "page-of-like-ends", ("page-of-like-ends",), "page"),
    row("the same, a title of tags that end alike", "page-of-tags"),
    row("check of a book file", "book-file", ("book-file",), "book file"),
    row("generate", "generate", ("book-xml",), "generate"),
    row("whole add of a text, documents missing", "add/missing",
        ("rules", "look-ups/missing") + AFTER_CHECK, "add"),
    row("whole add of a text, documents standing", "add/standing",
        ("rules", "look-ups/standing") + AFTER_CHECK, "add"),
))

WORKBOOKS = Table("workbooks", "stage", "rows", WORKBOOK_SIZES, (
    row("read, `.xlsx`", "read/xlsx", ("unpack-and-parse",), "workbook"),
    row("read, `.xls`", "read/xls", ("cells",)),
    row("`getExcelBookCount`, `.xlsx`", "count/xlsx", ("unpack-and-parse",), "workbook"),
    row("`getExcelBookCount`, `.xls`", "count/xls", ("cells",)),
    row("check and export, documents missing, `.xlsx`", "check/xlsx/missing",
        ("unpack-and-parse", "workbook-look-ups/missing", "exports"), "workbook"),
    row("check and export, documents standing, `.xlsx`", "check/xlsx/standing",
        ("unpack-and-parse", "workbook-look-ups/standing", "exports"), "workbook"),
    row("check and export, documents missing, `.xls`", "check/xls/missing",
        ("cells", "workbook-look-ups/missing", "exports"), "binary workbook"),
    row("check and export, documents standing, `.xls`", "check/xls/standing",
        ("cells", "workbook-look-ups/standing", "exports"), "binary workbook"),
))

COPIES = Table("copies", "copy", "documents", SIZES, (
    row("documents", "copy/documents", ("copy/documents",), "copy"),
    row("pages", "copy/pages", ("copy/pages",), "page copy"),
    row("documents of an existing book file", "copy/taken-over", ("copy/documents",),
        "documents one by one"),
))


def library(operation, floor, bound):
    return row(operation, "library/" + operation, tuple("library/" + part for part in floor), bound)


CATALOGUE = Table("catalogue", "operation", "books", SIZES, (
    *(library(name, (name,), "query") for name in (
        "BookInfo", "CategorieInfo", "strFolderLinkInfo", "GetBookAcro", "mbCheckQuorTOCForBook")),
    library("mbGetFormInput", ("mbCheckQuorTOCForBook",), "query"),
    *(library(name, (name,), "query") for name in ("QuorNames", "QuorLocation")),
    library("strBookAcroInfo", ("load-and-save", "book"), "change"),
    library("UpdateBookNameAcro", ("large-book",), "change"),
    library("DeleteQuorNode", ("load-and-save",), "change"),
    library("mbsetQuorBookProperties", ("load-and-save", "book"), "change"),
    library("CreateQuorBookNodeForSEntry", ("load-and-save", "document"), "change"),
    library("strMatchingBooksInfo", ("load-and-save", "load", "books"), "change"),
))


def side_file(place, operation, floor, bound=None):
    return row(operation.replace("/", ", "), place + "/" + operation, floor, bound)


SIDE_FILES = Table("side-files", "operation", "entries", SIZES, (
    side_file("keywords", "AddKeywords", ("keywords",), "list"),
    row("keywords of a workbook", "keywords/workbook", ("keywords",), "list"),
    side_file("keywords", "AddKeywordsToXmlFile", ("keywords",), "change"),
    side_file("keywords", "EditKeywordsToXmlFile", ("keywords",), "change"),
    side_file("links", "GenerateBookLinkID", ("links",), "list"),
    side_file("links", "UpdateQuorLinkIDFile", ("links",), "list"),
    side_file("links", "AddLinkIDInfo", ("links",), "list"),
    side_file("links", "AddToLinkIDFile", ("links",), "change"),
    side_file("book-categories", "AddCategoryNodes", ("book-categories",), "list"),
    side_file("defaults", "CreateBookCateXmlFile", ("defaults/save",), "change"),
    side_file("defaults", "bCheckIfDefaultCategory", ("defaults/query",), "query"),
    side_file("categories", "bCheckCategoryinQuorBookCategories", ("categories/load",), "query"),
    side_file("categories", "GetBookAcroValue", ("categories/query",), "query"),
    side_file("categories", "GetBookAcroInfo/first", ("categories", "categories/catalogue"),
              "change"),
    side_file("categories", "GetBookAcroInfo/again", ("categories", "categories/catalogue"),
              "change"),
    side_file("categories", "AddBookCateToXMLFile", ("categories",), "change"),
    side_file("categories", "EditBookCateToXMLFile", ("categories",), "change"),
    side_file("categories", "AddCategoryNode", ("categories",), "change"),
    side_file("categories", "AddBookAcro", ("categories",), "change"),
    side_file("categories", "Addothercategory", ("categories",), "change"),
    side_file("sort", "SortArray", ("sort",)),
    side_file("sort", "mQuickSort", ("sort",)),
))


def process_table(added):
    return Row(added.title, "command/add/" + added.name, ("process/add/" + added.name,),
               "add" if added.name == "text" else None), added.sizes


PROCESSES = tuple(process_table(added) for added in ADDITIONS)
TABLES = (STAGES, COPIES, CATALOGUE, SIDE_FILES, WORKBOOKS)

# Runs of the command of which only the memory or the start is told.
STREAMED_RUNS = (("`quorbind check`", "command/check/text"),
                 ("`quorbind check --json`", "command/check/text/json"),
                 ("`quorbind add`", "command/add/text"))
LARGEST_TEXT = TEXT_SIZES[-1]


class DocumentRun(NamedTuple):
    """A run on a file that has as many entries as the largest size."""
    name: str
    run: str
    file: str
    entries: str

    @property
    def figures(self):
        """Names of the runs: its own, and the parsed document with its layout and without."""
        return self.run, "process/parse/" + self.file, "process/load/" + self.file


DOCUMENT_RUNS = (
    DocumentRun("`quorbind books`", "command/books", "catalogue", "books"),
    DocumentRun("`quorbind rename`", "command/rename", "catalogue", "books"),
    DocumentRun("`quorbind delete`", "command/delete", "catalogue", "books"),
    DocumentRun("`quorbind keywords add`", "command/keywords-add", "keywords", "keywords"),
    DocumentRun("`quorbind links add`", "command/links-add", "links", "identifiers"),
    DocumentRun("`quorbind categories file`", "command/categories-file", "categories",
                "books in each category"),
    DocumentRun("`quorbind categories rebuild`", "command/categories-rebuild", "categories",
                "books in each category"),
)
START_RUN, EMPTY_RUN = "command/version", "process/empty"


def needed_figures():
    """Name and size of every figure that the tables and the bounds are made of."""
    for rows, sizes in (*((table.rows, table.sizes) for table in TABLES),
                        *(((each,), sizes) for each, sizes in PROCESSES)):
        yield from ((name, size) for each in rows for name in (each.measured, *each.floor)
                    for size in sizes)
    yield from (("floor/" + part, size) for part in FLOOR_PARTS for size in SIZES)
    yield from ((run, LARGEST_TEXT) for _, run in STREAMED_RUNS)
    for each in DOCUMENT_RUNS:
        yield from ((run, SIZES[-1]) for run in each.figures)
    yield from ((run, 1) for run in (START_RUN, EMPTY_RUN))


def floor_of(figures, floor, size):
    """The sum of a floor's parts; None where there is none."""
    if not floor:
        return None
    parts = [figures[part, size] for part in floor]
    return Time(sum(part.processor for part in parts), sum(part.elapsed for part in parts),
                max(part.peak for part in parts))


def exponent(small_size, small, large_size, large):
    """The power of the size that the time grows with."""
    return log(large / small) / log(large_size / small_size)


class Measured(NamedTuple):
    """One row of a table at one size."""
    row: Row
    size: int
    ours: Time
    floor: Optional[Time]
    ratio: Optional[float]
    # From the size before; none at the smallest.
    growth: Optional[float] = None
    floor_growth: Optional[float] = None
    size_before: Optional[int] = None

    @property
    def is_over_ratio(self):
        return (self.row.bound is not None and self.size >= BOUNDS_FROM
                and self.ratio > BOUNDS[self.row.bound].limit)

    @property
    def excess_growth(self):
        """By how much it grows faster than its floor, or than its size where there is none."""
        return self.growth - (1 if self.floor_growth is None else self.floor_growth)

    @property
    def has_growth_bound(self):
        return self.size_before is not None and self.size_before >= BOUNDS_FROM

    @property
    def is_over_growth(self):
        return self.has_growth_bound and self.excess_growth > GROWTH.limit


def grown(before, now):
    """What was measured at a size, with its growth from the size before."""
    def growth(small, large):
        return exponent(before.size, small.processor, now.size, large.processor)
    return now._replace(growth=growth(before.ours, now.ours),
                        floor_growth=growth(before.floor, now.floor) if now.floor else None,
                        size_before=before.size)


def measured_rows(figures, rows, sizes):
    for each in rows:
        before = None
        for size in sizes:
            ours = figures[each.measured, size]
            floor = floor_of(figures, each.floor, size)
            now = Measured(each, size, ours, floor,
                           ours.processor / floor.processor if floor else None)
            if before:
                now = grown(before, now)
            yield now
            before = now


def milliseconds(value):
    if value is None:
        return ""
    return f"{value:,.0f}" if value >= 100 else f"{value:.1f}" if value >= 10 else f"{value:.2f}"


def number(value):
    return "" if value is None else f"{value:.2f}"


def mebibytes(kibibytes):
    return f"{kibibytes / 1024:.0f}"


def markdown_table(header, rows):
    lines = [header, ["---"] + ["---:"] * (len(header) - 1), *rows]
    widths = [max(len(line[column]) for line in lines) for column in range(len(header))]
    text = []
    for line in lines:
        left, *right = [cell if set(cell) - set("-:") else
                        cell.replace("---", "-" * (width - cell.count(":")))
                        for cell, width in zip(line, widths)]
        text.append("| " + " | ".join([left.ljust(widths[0]),
                                       *(c.rjust(w) for c, w in zip(right, widths[1:]))]) + " |")
    return "\n".join(text) + "\n"


def marked(text, is_broken):
    return text + " (!)" if is_broken else text


def cells_of(measured):
    """What every table has of a row at a size."""
    floor = measured.floor
    return [f"{measured.size:,}",
            milliseconds(measured.ours.processor),
            milliseconds(floor.processor if floor else None),
            marked(number(measured.ratio), measured.is_over_ratio),
            marked(number(measured.growth), measured.is_over_growth),
            number(measured.floor_growth),
            milliseconds(measured.ours.elapsed),
            milliseconds(floor.elapsed if floor else None)]


COLUMNS = ["ms", "floor ms", "ratio", "growth", "of the floor", "elapsed ms", "floor elapsed ms"]


def table_text(figures, table):
    return markdown_table([table.first_column, table.size_column, *COLUMNS],
                          [[each.row.name, *cells_of(each)]
                           for each in measured_rows(figures, table.rows, table.sizes)])


def floor_parts_text(figures):
    return markdown_table(["part of the floor", *(f"{size:,} ms" for size in SIZES)],
                          [[part, *(milliseconds(figures["floor/" + part, size].processor)
                                    for size in SIZES)] for part in FLOOR_PARTS])


def windows_works():
    """What is measured of the Windows build, as (row, size before, largest size)."""
    for table in TABLES:
        small, large = [size for size in table.sizes if size <= WINDOWS_LARGEST][-2:]
        yield from ((each, small, large) for each in table.rows)


def needed_windows_figures():
    for each, *sizes in windows_works():
        yield from ((each.measured, size) for size in sizes)


def windows_texts(figures, taken):
    """Every table of the Windows build by the name that it has in docs/performance.md."""
    return {"windows circumstances": taken, "windows": windows_text(figures)}


def windows_text(figures):
    """By the clock alone, and without a floor; the names are those of the benchmarks."""
    rows = []
    for each, small, large in windows_works():
        before, now = (figures[each.measured, size].elapsed for size in (small, large))
        rows.append([f"`{each.measured.removeprefix('component/')}`", f"{large:,}",
                     milliseconds(now), number(exponent(small, before, large, now))])
    return markdown_table(["under Wine", "size", "elapsed ms", "growth"], rows)


def processes_text(figures):
    rows = []
    for each, sizes in PROCESSES:
        for measured in measured_rows(figures, [each], sizes):
            rows.append([each.name, *cells_of(measured), mebibytes(measured.ours.peak),
                         mebibytes(measured.floor.peak)])
    return markdown_table(["run", "entries", *COLUMNS, "MiB", "floor MiB"], rows)


def shares_text(figures):
    """Of the whole add of the largest text."""
    def processor_of(stage):
        return figures["component/" + stage, SIZES[-1]].processor
    whole = processor_of("add/missing")
    check, generate = processor_of("check/missing"), processor_of("generate")
    rows = [["the check", check], ["generating the book XML file", generate],
            ["copying with its scan of the book file; names, catalogue, dialogs",
             whole - check - generate]]
    return markdown_table(["what", "share"], [[what, f"{part / whole * 100:.0f} %"]
                                              for what, part in rows])


class Memory(NamedTuple):
    """Of a document-wide run of the command beside the parsed document alone, with its layout and
    without."""
    of: DocumentRun
    ours: int
    floor: int
    lean: int

    @property
    def ratio(self):
        return self.ours / self.floor


def document_memories(figures):
    for each in DOCUMENT_RUNS:
        yield Memory(each, *(figures[run, SIZES[-1]].peak for run in each.figures))


def memory_text(figures):
    rows = [[f"{name} of a text, {LARGEST_TEXT:,} entries",
             marked(mebibytes(figures[run, LARGEST_TEXT].peak),
                    figures[run, LARGEST_TEXT].peak > STREAMED.limit * 1024), "", "", ""]
            for name, run in STREAMED_RUNS]
    rows += [[f"{each.of.name}, {SIZES[-1]:,} {each.of.entries}", mebibytes(each.ours),
              mebibytes(each.floor), marked(number(each.ratio), each.ratio > DOCUMENT.limit),
              mebibytes(each.lean)]
             for each in document_memories(figures)]
    return markdown_table(["run", "MiB", "parsed document MiB", "ratio", "without its layout MiB"],
                          rows)


def start_of(figures):
    """By how many milliseconds the command's start takes longer than that of an empty program."""
    return figures[START_RUN, 1].elapsed - figures[EMPTY_RUN, 1].elapsed


def measured_in_tables(figures):
    for table in TABLES:
        yield from measured_rows(figures, table.rows, table.sizes)


def doubtful_rows(figures):
    """The rows of the tables that seem to break a bound, and those that share a part of a floor with
    one of them: a row and its floor are only compared as they were measured together."""
    rows = [row for table in TABLES for row in table.rows]
    in_doubt = {each.row for each in measured_in_tables(figures)
                if each.is_over_ratio or each.is_over_growth}
    before = None
    while in_doubt != before:
        before = in_doubt
        parts = {part for row in in_doubt for part in row.floor}
        in_doubt = in_doubt | {row for row in rows if parts & set(row.floor)}
    return in_doubt


def doubtful(figures):
    """Names of all figures of rows in doubt. Figures of few runs scatter by as much as some bounds
    leave."""
    return {name for row in doubtful_rows(figures) for name in (row.measured, *row.floor)}


class Kept(NamedTuple):
    """A bound, what it has come to, and whether it is broken."""
    bound: Bound
    now: str
    broken: tuple


def all_measured(figures):
    yield from measured_in_tables(figures)
    for row, sizes in PROCESSES:
        yield from measured_rows(figures, (row,), sizes)


def kept_ratio(figures, name):
    rows = [each for each in all_measured(figures)
            if each.row.bound == name and each.size >= BOUNDS_FROM]
    ratios = [each.ratio for each in rows]
    return Kept(BOUNDS[name], f"{min(ratios):.2f} to {max(ratios):.2f}",
                tuple(f"{each.row.name}, {each.size:,}: {each.ratio:.2f} times the floor; the "
                      f"bound is {BOUNDS[name].limit}" for each in rows if each.is_over_ratio))


def kept_growth(figures):
    rows = [each for each in all_measured(figures) if each.has_growth_bound]
    excesses = [each.excess_growth for each in rows]
    return Kept(GROWTH, f"{min(excesses):+.2f} to {max(excesses):+.2f}",
                tuple(f"{each.row.name}, {each.size_before:,} to {each.size:,}: grows with the "
                      f"power {each.growth:.2f}, its floor with "
                      f"{number(each.floor_growth) or 'none'}" for each in rows
                      if each.is_over_growth))


def kept_streamed(figures):
    peaks = [(name, figures[run, LARGEST_TEXT].peak) for name, run in STREAMED_RUNS]
    return Kept(STREAMED, ", ".join(mebibytes(peak) for _, peak in peaks) + " MiB",
                tuple(f"{name} of {LARGEST_TEXT:,} entries takes {mebibytes(peak)} MiB"
                      for name, peak in peaks if peak > STREAMED.limit * 1024))


def kept_document(figures):
    memories = list(document_memories(figures))
    return Kept(DOCUMENT, ", ".join(number(each.ratio) for each in memories),
                tuple(f"{each.of.name} takes {each.ratio:.2f} times the memory of the document"
                      for each in memories if each.ratio > DOCUMENT.limit))


def kept_start(figures):
    start = start_of(figures)
    return Kept(START, f"{start:.2f} ms",
                (f"the start takes {start:.2f} ms",) if start > START.limit else ())


def kept_bounds(figures):
    return [*(kept_ratio(figures, name) for name in BOUNDS), kept_growth(figures),
            kept_streamed(figures), kept_document(figures), kept_start(figures)]


def bounds_text(figures):
    return markdown_table(
        ["bound", "now", "broken"],
        [[kept.bound.text, kept.now, str(len(kept.broken)) if kept.broken else "no"]
         for kept in kept_bounds(figures)])


def broken_bounds(figures):
    return [text for kept in kept_bounds(figures) for text in kept.broken]


def texts(figures, taken):
    """Every table by the name that it has in docs/performance.md, the circumstances first."""
    return {
        "circumstances": taken,
        "bounds": bounds_text(figures),
        **{table.name: table_text(figures, table) for table in TABLES},
        "floor": floor_parts_text(figures),
        "processes": processes_text(figures),
        "memory": memory_text(figures),
        "shares": shares_text(figures),
    }


def with_tables(page, tables):
    """The page with each table between its marks, which have to be there."""
    for name, table in tables.items():
        begin, end = f"<!-- table: {name} -->\n", "<!-- end -->"
        before, found, rest = page.partition(begin)
        _, ended, after = rest.partition(end)
        if not found or not ended:
            raise ValueError(f"the page has no place for the table {name}")
        page = before + begin + "\n" + table + "\n" + end + after
    return page
