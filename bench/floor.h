#pragma once

// The floor: the work that no implementation can leave out, written in plain C with the XML library
// alone, without any of the component's rules, messages and layers.
//
// Files are named by their system paths. Whatever is written is written, flushed and renamed as the
// component does it, so that both sides pay the disk the same. Every function answers what it
// counted, so that a benchmark can see that the work was done, and -1 for any failure.

#include <stddef.h>

#ifdef __cplusplus
extern "C" {
#endif

/// Reads a text table of contents, cuts every line at its quotes and holds the levels against their
/// sequence. Answers the number of entries. With a `folder` every document is looked for in it.
long floorCheck(const char* tocPath, const char* folder);

/// Reads a page with its headings' marks, looks for every document in `folder` and writes the
/// export, byte for byte the component's for a page whose headings differ from each other. Answers
/// the number of headings.
long floorPage(const char* pagePath, const char* exportPath, const char* folder);

/// Loads a book file, takes what it tells of its book, and looks for every heading's file in
/// `folder`. Answers the number of those files.
long floorBookFile(const char* bookPath, const char* folder);

/// Looks for files by name, one call of the system for each. Answers how many are there.
long floorLookUps(const char* const* paths, size_t count);

/// Turns a prepared table of contents, or an export, into the book XML file `bookPath`, byte for
/// byte the component's, with the `beginning` in UTF-8 up to the first heading. Answers the number
/// of headings.
long floorBookXml(const char* tocPath, const char* bookPath, const char* beginning);

/// Replaces the file `to` by a copy of the file `from`. Answers 0.
long floorCopy(const char* from, const char* to);

/// Copies the files of the folder `from` into the new folder `to`, as `cp -r` does, and flushes
/// their disk once. Answers how many there are.
long floorCopyFolder(const char* from, const char* to);

/// Reads a book XML file once, element by element. Answers the number of headings' files in it.
/// With a `folder` each is looked for in it.
long floorScan(const char* bookPath, const char* folder);

/// Parses a document as the library does by itself, with the nodes that only lay it out, and
/// forgets it. Answers 0.
long floorParse(const char* path);

/// Loads a document without its layout and forgets it. Answers how many elements there are in its
/// list, which is the root or the only element in the root.
long floorLoad(const char* path);

/// Loads a document, asks it one XPath query and takes the text of every node that this finds.
/// Answers how many there are.
long floorQuery(const char* path, const char* query);

/// Loads a document and saves it, laid out anew. Answers what floorLoad answers.
long floorLoadAndSave(const char* path);
long floorLoadAndSaveAs(const char* path, const char* as);

/// Sorts texts in ASCII without regard to letter case. Answers how many stand in their order then.
long floorSort(const char* const* texts, size_t count);

/// Loads the catalogue, adds a book to it and saves it. Answers the number of books in it then.
long floorCatalogue(const char* cataloguePath);

#ifdef __cplusplus
}
#endif
