#pragma once

// Text files as the floor reads and replaces them.

#include <limits.h>
#include <stdbool.h>
#include <stddef.h>

/// A piece of text in UTF-8. A whole file ends in a zero behind its size.
typedef struct {
  char* bytes;
  size_t size;
} Text;

/// Reads a file whole, in UTF-8 or in UTF-16 with its mark; its bytes are the caller's to free.
bool readText(const char* path, Text* text);

/// Takes the next line off `rest`, without its end; false when there is none.
bool takeLine(Text* rest, Text* line);

/// Cuts `line` at every separator into at most `room` pieces. Answers how many there are in all.
size_t cut(Text line, const char* separator, Text* pieces, size_t room);

/// What stands behind the last separator; all of it where there is none.
Text behindLast(Text text, char separator);

/// Whether `folder` has the file `name`, whose folders are separated by either slash.
bool hasFile(const char* folder, Text name);

/// A file that is written beside the one that it replaces.
typedef struct {
  const char* path;
  char temporary[PATH_MAX];
  int file;
  bool failed;
  size_t used;
  char buffer[64 * 1024];
} Output;

bool beginOutput(Output* output, const char* path);
/// Flushes the file, renames it over the old one and flushes the folder.
bool endOutput(Output* output);

// In UTF-16.
void putUnit(Output* output, unsigned unit);
void putAscii(Output* output, const char* text);
/// The text stays below U+10000, and so does that of putEscaped.
void putText(Output* output, Text text);
/// With the characters of markup replaced.
void putEscaped(Output* output, Text text);
