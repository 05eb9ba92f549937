#define _GNU_SOURCE

#include "bench/floor_files.h"

#include <fcntl.h>
#include <stdint.h>
#include <stdio.h>
#include <stdlib.h>
#include <string.h>
#include <sys/stat.h>
#include <unistd.h>

// Reading

static bool readBytes(const char* path, Text* text) {
  const int file = open(path, O_RDONLY | O_CLOEXEC);
  struct stat status;
  if (file == -1 || fstat(file, &status) != 0) {
    return false;
  }
  text->bytes = malloc((size_t)status.st_size + 1);
  text->size = 0;
  ssize_t count = 1;
  while (count > 0 && text->size < (size_t)status.st_size) {
    count = read(file, text->bytes + text->size, (size_t)status.st_size - text->size);
    text->size += count > 0 ? (size_t)count : 0;
  }
  text->bytes[text->size] = '\0';
  return close(file) == 0 && count >= 0;
}

static void putUtf8(char** to, unsigned character) {
  if (character < 0x80) {
    *(*to)++ = (char)character;
  } else if (character < 0x800) {
    *(*to)++ = (char)(0xC0U | character >> 6U);
    *(*to)++ = (char)(0x80U | (character & 0x3FU));
  } else {
    *(*to)++ = (char)(0xE0U | character >> 12U);
    *(*to)++ = (char)(0x80U | (character >> 6U & 0x3FU));
    *(*to)++ = (char)(0x80U | (character & 0x3FU));
  }
}

/// `text` without its mark, in UTF-8, which takes at most three bytes for each unit of two.
static Text fromUtf16(Text text) {
  char* bytes = malloc(text.size / 2 * 3 + 1);
  char* to = bytes;
  for (size_t at = 2; at + 1 < text.size; at += 2) {
    putUtf8(&to, (unsigned char)text.bytes[at] | (unsigned)(unsigned char)text.bytes[at + 1] << 8U);
  }
  *to = '\0';
  return (Text){bytes, (size_t)(to - bytes)};
}

bool readText(const char* path, Text* text) {
  if (!readBytes(path, text)) {
    return false;
  }
  if (text->size >= 2 && memcmp(text->bytes, "\xFF\xFE", 2) == 0) {
    const Text converted = fromUtf16(*text);
    free(text->bytes);
    *text = converted;
  }
  return true;
}

bool takeLine(Text* rest, Text* line) {
  if (rest->size == 0) {
    return false;
  }
  const char* feed = memchr(rest->bytes, '\n', rest->size);
  const size_t taken = feed == NULL ? rest->size : (size_t)(feed - rest->bytes) + 1;
  line->bytes = rest->bytes;
  line->size = feed == NULL ? taken : taken - 1;
  if (line->size > 0 && line->bytes[line->size - 1] == '\r') {
    --line->size;
  }
  rest->bytes += taken;
  rest->size -= taken;
  return true;
}

size_t cut(Text line, const char* separator, Text* pieces, size_t room) {
  const size_t width = strlen(separator);
  size_t count = 0;
  for (;;) {
    const char* found = width == 1 ? memchr(line.bytes, separator[0], line.size)
                                   : memmem(line.bytes, line.size, separator, width);
    const size_t length = found == NULL ? line.size : (size_t)(found - line.bytes);
    if (count < room) {
      pieces[count] = (Text){line.bytes, length};
    }
    ++count;
    if (found == NULL) {
      return count;
    }
    line.bytes += length + width;
    line.size -= length + width;
  }
}

Text behindLast(Text text, char separator) {
  const char* found = memrchr(text.bytes, separator, text.size);
  if (found == NULL) {
    return text;
  }
  return (Text){(char*)found + 1, text.size - (size_t)(found + 1 - text.bytes)};
}

bool hasFile(const char* folder, Text name) {
  char path[PATH_MAX];
  const int start = snprintf(path, sizeof path, "%s/", folder);
  if (start < 0 || (size_t)start + name.size >= sizeof path) {
    return false;
  }
  for (size_t i = 0; i < name.size; ++i) {
    path[(size_t)start + i] = name.bytes[i] == '\\' ? '/' : name.bytes[i];
  }
  path[(size_t)start + name.size] = '\0';
  struct stat status;
  return stat(path, &status) == 0;
}

// Replacing

bool beginOutput(Output* output, const char* path) {
  output->path = path;
  output->failed = false;
  output->used = 0;
  snprintf(output->temporary, sizeof output->temporary, "%s.floor.tmp", path);
  output->file = open(output->temporary, O_WRONLY | O_CREAT | O_TRUNC | O_CLOEXEC, 0666);
  return output->file != -1;
}

static void drain(Output* output) {
  size_t written = 0;
  while (written < output->used && !output->failed) {
    const ssize_t count = write(output->file, output->buffer + written, output->used - written);
    output->failed = count < 0;
    written += count < 0 ? 0 : (size_t)count;
  }
  output->used = 0;
}

static bool flushFolderOf(const char* path) {
  char folder[PATH_MAX];
  snprintf(folder, sizeof folder, "%s", path);
  *strrchr(folder, '/') = '\0';
  const int file = open(folder, O_RDONLY | O_DIRECTORY | O_CLOEXEC);
  return file != -1 && fsync(file) == 0 && close(file) == 0;
}

bool endOutput(Output* output) {
  drain(output);
  return !output->failed && fsync(output->file) == 0 && close(output->file) == 0 &&
         rename(output->temporary, output->path) == 0 && flushFolderOf(output->path);
}

// Writing UTF-16

void putUnit(Output* output, unsigned unit) {
  if (output->used + 2 > sizeof output->buffer) {
    drain(output);
  }
  output->buffer[output->used++] = (char)(unit & 0xFFU);
  output->buffer[output->used++] = (char)(unit >> 8U);
}

void putAscii(Output* output, const char* text) {
  for (; *text != '\0'; ++text) {
    putUnit(output, (unsigned char)*text);
  }
}

/// The character that `text` begins with; the text is known to be well formed and to stay below
/// U+10000.
static unsigned takeCharacter(Text* text) {
  const unsigned char* bytes = (const unsigned char*)text->bytes;
  const unsigned length = bytes[0] < 0x80 ? 1 : bytes[0] < 0xE0 ? 2 : 3;
  unsigned character = length == 1 ? bytes[0] : bytes[0] & (0xFFU >> (length + 1));
  for (unsigned at = 1; at < length; ++at) {
    character = character << 6U | (bytes[at] & 0x3FU);
  }
  text->bytes += length;
  text->size -= length;
  return character;
}

void putText(Output* output, Text text) {
  while (text.size > 0) {
    putUnit(output, takeCharacter(&text));
  }
}

void putEscaped(Output* output, Text text) {
  while (text.size > 0) {
    const unsigned character = takeCharacter(&text);
    switch (character) {
      case '&':
        putAscii(output, "&amp;");
        break;
      case '<':
        putAscii(output, "&lt;");
        break;
      case '>':
        putAscii(output, "&gt;");
        break;
      case '"':
        putAscii(output, "&quot;");
        break;
      default:
        putUnit(output, character);
    }
  }
}
