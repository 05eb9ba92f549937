#define _GNU_SOURCE

#include <stdio.h>
#include <stdlib.h>
#include <string.h>
#include <strings.h>

#include "bench/floor.h"
#include "bench/floor_files.h"

static const char kExportHead[] =
    "\"Node Level\" \"Node Name\" \"File Name\" \"Sub Link\" \"FLinkValue\" \"BookLinkValue\"\r\n"
    "\r\n";

/// The next mark that begins with `mark`, from `at` to `end`, in either letter case.
static const char* findMark(const char* at, const char* end, const char* mark) {
  const size_t length = strlen(mark);
  while ((at = memchr(at, mark[0], (size_t)(end - at))) != NULL) {
    if ((size_t)(end - at) >= length && strncasecmp(at, mark, length) == 0) {
      return at;
    }
    ++at;
  }
  return NULL;
}

/// As findMark, for one that begins with a letter.
static const char* findAttribute(Text block, const char* name) {
  const size_t length = strlen(name);
  for (const char* at = block.bytes; at + length <= block.bytes + block.size; ++at) {
    if ((*at | ' ') == (name[0] | ' ') && strncasecmp(at, name, length) == 0) {
      return at + length;
    }
  }
  return NULL;
}

/// The value behind `name="`; without bytes where there is none.
static Text valueOf(Text block, const char* name) {
  const char* from = findAttribute(block, name);
  const char* to =
      from == NULL ? NULL : memchr(from, '"', (size_t)(block.bytes + block.size - from));
  return to == NULL ? (Text){NULL, 0} : (Text){(char*)from, (size_t)(to - from)};
}

static void trim(Text* text) {
  while (text->size > 0 && text->bytes[0] == ' ') {
    ++text->bytes;
    --text->size;
  }
  while (text->size > 0 && text->bytes[text->size - 1] == ' ') {
    --text->size;
  }
}

/// What stands outside the tags of `block`, written to `room`, which is as large.
static Text titleOf(Text block, char* room) {
  Text title = {room, 0};
  for (size_t at = 0; at < block.size; ++at) {
    if (block.bytes[at] == '<') {
      const char* end = memchr(block.bytes + at, '>', block.size - at);
      at = end == NULL ? block.size : (size_t)(end - block.bytes);
      room[title.size++] = ' ';
    } else {
      room[title.size++] = block.bytes[at];
    }
  }
  trim(&title);
  return title;
}

static void putField(Output* output, const char* before, Text field) {
  putAscii(output, before);
  putText(output, field);
  putAscii(output, "$@@$");
}

static Text literal(const char* text) {
  return (Text){(char*)text, strlen(text)};
}

/// Writes the line of one heading. Answers its level, 0 for one that breaks a rule.
static long exportHeading(Output* output, Text block, const char* folder, char* room) {
  const Text path = valueOf(block, "HREF=\"");
  const Text title = titleOf(block, room);
  const long level = strtol(block.bytes + 2, NULL, 10);
  if (path.size == 0 || title.size == 0) {
    return 0;
  }
  const char* sign = memchr(path.bytes, '#', path.size);
  const Text file = {path.bytes, sign == NULL ? path.size : (size_t)(sign - path.bytes)};
  const Text subLink = {path.bytes + file.size, path.size - file.size};
  const Text fLink = valueOf(block, "FLINKVALUE=\"");
  hasFile(folder, file);
  char number[32];
  snprintf(number, sizeof number, "%ld", level + 1);
  putField(output, "$@@$", literal(number));
  putField(output, " $@@$", title);
  putField(output, " $@@$", file);
  putField(output, " $@@$", subLink);
  putField(output, " $@@$", fLink.bytes == NULL ? literal("#NoLink#") : fLink);
  putField(output, " $@@$", literal("#NO_BOOKLINK#"));
  putAscii(output, "\r\n");
  return level;
}

long floorPage(const char* pagePath, const char* exportPath, const char* folder) {
  Text page;
  Output output;
  if (!readText(pagePath, &page) || !beginOutput(&output, exportPath)) {
    return -1;
  }
  putUnit(&output, 0xFEFF);
  putAscii(&output, kExportHead);
  char* room = malloc(page.size + 1);
  const char* end = page.bytes + page.size;
  long headings = 0;
  long previous = 0;
  for (const char* start = findMark(page.bytes, end, "<K"); start != NULL && headings >= 0;) {
    const char* close = findMark(start, end, "</K");
    const char* bracket = close == NULL ? NULL : memchr(close, '>', (size_t)(end - close));
    const Text block = {(char*)start, bracket == NULL ? 0 : (size_t)(bracket + 1 - start)};
    const long level = bracket == NULL ? 0 : exportHeading(&output, block, folder, room);
    const bool valid = level >= 1 && level - previous <= 1 && strtol(close + 3, NULL, 10) == level;
    headings = valid ? headings + 1 : -1;
    previous = level;
    start = valid ? findMark(bracket, end, "<K") : NULL;
  }
  free(room);
  free(page.bytes);
  return endOutput(&output) ? headings : -1;
}
