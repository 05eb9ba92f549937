#define _GNU_SOURCE

#include "bench/floor.h"

#include <dirent.h>
#include <fcntl.h>
#include <libxml/parser.h>
#include <libxml/tree.h>
#include <libxml/xpath.h>
#include <limits.h>
#include <stdbool.h>
#include <stdlib.h>
#include <string.h>
#include <strings.h>
#include <sys/stat.h>
#include <unistd.h>

#include "bench/floor_files.h"

static void putLineStart(Output* output, long depth) {
  putAscii(output, "\r\n");
  for (; depth > 0; --depth) {
    putUnit(output, '\t');
  }
}

long floorCheck(const char* tocPath, const char* folder) {
  enum { kPieces = 9, kLevel = 1, kName = 3, kFile = 5 };
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
    if (folder != NULL) {
      hasFile(folder, pieces[kFile]);
    }
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

static bool isNoLink(Text link) {
  static const char kNoLink[] = "#NoLink#";
  return link.size == sizeof kNoLink - 1 && memcmp(link.bytes, kNoLink, link.size) == 0;
}

static void putHeading(Output* output, long depth, const Text* fields) {
  enum { kLevel = 1, kName = 3, kFile = 5, kSubLink = 7, kFLink = 9 };
  char level[32];
  snprintf(level, sizeof level, "H%ld", strtol(fields[kLevel].bytes, NULL, 10) - 1);
  putLineStart(output, depth);
  putAscii(output, "<Heading level=\"");
  putAscii(output, level);
  putAscii(output, "\" type=\"");
  putEscaped(output, behindLast(fields[kFile], '.'));
  putAscii(output, "\">");
  putLineStart(output, depth + 1);
  putAscii(output, "<HName");
  if (!isNoLink(fields[kFLink])) {
    putAscii(output, " FLinkValue=\"");
    putEscaped(output, fields[kFLink]);
    putAscii(output, "\"");
  }
  putAscii(output, ">");
  putEscaped(output, fields[kName]);
  putAscii(output, "</HName>");
  putLineStart(output, depth + 1);
  putAscii(output, "<HFile");
  if (fields[kSubLink].size > 0) {
    putAscii(output, " BookMark=\"");
    putEscaped(output, fields[kSubLink]);
    putAscii(output, "\"");
  }
  putAscii(output, ">");
  putEscaped(output, behindLast(behindLast(fields[kFile], '\\'), '/'));
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

/// What a scan of a book file knows.
typedef struct {
  /// Where the headings' files are looked for; NULL for nowhere.
  const char* folder;
  long files;
  bool isInFile;
  char name[NAME_MAX + 1];
  size_t size;
} Scan;

static bool isHeadingFile(const xmlChar* name) {
  return strcmp((const char*)name, "HFile") == 0;
}

static void beginElement(void* data,
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
  Scan* scan = data;
  scan->isInFile = isHeadingFile(name);
  scan->size = 0;
}

static void endElement(void* data, const xmlChar* name, const xmlChar* prefix, const xmlChar* uri) {
  (void)prefix;
  (void)uri;
  Scan* scan = data;
  if (isHeadingFile(name)) {
    ++scan->files;
    if (scan->folder != NULL) {
      hasFile(scan->folder, (Text){scan->name, scan->size});
    }
  }
  scan->isInFile = false;
}

static void takeText(void* data, const xmlChar* text, int length) {
  Scan* scan = data;
  if (scan->isInFile && scan->size + (size_t)length < sizeof scan->name) {
    memcpy(scan->name + scan->size, text, (size_t)length);
    scan->size += (size_t)length;
  }
}

static void ignoreText(void* data, const xmlChar* text, int length) {
  (void)data;
  (void)text;
  (void)length;
}

long floorScan(const char* bookPath, const char* folder) {
  xmlSAXHandler handler = {.initialized = XML_SAX2_MAGIC,
                           .startElementNs = beginElement,
                           .endElementNs = endElement,
                           .characters = takeText,
                           .ignorableWhitespace = ignoreText};
  Scan scan = {.folder = folder};
  return xmlSAXUserParseFile(&handler, &scan, bookPath) == 0 ? scan.files : -1;
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
  return xmlReadFile(
      path, NULL, XML_PARSE_NOBLANKS | XML_PARSE_COMPACT | XML_PARSE_NONET | XML_PARSE_NOERROR);
}

/// The elements in the element that the document is a list of: as many as a catalogue has books.
static long countEntries(xmlDoc* document) {
  xmlNode* list = xmlDocGetRootElement(document);
  if (xmlChildElementCount(list) == 1) {
    list = xmlFirstElementChild(list);
  }
  return (long)xmlChildElementCount(list);
}

/// How many nodes a query finds, each of whose text is taken.
static long countTexts(xmlDoc* document, const char* query) {
  xmlXPathContext* context = xmlXPathNewContext(document);
  context->node = (xmlNode*)document;
  xmlXPathObject* found = xmlXPathEval((const xmlChar*)query, context);
  long count = found == NULL ? -1 : 0;
  const xmlNodeSet* nodes = found == NULL ? NULL : found->nodesetval;
  for (; nodes != NULL && count < nodes->nodeNr; ++count) {
    xmlFree(xmlNodeGetContent(nodes->nodeTab[count]));
  }
  xmlXPathFreeObject(found);
  xmlXPathFreeContext(context);
  return count;
}

long floorParse(const char* path) {
  xmlDoc* document = xmlReadFile(path, NULL, XML_PARSE_COMPACT);
  if (document == NULL) {
    return -1;
  }
  xmlFreeDoc(document);
  return 0;
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
  const long count = countTexts(document, query);
  xmlFreeDoc(document);
  return count;
}

/// Looks for every file that an element `HFile` below `node` names. Answers how many there are.
static long lookUpFiles(const xmlNode* node, const char* folder) {
  long files = 0;
  for (; node != NULL; node = node->next) {
    if (node->type != XML_ELEMENT_NODE) {
      continue;
    }
    if (isHeadingFile(node->name)) {
      xmlChar* name = xmlNodeGetContent(node);
      hasFile(folder, (Text){(char*)name, strlen((const char*)name)});
      xmlFree(name);
      ++files;
    } else {
      files += lookUpFiles(node->children, folder);
    }
  }
  return files;
}

long floorBookFile(const char* bookPath, const char* folder) {
  static const char* const kTaken[] = {
      "Book_Master/Book/Book_Name", "Book_Master/Book/Book_Acro", "Book_Master/Book/Book_Path"};
  xmlDoc* document = loadDocument(bookPath);
  if (document == NULL) {
    return -1;
  }
  bool isWhole = true;
  for (size_t i = 0; i < sizeof kTaken / sizeof *kTaken; ++i) {
    isWhole = countTexts(document, kTaken[i]) == 1 && isWhole;
  }
  const long files = lookUpFiles(xmlDocGetRootElement(document), folder);
  xmlFreeDoc(document);
  return isWhole ? files : -1;
}

long floorLoadAndSave(const char* path) {
  return floorLoadAndSaveAs(path, path);
}

long floorLoadAndSaveAs(const char* path, const char* as) {
  xmlDoc* document = loadDocument(path);
  if (document == NULL) {
    return -1;
  }
  const long count = saveDocument(document, as) ? countEntries(document) : -1;
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

static int compareTexts(const void* left, const void* right) {
  return strcasecmp(*(const char* const*)left, *(const char* const*)right);
}

long floorSort(const char* const* texts, size_t count) {
  const char** sorted = malloc((count + 1) * sizeof *sorted);
  memcpy(sorted, texts, count * sizeof *sorted);
  qsort(sorted, count, sizeof *sorted, compareTexts);
  long ordered = count > 0 ? 1 : 0;
  for (size_t i = 1; i < count; ++i) {
    ordered += strcasecmp(sorted[i - 1], sorted[i]) <= 0;
  }
  free(sorted);
  return ordered;
}
