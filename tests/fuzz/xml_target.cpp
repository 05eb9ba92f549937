// Bytes as any of the XML files that a library and its books consist of. The first byte chooses the
// operation, the second the file; what follows is what stands in it. A kept input is called as
// xmlCaseOf calls it, unless its name says what is odd about its content.

#include <algorithm>
#include <string>

#include "platform/text.h"
#include "tests/bad_input/library_operations.h"
#include "tests/fuzz/claim.h"
#include "tests/fuzz/fuzzed_library.h"
#include "tests/fuzz/targets.h"

namespace quorbind::testing {

namespace {

constexpr const char* kScratch = "in/input.xml";

/// The elements of a document in order, with one of their attributes, as a scan tells them.
class ElementRow final : public XmlScanHandler {
 public:
  void startElement(std::string_view name, const XmlScanAttributes& attributes) override {
    row_.append("<").append(name).append(" ").append(attributes.value("id"));
  }
  void text(std::string_view /*text*/) override {}
  void endElement(std::string_view /*name*/) override { row_ += ">"; }

  [[nodiscard]] const std::string& row() const { return row_; }

 private:
  std::string row_;
};

/// The same from a tree.
void appendRow(std::string& row, const XmlNode& element) {
  const XmlNode id = element.attribute("id");
  row.append("<").append(element.name()).append(" ").append(id ? id.text() : std::string());
  for (const XmlNode& child : element.children()) {
    if (child.isElement()) {
      appendRow(row, child);
    }
  }
  row += ">";
}

void claimReadersAgree(FuzzedLibrary& library) {
  const std::string path = componentPath(kScratch);
  ElementRow scanned;
  const auto document = library.platform().xml.createDocument();
  const XmlLoadResult loading = document->load(path);
  const XmlLoadResult scanning = library.platform().xml.scan(path, scanned);
  claim(loading.loaded == scanning.loaded, "what loads can be scanned, and the other way round");
  claim(loading.loaded || !scanning.reason.empty(), "both say a reason");
  claim(loading.loaded == loading.reason.empty(), "a failure has a reason");
  if (!loading) {
    claim(!document->documentElement(), "a document that did not load is empty");
    return;
  }
  std::string row;
  appendRow(row, document->documentElement());
  claim(row == scanned.row(), "both tell the same elements");
  claimSavesAsItIs(library.files(), *document, kScratch);
}

template <typename List>
const auto& chosen(const List& list, char byte) {
  return list[static_cast<unsigned char>(byte) % list.size()];
}

/// The operation and the file that an input of two bytes and more chooses.
const LibraryOperation& operationOf(std::string_view bytes) {
  return chosen(libraryOperations(), bytes[0]);
}
const std::string& fileOf(std::string_view bytes) {
  static const std::vector<std::string> kFiles = xmlFilesOfLibrary();
  return chosen(kFiles, bytes[1]);
}

/// Whether a file still holds the bytes; a rename gives it another name.
bool isKept(const WholeLibrary::Tree& tree, std::string_view content) {
  return std::any_of(
      tree.begin(), tree.end(), [&](const auto& file) { return file.second == content; });
}

/// Whether the operation writes the file without reading it, as published.
bool isMadeAnew(const LibraryOperation& operation, const std::string& file) {
  return (file == library_file::kCategories &&
          (operation.name.starts_with("CreateBookCateXmlFile") ||
           operation.name.ends_with("with new categories"))) ||
         (file == library_file::kKeywords && operation.name == "CreateKeywordXmlFile");
}

/// Puts the sound file in the place of one that does not load, and what is published to be left
/// without a root then: new categories whose defaults can't be had.
void putBack(FuzzedLibrary& library, const std::string& file) {
  library.files().write(file, soundText(file));
  if (file == library_file::kDefaults) {
    library.files().write(library_file::kCategories, soundText(library_file::kCategories));
  }
}

}  // namespace

std::string xmlCaseOf(std::string_view bytes) {
  const std::string_view file = fileOf(bytes);
  const std::size_t stem = file.rfind('/') + 1;
  return replaceAll(operationOf(bytes).name, " ", "_")
      .append("-")
      .append(file.substr(stem, file.rfind('.') - stem));
}

void fuzzXml(std::string_view bytes) {
  if (bytes.size() < 2) {
    return;
  }
  FuzzedLibrary& library = FuzzedLibrary::restored();
  const LibraryOperation& operation = operationOf(bytes);
  const std::string& file = fileOf(bytes);
  const std::string_view content = bytes.substr(2);

  library.files().write(kScratch, content);
  claimReadersAgree(library);
  library.files().remove(kScratch);

  library.files().write(file, content);
  const bool loads = library.platform().xml.createDocument()->load(componentPath(file)).loaded;
  const OperationEnd end = endOf(operation, library.library());
  claim(loads || isKept(end.tree, content) || isMadeAnew(operation, file),
        "a file that does not load is kept as it is");
  if (!loads) {
    putBack(library, file);
  }
  library.claimIsWhole(loads ? std::string_view() : content);
}

}  // namespace quorbind::testing
