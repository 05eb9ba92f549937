#pragma once

/* The floors under reading a workbook, in plain C. Of a packed one a part is unpacked with zlib and
 * parsed with the XML library, and nothing is made of it. Of a binary one, which needs neither, the
 * stream is put together from its sectors, and the texts and numbers of its cells are written one
 * behind the other in UTF-8. */

#ifdef __cplusplus
extern "C" {
#endif

/// Unpacks and parses the part `part` of the packed file at `path`. Answers the number of its
/// cells, and -1 for any failure.
long floorWorkbook(const char* path, const char* part);

/// Reads the cells of all sheets of the binary workbook at `path`, of which the list of its sectors
/// fits into the header. Answers the number of its cells, and -1 for any failure.
long floorBinaryWorkbook(const char* path);

#ifdef __cplusplus
}
#endif
