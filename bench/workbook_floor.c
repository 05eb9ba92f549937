#include "bench/workbook_floor.h"

#include <libxml/parser.h>
#include <stdint.h>
#include <stdio.h>
#include <stdlib.h>
#include <string.h>
#include <zlib.h>

struct Bytes {
  unsigned char* data;
  size_t size;
};

static struct Bytes readFile(const char* path) {
  struct Bytes file = {NULL, 0};
  FILE* stream = fopen(path, "rb");
  if (stream == NULL) {
    return file;
  }
  fseek(stream, 0, SEEK_END);
  const long size = ftell(stream);
  rewind(stream);
  file.data = malloc((size_t)size + 1);
  file.size = fread(file.data, 1, (size_t)size, stream);
  fclose(stream);
  return file;
}

static uint32_t number(const unsigned char* at, int bytes) {
  uint32_t value = 0;
  for (int i = bytes - 1; i >= 0; --i) {
    value = value << 8U | at[i];
  }
  return value;
}

/* The entry of a part in the list at the end of the file; NULL when there is none. */
static const unsigned char* findEntry(const struct Bytes* file, const char* part) {
  const size_t kEndSize = 22;
  const size_t kEntrySize = 46;
  if (file->size < kEndSize) {
    return NULL;
  }
  const unsigned char* end = file->data + file->size - kEndSize;
  const unsigned char* entry = file->data + number(end + 16, 4);
  for (uint32_t left = number(end + 10, 2); left > 0; --left) {
    const uint32_t length = number(entry + 28, 2);
    if (length == strlen(part) && memcmp(entry + kEntrySize, part, length) == 0) {
      return entry;
    }
    entry += kEntrySize + length + number(entry + 30, 2) + number(entry + 32, 2);
  }
  return NULL;
}

static struct Bytes unpack(const struct Bytes* file, const unsigned char* entry) {
  const size_t kPartHeaderSize = 30;
  struct Bytes part = {malloc(number(entry + 24, 4) + 1), number(entry + 24, 4)};
  const unsigned char* header = file->data + number(entry + 42, 4);
  z_stream stream;
  memset(&stream, 0, sizeof stream);
  stream.next_in =
      (unsigned char*)header + kPartHeaderSize + number(header + 26, 2) + number(header + 28, 2);
  stream.avail_in = number(entry + 20, 4);
  stream.next_out = part.data;
  stream.avail_out = (unsigned)part.size;
  if (inflateInit2(&stream, -MAX_WBITS) != Z_OK || inflate(&stream, Z_FINISH) != Z_STREAM_END) {
    part.size = 0;
  }
  inflateEnd(&stream);
  return part;
}

static void countCell(void* context, const xmlChar* name, const xmlChar** attributes) {
  (void)attributes;
  *(long*)context += name[0] == 'c' && name[1] == '\0' ? 1 : 0;
}

long floorWorkbook(const char* path, const char* part) {
  struct Bytes file = readFile(path);
  const unsigned char* entry = file.data == NULL ? NULL : findEntry(&file, part);
  long cells = -1;
  if (entry != NULL) {
    struct Bytes sheet = unpack(&file, entry);
    xmlSAXHandler handler;
    memset(&handler, 0, sizeof handler);
    handler.startElement = countCell;
    long counted = 0;
    if (xmlSAXUserParseMemory(&handler, &counted, (const char*)sheet.data, (int)sheet.size) == 0) {
      cells = counted;
    }
    free(sheet.data);
  }
  free(file.data);
  return cells;
}
