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

// A packed file

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

// A packed workbook

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

// A compound file

static size_t sectorSize(const struct Bytes* file) {
  return (size_t)1 << number(file->data + 30, 2);
}

/* The first sector follows the header, which takes the room of one. */
static const unsigned char* sectorAt(const struct Bytes* file, uint32_t sector) {
  return file->data + ((size_t)sector + 1) * sectorSize(file);
}

/* The table of what follows what lies in sectors, too, which the header lists. */
static uint32_t sectorAfter(const struct Bytes* file, uint32_t sector) {
  const uint32_t inSector = (uint32_t)sectorSize(file) / 4;
  const uint32_t table = number(file->data + 76 + (size_t)(sector / inSector) * 4, 4);
  return number(sectorAt(file, table) + (size_t)(sector % inSector) * 4, 4);
}

/* The entry of a stream in the first sector of the directory; NULL when there is none. */
static const unsigned char* findStream(const struct Bytes* file,
                                       const char* wideName,
                                       size_t size) {
  const size_t kEntrySize = 128;
  const unsigned char* entry = sectorAt(file, number(file->data + 48, 4));
  const unsigned char* end = entry + sectorSize(file);
  for (; entry < end; entry += kEntrySize) {
    if (memcmp(entry, wideName, size) == 0) {
      return entry;
    }
  }
  return NULL;
}

static struct Bytes streamOf(const struct Bytes* file, const unsigned char* entry) {
  const size_t width = sectorSize(file);
  struct Bytes stream = {NULL, number(entry + 120, 4)};
  stream.data = malloc(stream.size + width);
  uint32_t sector = number(entry + 116, 4);
  for (size_t at = 0; at < stream.size; at += width) {
    memcpy(stream.data + at, sectorAt(file, sector), width);
    sector = sectorAfter(file, sector);
  }
  return stream;
}

// A binary workbook

/* `text` has room for whatever is put there. Answers where the next text begins. */
static char* putNumber(char* text, const unsigned char* bytes) {
  double value;
  memcpy(&value, bytes, sizeof value);
  char digits[24];
  char* digit = digits + sizeof digits;
  long rest = (long)value;
  if (value < 0 || (double)rest != value) {
    return text + sprintf(text, "%.15g", value);
  }
  do {
    *--digit = (char)('0' + rest % 10);
    rest /= 10;
  } while (rest > 0);
  const size_t length = (size_t)(digits + sizeof digits - digit);
  memcpy(text, digit, length);
  return text + length;
}

/* A text in bytes of Latin-1; NULL for one in UTF-16. */
static char* putNarrowText(char* text, const unsigned char* bytes) {
  const uint32_t length = number(bytes, 2);
  if (bytes[2] != 0) {
    return NULL;
  }
  for (const unsigned char* at = bytes + 3; at < bytes + 3 + length; ++at) {
    if (*at >= 0x80) {
      *text++ = (char)(0xC0 | *at >> 6);
    }
    *text++ = (char)(*at < 0x80 ? *at : 0x80 | (*at & 0x3F));
  }
  return text;
}

/* No cell takes more than twice the room of its record. */
static long cellsOf(const struct Bytes* stream, char* text) {
  enum { kNumberRecord = 0x0203, kTextRecord = 0x0204, kHeader = 4, kValue = 6 };
  long cells = 0;
  for (const unsigned char* record = stream->data; record < stream->data + stream->size;
       record += kHeader + number(record + 2, 2)) {
    const uint32_t kind = number(record, 2);
    if (kind == kNumberRecord) {
      text = putNumber(text, record + kHeader + kValue);
    } else if (kind == kTextRecord) {
      text = putNarrowText(text, record + kHeader + kValue);
    } else {
      continue;
    }
    if (text == NULL) {
      return -1;
    }
    ++cells;
  }
  return cells;
}

long floorBinaryWorkbook(const char* path) {
  static const char kName[] = "W\0o\0r\0k\0b\0o\0o\0k\0";
  struct Bytes file = readFile(path);
  const unsigned char* entry = file.data == NULL ? NULL : findStream(&file, kName, sizeof kName);
  long cells = -1;
  if (entry != NULL) {
    struct Bytes stream = streamOf(&file, entry);
    char* text = malloc(stream.size * 2);
    cells = cellsOf(&stream, text);
    free(text);
    free(stream.data);
  }
  free(file.data);
  return cells;
}
