// The floor as a process: what an addition can't leave out, beside the command that does it.
//
//   quorbind_bench_floor text TOC LIBRARY BEGINNING [DOCUMENTS]
//   quorbind_bench_floor html TOC LIBRARY BEGINNING
//   quorbind_bench_floor xml TOC LIBRARY [DOCUMENTS]
//   quorbind_bench_floor xlsx|xls TOC LIBRARY BEGINNING EXPORT BOOKS
//   quorbind_bench_floor parse|load FILE
//
// LIBRARY is a folder with a catalogue; BEGINNING is the book file up to its headings. DOCUMENTS is
// the folder of the documents, where there are any; those of an existing book file lie beside it.
// Of a workbook, EXPORT is that of a book, and there are BOOKS of them. A FILE is parsed with or
// without its layout, and forgotten.

#define _GNU_SOURCE

#include <errno.h>
#include <limits.h>
#include <stdbool.h>
#include <stdio.h>
#include <stdlib.h>
#include <string.h>
#include <sys/stat.h>
#include <unistd.h>

#include "bench/floor.h"
#include "bench/workbook_floor.h"

static const char kBookFile[] = "Book_BEN.xml";

typedef struct {
  char folder[PATH_MAX / 2];
  char exported[PATH_MAX];
  char book[PATH_MAX];
  char documents[PATH_MAX];
  char bookFolder[PATH_MAX / 2];
  char copied[PATH_MAX];
  char original[PATH_MAX];
  char catalogue[PATH_MAX];
} Places;

static Places placesOf(const char* toc, const char* library) {
  Places places;
  snprintf(places.folder, sizeof places.folder, "%s", toc);
  *strrchr(places.folder, '/') = '\0';
  snprintf(places.exported, sizeof places.exported, "%s/floor_export.txt", places.folder);
  snprintf(places.book, sizeof places.book, "%s/%s", places.folder, kBookFile);
  snprintf(places.documents, sizeof places.documents, "%s/Manual", places.folder);
  snprintf(places.bookFolder, sizeof places.bookFolder, "%s/Manual", library);
  snprintf(places.copied, sizeof places.copied, "%s/%s", places.bookFolder, kBookFile);
  snprintf(places.original, sizeof places.original, "%s/book.xml", places.bookFolder);
  snprintf(places.catalogue, sizeof places.catalogue, "%s/Quor_TOC.xml", library);
  return places;
}

/// Makes the book's folder, unless a book before has made it, and brings the documents into it.
static bool makeBookFolder(const Places* places, const char* documents) {
  if (documents != NULL) {
    return floorCopyFolder(documents, places->bookFolder) > 0;
  }
  return mkdir(places->bookFolder, 0777) == 0 || errno == EEXIST;
}

/// What follows once there is a book file: it is copied, and so are its documents, where there are
/// any, and the book is entered.
static bool install(const Places* places, const char* documents) {
  return makeBookFolder(places, documents) && floorCopy(places->book, places->copied) == 0 &&
         floorScan(places->book, places->documents) > 0 && unlink(places->book) == 0 &&
         floorCatalogue(places->catalogue) > 0;
}

static bool addText(const char* toc,
                    const Places* places,
                    const char* beginning,
                    const char* documents) {
  return floorCheck(toc, places->folder) > 0 && floorBookXml(toc, places->book, beginning) > 0 &&
         install(places, documents);
}

static bool addPage(const char* toc, const Places* places, const char* beginning) {
  return floorPage(toc, places->exported, places->folder) > 0 &&
         floorBookXml(places->exported, places->book, beginning) > 0 &&
         unlink(places->exported) == 0 && install(places, NULL);
}

/// The book file is copied as it is, with the documents beside it where there are any, and once
/// more as a file of the library.
static bool addBookFile(const char* toc, const Places* places, const char* documents) {
  return floorBookFile(toc, places->folder) > 0 && makeBookFolder(places, documents) &&
         (documents != NULL || floorCopy(toc, places->original) == 0) &&
         floorScan(toc, places->folder) > 0 && floorLoadAndSaveAs(toc, places->copied) >= 0 &&
         floorCatalogue(places->catalogue) > 0;
}

/// The cells are read, and nothing is made of them: every book's export is given.
static bool addWorkbook(const char* kind,
                        const char* toc,
                        const Places* places,
                        const char* beginning,
                        const char* export,
                        long books) {
  bool done = strcmp(kind, "xls") == 0 ? floorBinaryWorkbook(toc) > 0
                                       : floorWorkbook(toc, "xl/worksheets/sheet1.xml") > 0;
  for (; done && books > 0; --books) {
    done = floorCopy(export, places->exported) == 0 &&
           floorBookXml(places->exported, places->book, beginning) > 0 &&
           unlink(places->exported) == 0 && install(places, NULL);
  }
  return done;
}

static bool run(int count, char** arguments) {
  const char* what = count > 1 ? arguments[1] : "";
  if (count == 3 && strcmp(what, "parse") == 0) {
    return floorParse(arguments[2]) >= 0;
  }
  if (count == 3 && strcmp(what, "load") == 0) {
    return floorLoad(arguments[2]) >= 0;
  }
  if (count < 4) {
    return false;
  }
  const Places places = placesOf(arguments[2], arguments[3]);
  // Behind the last of them stands a null pointer.
  if (count <= 5 && strcmp(what, "xml") == 0) {
    return addBookFile(arguments[2], &places, arguments[4]);
  }
  if ((count == 5 || count == 6) && strcmp(what, "text") == 0) {
    return addText(arguments[2], &places, arguments[4], arguments[5]);
  }
  if (count == 5 && strcmp(what, "html") == 0) {
    return addPage(arguments[2], &places, arguments[4]);
  }
  return count == 7 && addWorkbook(what,
                                   arguments[2],
                                   &places,
                                   arguments[4],
                                   arguments[5],
                                   strtol(arguments[6], NULL, 10));
}

int main(int count, char** arguments) {
  if (!run(count, arguments)) {
    fprintf(stderr, "the floor was not done\n");
    return 1;
  }
  return 0;
}
