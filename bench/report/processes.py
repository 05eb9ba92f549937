"""The command as a process, beside the floor as one: time, peak memory and start."""

import shutil
import subprocess
import sys
import xml.etree.ElementTree as ElementTree
from pathlib import Path

from report.figures import ADDITIONS, LARGEST_TEXT, SIZES, Time, median

LIBRARY = "Plant"
CATALOGUE = "Quor_TOC.xml"
SIDE_FILES = {"keywords": "Quor_SearchKeywords.xml", "links": "Quor_LinkID.xml",
              "categories": "Quor_BookCategories.xml"}
# Of the documents of a text, beside it.
BOOK_FOLDER = "Manual"
BOOKS = 1_000
ROWS_OF_A_BOOK = 1_000
HEADINGS = "<Book_Headings>"
STARTS = 101
# More for what takes no longer than the noise.
REPETITIONS = ((10_000, 7), (100_000, 3), (1_000_000, 1))
# Copying takes so much longer.
REPETITIONS_WITH_DOCUMENTS = ((1_000, 5), (10_000, 3), (100_000, 1))
# And so does reading the catalogue for every book.
REPETITIONS_OF_SMALL_BOOKS = ((100, 3), (1_000, 1))


def repetitions(added, size):
    counts = (REPETITIONS_OF_SMALL_BOOKS if added.small_books else
              REPETITIONS_WITH_DOCUMENTS if added.documents else REPETITIONS)
    return next(count for largest, count in counts if size <= largest)


class Programs:
    """The programs of a build."""

    def __init__(self, build):
        self.command = build / "quorbind"
        self.floor = build / "bench/quorbind_bench_floor"
        self.empty = build / "bench/quorbind_bench_empty"
        self.sample = build / "bench/quorbind_bench_sample"
        self.run = build / "bench/quorbind_bench_run"

    def time(self, *command):
        ran = subprocess.run([self.run, *command], capture_output=True, text=True)
        if ran.returncode != 0:
            sys.exit("failed: " + " ".join(map(str, command)))
        processor, elapsed, peak = ran.stdout.split()
        return Time(float(processor), float(elapsed), int(peak))

    def make(self, kind, size, place):
        subprocess.run([self.sample, kind, str(size), place], check=True)
        return place


class Shelf:
    """A server with a library, which every run gets in a folder that is new: where files were
    deleted a moment ago, others are made more slowly."""

    def __init__(self, programs, folder, books):
        self.folder = folder
        self.pristine = folder / "pristine"
        self.runs = 0
        subprocess.run([programs.command, "init", "--server", self.pristine, "--library", LIBRARY],
                       check=True, stdout=subprocess.DEVNULL)
        programs.make("catalogue", books, self.folder_of_library(self.pristine) / CATALOGUE)

    @staticmethod
    def folder_of_library(server):
        return server / "Docs" / LIBRARY

    def server(self):
        self.runs += 1
        server = self.folder / f"server{self.runs}"
        shutil.copytree(self.pristine, server)
        return server


def files_in(folder):
    return sum(entry.is_file() for entry in folder.iterdir())


def headings_of(book_file):
    """What a book file says of its headings, however it is laid out."""
    headings = ElementTree.parse(book_file).getroot().find("Book_Headings")
    return [(each.tag, each.attrib, (each.text or "").strip()) for each in headings.iter()]


class Addition:
    """A table of contents that the command and the floor add, each to a library of its own, which is
    kept where it gets many files: a file system passes over what was deleted in the last minutes, and
    the first to make files there pays for the search."""

    def __init__(self, programs, shelf, kind, toc, floor_arguments, keeps_files=False, books=1):
        self.programs = programs
        self.shelf = shelf
        self.kind = kind
        self.toc = toc
        self.floor_arguments = floor_arguments
        self.keeps_files = keeps_files
        self.books = books
        self.names = ["--name", "Bench", "--acro", "BEN"] if kind in ("text", "html") else []
        # A workbook's first book is compared.
        book = "Book_BEN0.xml" if kind.startswith("xls") else "Book_BEN.xml"
        self.book = f"{BOOK_FOLDER}/{book}"

    def add(self, server):
        return self.programs.time(self.programs.command, "add", self.toc, "--server", server,
                                  "--library", LIBRARY, "--no-input", *self.names)

    def add_on_floor(self, server, beginning):
        return self.programs.time(self.programs.floor, self.kind, self.toc,
                                  Shelf.folder_of_library(server), *beginning,
                                  *self.floor_arguments)

    def book_in(self, server):
        return Shelf.folder_of_library(server) / self.book

    def measure(self, count):
        """The median Times of both, which have left the same behind."""
        ours, floor = [], []
        for _ in range(count):
            server, floor_server = self.shelf.server(), self.shelf.server()
            ours.append(self.add(server))
            book = self.book_in(server).read_bytes()
            floor.append(self.add_on_floor(floor_server, self.beginning_of(book)))
            self.require_the_same(server, floor_server)
            if not self.keeps_files:
                shutil.rmtree(server)
                shutil.rmtree(floor_server)
        return median(ours), median(floor)

    def require_the_same(self, server, floor_server):
        made = self.book_in(server)
        made_on_floor = Shelf.folder_of_library(floor_server) / BOOK_FOLDER / "Book_BEN.xml"
        # A book file as table of contents is taken over with another place in it, and laid out anew.
        compared = headings_of if self.kind == "xml" else Path.read_bytes
        is_same = compared(made) == compared(made_on_floor)
        # The floor calls all books of a workbook by one name.
        has_as_many = files_in(made.parent) == files_in(made_on_floor.parent) + self.books - 1
        if not is_same or not has_as_many:
            sys.exit(f"{self.toc}: the floor does not write what the command writes")

    def beginning_of(self, book):
        if self.kind == "xml":
            return []
        text = book.decode("utf-16")
        return [text[:text.index(HEADINGS) + len(HEADINGS)]]


