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
/// sequence. Answers the number of entries.
long floorCheck(const char* tocPath);

/// Looks for files by name, one call of the system for each. Answers how many are there.
long floorLookUps(const char* const* paths, size_t count);

/// Turns a table of contents into the book XML file `bookPath`, byte for byte the component's, with
/// the `beginning` in UTF-8 up to the first heading. Answers the number of headings.
long floorBookXml(const char* tocPath, const char* bookPath, const char* beginning);

/// Replaces the file `to` by a copy of the file `from`. Answers 0.
long floorCopy(const char* from, const char* to);

/// Copies the files of the folder `from` into the new folder `to`, as `cp -r` does, and flushes
/// their disk once. Answers how many there are.
long floorCopyFolder(const char* from, const char* to);

/// Reads a book XML file once, element by element. Answers the number of headings' files in it.
long floorScan(const char* bookPath);

/// Loads a document and forgets it. Answers how many elements there are in its list, which is the
/// root or the only element in the root.
long floorLoad(const char* path);

/// Loads a document and asks it one XPath query. Answers how many nodes that finds.
long floorQuery(const char* path, const char* query);

/// Loads a document and saves it, laid out anew. Answers what floorLoad answers.
long floorLoadAndSave(const char* path);

/// Loads the catalogue, adds a book to it and saves it. Answers the number of books in it then.
long floorCatalogue(const char* cataloguePath);

#ifdef __cplusplus
}
#endif
