#define _GNU_SOURCE

#include "bench/floor.h"

#include <dirent.h>
#include <fcntl.h>
#include <libxml/parser.h>
#include <libxml/tree.h>
#include <libxml/xpath.h>
#include <limits.h>
#include <stdbool.h>
#include <stdint.h>
#include <stdio.h>
#include <stdlib.h>
#include <string.h>
#include <sys/stat.h>
#include <unistd.h>

// Reading

typedef struct {
  char* bytes;
  size_t size;
} Text;

static bool readText(const char* path, Text* text) {
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

/// Takes the next line off `rest`, without its end; false when there is none.
static bool takeLine(Text* rest, Text* line) {
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

/// Cuts `line` at every separator into at most `room` pieces. Answers how many there are in all.
static size_t cut(Text line, const char* separator, Text* pieces, size_t room) {
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

// Replacing

typedef struct {
  const char* path;
  char temporary[PATH_MAX];
  int file;
  bool failed;
  size_t used;
  char buffer[64 * 1024];
} Output;

static bool beginOutput(Output* output, const char* path) {
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

static bool endOutput(Output* output) {
  drain(output);
  return !output->failed && fsync(output->file) == 0 && close(output->file) == 0 &&
         rename(output->temporary, output->path) == 0 && flushFolderOf(output->path);
}

// Writing UTF-16

static void putUnit(Output* output, unsigned unit) {
  if (output->used + 2 > sizeof output->buffer) {
    drain(output);
  }
  output->buffer[output->used++] = (char)(unit & 0xFFU);
  output->buffer[output->used++] = (char)(unit >> 8U);
}

static void putAscii(Output* output, const char* text) {
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

static void putText(Output* output, Text text) {
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

static void putLineStart(Output* output, long depth) {
  putAscii(output, "\r\n");
  for (; depth > 0; --depth) {
    putUnit(output, '\t');
  }
}

// The stages

long floorCheck(const char* tocPath) {
  enum { kPieces = 9, kLevel = 1, kName = 3 };
  Text toc;
  if (!readText(tocPath, &toc)) {
    return -1;
  }
  Text rest = toc;
  Text line;
  Text pieces[kPieces];
  bool valid = takeLine(&rest, &line) && cut(line, "\"", pieces, kPieces) == kPieces &&
               takeLine(&rest, &line);
  long entries = 0;
  long previous = 0;
  while (valid && takeLine(&rest, &line)) {
    if (cut(line, "\"", pieces, kPieces) != kPieces) {
      valid = false;
      break;
    }
    const long level = strtol(pieces[kLevel].bytes, NULL, 10);
    valid = level >= 1 && level - previous <= 1 && (level != 1 || previous == 0) &&
            pieces[kName].size > 0;
    previous = level;
    ++entries;
  }
  free(toc.bytes);
  return valid ? entries : -1;
}

long floorLookUps(const char* const* paths, size_t count) {
  long found = 0;
  for (size_t i = 0; i < count; ++i) {
    struct stat status;
    found += stat(paths[i], &status) == 0;
  }
  return found;
}

static Text behindLast(Text text, char separator) {
  const char* found = memrchr(text.bytes, separator, text.size);
  if (found == NULL) {
    return text;
  }
  return (Text){(char*)found + 1, text.size - (size_t)(found + 1 - text.bytes)};
}

static void putHeading(Output* output, long depth, const Text* fields) {
  enum { kLevel = 1, kName = 3, kFile = 5, kSubLink = 7 };
  char level[32];
  snprintf(level, sizeof level, "H%ld", strtol(fields[kLevel].bytes, NULL, 10) - 1);
  putLineStart(output, depth);
  putAscii(output, "<Heading level=\"");
  putAscii(output, level);
  putAscii(output, "\" type=\"");
  putText(output, behindLast(fields[kFile], '.'));
  putAscii(output, "\">");
  putLineStart(output, depth + 1);
  putAscii(output, "<HName>");
  putText(output, fields[kName]);
  putAscii(output, "</HName>");
  putLineStart(output, depth + 1);
  putAscii(output, "<HFile");
  if (fields[kSubLink].size > 0) {
    putAscii(output, " BookMark=\"");
    putText(output, fields[kSubLink]);
    putAscii(output, "\"");
  }
  putAscii(output, ">");
  putText(output, behindLast(fields[kFile], '\\'));
  putAscii(output, "</HFile>");
}

static void endHeading(Output* output, long depth) {
  putLineStart(output, depth);
  putAscii(output, "</Heading>");
}

long floorBookXml(const char* tocPath, const char* bookPath, const char* beginning) {
  enum { kPieces = 13, kLevel = 1, kHeadingsDepth = 2 };
  Text toc;
  Output output;
  if (!readText(tocPath, &toc) || !beginOutput(&output, bookPath)) {
    return -1;
  }
  putUnit(&output, 0xFEFF);
  putAscii(&output, beginning);

  Text rest = toc;
  Text line;
  Text fields[kPieces];
  long headings = 0;
  long open = 0;
  long previous = 0;
  takeLine(&rest, &line);
  while (takeLine(&rest, &line)) {
    if (cut(line, "$@@$", fields, kPieces) < kPieces) {
      continue;
    }
    const long level = strtol(fields[kLevel].bytes, NULL, 10);
    if (level == 1) {
      continue;
    }
    for (long up = previous - level; up >= 0 && open > 0; --up) {
      endHeading(&output, kHeadingsDepth + --open);
    }
    putHeading(&output, kHeadingsDepth + open++, fields);
    previous = level;
    ++headings;
  }
  while (open > 0) {
    endHeading(&output, kHeadingsDepth + --open);
  }
  putAscii(&output, "\r\n\t</Book_Headings>\r\n</Book_Master>\r\n");
  free(toc.bytes);
  return endOutput(&output) ? headings : -1;
}

long floorCopy(const char* from, const char* to) {
  Output output;
  const int source = open(from, O_RDONLY | O_CLOEXEC);
  if (source == -1 || !beginOutput(&output, to)) {
    return -1;
  }
  ssize_t count;
  do {
    count = copy_file_range(source, NULL, output.file, NULL, 1U << 30U, 0);
  } while (count > 0);
  return close(source) == 0 && count == 0 && endOutput(&output) ? 0 : -1;
}

/// Copies the file `name` from one open folder into the other.
static bool copyFile(int from, int to, const char* name) {
  const int source = openat(from, name, O_RDONLY | O_CLOEXEC);
  struct stat status;
  if (source == -1 || fstat(source, &status) != 0) {
    return false;
  }
  const int target = openat(to, name, O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC, status.st_mode);
  ssize_t count;
  do {
    count = copy_file_range(source, NULL, target, NULL, 1U << 30U, 0);
  } while (count > 0);
  return close(source) == 0 && target != -1 && close(target) == 0 && count == 0;
}

long floorCopyFolder(const char* from, const char* to) {
  DIR* folder = opendir(from);
  const int target = mkdir(to, 0777) == 0 ? open(to, O_RDONLY | O_DIRECTORY | O_CLOEXEC) : -1;
  if (folder == NULL || target == -1) {
    return -1;
  }
  long files = 0;
  for (const struct dirent* entry; (entry = readdir(folder)) != NULL;) {
    if (entry->d_type != DT_REG) {
      continue;
    }
    if (!copyFile(dirfd(folder), target, entry->d_name)) {
      return -1;
    }
    ++files;
  }
  return syncfs(target) == 0 && close(target) == 0 && closedir(folder) == 0 ? files : -1;
}

static void countHeadingFile(void* counter,
                             const xmlChar* name,
                             const xmlChar* prefix,
                             const xmlChar* uri,
                             int namespaceCount,
                             const xmlChar** namespaces,
                             int attributeCount,
                             int defaultedCount,
                             const xmlChar** attributes) {
  (void)prefix;
  (void)uri;
  (void)namespaceCount;
  (void)namespaces;
  (void)attributeCount;
  (void)defaultedCount;
  (void)attributes;
  *(long*)counter += strcmp((const char*)name, "HFile") == 0;
}

static void ignoreText(void* counter, const xmlChar* text, int length) {
  (void)counter;
  (void)text;
  (void)length;
}

long floorScan(const char* bookPath) {
  xmlSAXHandler handler = {.initialized = XML_SAX2_MAGIC,
                           .startElementNs = countHeadingFile,
                           .characters = ignoreText,
                           .ignorableWhitespace = ignoreText};
  long files = 0;
  return xmlSAXUserParseFile(&handler, &files, bookPath) == 0 ? files : -1;
}

static xmlNode* findChild(xmlNode* parent, const char* name) {
  xmlNode* child = xmlFirstElementChild(parent);
  while (child != NULL && strcmp((const char*)child->name, name) != 0) {
    child = xmlNextElementSibling(child);
  }
  return child;
}

static xmlNode* addChild(xmlNode* parent, const char* name, const char* text) {
  return xmlNewTextChild(parent, NULL, (const xmlChar*)name, (const xmlChar*)text);
}

static bool saveDocument(xmlDoc* document, const char* path) {
  Output output;
  xmlChar* bytes = NULL;
  int size = 0;
  xmlDocDumpFormatMemory(document, &bytes, &size, 1);
  bool saved = bytes != NULL && beginOutput(&output, path);
  if (saved) {
    saved = write(output.file, bytes, (size_t)size) == size && endOutput(&output);
  }
  xmlFree(bytes);
  return saved;
}

static xmlDoc* loadDocument(const char* path) {
  return xmlReadFile(path, NULL, XML_PARSE_NOBLANKS | XML_PARSE_NONET | XML_PARSE_NOERROR);
}

/// The elements in the element that the document is a list of: as many as a catalogue has books.
static long countEntries(xmlDoc* document) {
  xmlNode* list = xmlDocGetRootElement(document);
  if (xmlChildElementCount(list) == 1) {
    list = xmlFirstElementChild(list);
  }
  return (long)xmlChildElementCount(list);
}

long floorLoad(const char* path) {
  xmlDoc* document = loadDocument(path);
  if (document == NULL) {
    return -1;
  }
  const long count = countEntries(document);
  xmlFreeDoc(document);
  return count;
}

long floorQuery(const char* path, const char* query) {
  xmlDoc* document = loadDocument(path);
  if (document == NULL) {
    return -1;
  }
  xmlXPathContext* context = xmlXPathNewContext(document);
  context->node = (xmlNode*)document;
  xmlXPathObject* found = xmlXPathEval((const xmlChar*)query, context);
  const long count = found == NULL ? -1 : xmlXPathNodeSetGetLength(found->nodesetval);
  xmlXPathFreeObject(found);
  xmlXPathFreeContext(context);
  xmlFreeDoc(document);
  return count;
}

long floorLoadAndSave(const char* path) {
  xmlDoc* document = loadDocument(path);
  if (document == NULL) {
    return -1;
  }
  const long count = saveDocument(document, path) ? countEntries(document) : -1;
  xmlFreeDoc(document);
  return count;
}

long floorCatalogue(const char* cataloguePath) {
  xmlDoc* document = loadDocument(cataloguePath);
  if (document == NULL) {
    return -1;
  }
  long count = -1;
  xmlNode* books = findChild(xmlDocGetRootElement(document), "Quor_Books");
  if (books != NULL) {
    xmlNode* book = addChild(books, "Book", NULL);
    addChild(book, "Book_Name", "Bench");
    addChild(book, "Book_Acro", "BEN");
    xmlNewProp(addChild(book, "Book_Key", "Prod"), (const xmlChar*)"id", (const xmlChar*)"");
    addChild(book, "Book_Folder", "Manual");
    addChild(book, "Book_File", "Book_BEN.xml");
    addChild(book, "Book_Categories", NULL);
    if (saveDocument(document, cataloguePath)) {
      count = (long)xmlChildElementCount(books);
    }
  }
  xmlFreeDoc(document);
  return count;
}