def additions(programs, folder):
    """What is added, its size, and its Addition."""
    shelf = Shelf(programs, folder, BOOKS)
    for added in ADDITIONS:
        for size in added.sizes:
            place = folder / f"{added.name.replace('/', '-')}-{size}"
            place.mkdir()
            yield added, size, addition_of(programs, shelf, added, size, place)
            if not added.documents:
                shutil.rmtree(place)


def addition_of(programs, shelf, added, size, place):
    kind = added.kind
    if kind == "xml":
        toc = book_file_of(programs, shelf, size, place)
        return Addition(programs, shelf, kind, toc,
                        documents_of(programs, added, size, toc.parent), added.documents)
    if kind.startswith("xls"):
        return workbook_of(programs, shelf, added, size, place)
    toc = programs.make(kind, size, place / {"text": "toc.txt", "html": "toc.htm"}[kind])
    return Addition(programs, shelf, kind, toc,
                    documents_of(programs, added, size, place / BOOK_FOLDER), added.documents)


def workbook_of(programs, shelf, added, size, place):
    made, export, books = (("small-books", "small-export", size) if added.small_books else
                           (added.kind, "export", size // ROWS_OF_A_BOOK))
    toc = programs.make(made, size, place / f"books.{added.kind}")
    return Addition(programs, shelf, added.kind, toc,
                    [programs.make(export, size, place / "export.txt"), str(books)], books=books)


def documents_of(programs, added, size, folder):
    """The folder of the documents, as an argument, where they are to be there."""
    if not added.documents:
        return []
    folder.mkdir(exist_ok=True)
    return [programs.make("documents", size, folder)]


def book_file_of(programs, shelf, size, place):
    """What the command makes of a text, in a folder of its own."""
    text_place, book_place = place / "text", place / "book"
    text_place.mkdir()
    book_place.mkdir()
    toc = programs.make("text", size, text_place / "toc.txt")
    server = shelf.server()
    text = Addition(programs, shelf, "text", toc, [])
    text.add(server)
    book = book_place / "book.xml"
    shutil.copyfile(text.book_in(server), book)
    shutil.rmtree(server)
    return book


def measure_additions(programs, folder):
    figures = {}
    for added, size, addition in additions(programs, folder):
        ours, floor = addition.measure(repetitions(added, size))
        figures["command/add/" + added.name, size] = ours
        figures["process/add/" + added.name, size] = floor
        if added.kind == "text" and size == LARGEST_TEXT:
            check = [programs.command, "check", addition.toc]
            figures["command/check/text", size] = programs.time(*check)
            figures["command/check/text/json", size] = programs.time(*check, "--json")
    return figures


def name_of_book(number):
    return f"Service Manual {number} of the pump, in \xb5s"


def server_of(programs, folder, books):
    folder.mkdir()
    return Shelf(programs, folder, books).server()


def measure_parsed(programs, file, place):
    """The parsed document of a file alone, with its layout and without."""
    return {(f"process/{way}/{file}", SIZES[-1]): programs.time(programs.floor, way, place)
            for way in ("parse", "load")}


def measure_commands(programs, server, commands):
    """Runs of the command, one behind the other, by their names."""
    at = ["--server", server, "--library", LIBRARY]
    return {("command/" + name, SIZES[-1]): programs.time(programs.command, *words, *at)
            for name, words in commands.items()}


def measure_catalogue(programs, server):
    """Listing and changing a large catalogue, beside its parsed document."""
    size = SIZES[-1]
    return {
        **measure_parsed(programs, "catalogue", Shelf.folder_of_library(server) / CATALOGUE),
        **measure_commands(programs, server, {
            "books": ["books"],
            "rename": ["rename", name_of_book(size - 2), "--name", "Renamed", "--acro", "REN",
                       "--yes"],
            "delete": ["delete", name_of_book(size - 1), "--yes"],
        }),
    }


def measure_side_files(programs, server):
    """Changing large side files, beside their parsed documents."""
    figures = {}
    for file, name in SIDE_FILES.items():
        place = programs.make(file, SIZES[-1], Shelf.folder_of_library(server) / name)
        figures.update(measure_parsed(programs, file, place))
    figures.update(measure_commands(programs, server, {
        "keywords-add": ["keywords", "add", name_of_book(0), "new"],
        "links-add": ["links", "add", "new", "--full", "B0@QUOR@A", "--source", "a.htm", "--acro",
                      "B0"],
        "categories-file": ["categories", "file", "B0", "New"],
        "categories-rebuild": ["categories", "rebuild"],
    }))
    return figures


def measure_start(programs):
    """Of many starts, since one takes but a moment."""
    ours, empty = [], []
    for _ in range(STARTS):
        ours.append(programs.time(programs.command, "--version"))
        empty.append(programs.time(programs.empty))
    return {
        (name, 1): median(times)
        for name, times in (("command/version", ours), ("process/empty", empty))
    }


def measure_processes(build, folder):
    """Leaves its files in `folder`, which is better deleted when everything is measured."""
    programs = Programs(build)
    return {
        **measure_additions(programs, folder),
        **measure_catalogue(programs, server_of(programs, folder / "large", SIZES[-1])),
        **measure_side_files(programs, server_of(programs, folder / "usual", BOOKS)),
        **measure_start(programs),
    }
