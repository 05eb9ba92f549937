#pragma once

/* The floor under reading a packed workbook, in plain C: a part is unpacked with zlib and parsed
 * with the XML library, and nothing is made of it. */

#ifdef __cplusplus
extern "C" {
#endif

/// Unpacks and parses the part `part` of the packed file at `path`. Answers the number of its
/// cells, and -1 for any failure.
long floorWorkbook(const char* path, const char* part);

#ifdef __cplusplus
}
#endif
