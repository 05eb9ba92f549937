#include "toolset/link_file_services.h"

#include <memory>
#include <utility>
#include <vector>

#include "catalogue/names.h"
#include "platform/file_system.h"
#include "platform/text_file.h"
#include "platform/text_index.h"
#include "platform/text_store.h"
#include "platform/xml_writer.h"
#include "sidefiles/names.h"
#include "toolset/loaded_document.h"

namespace quorbind {

namespace {

std::string identifierQuery() {
  return std::string(link_names::kLinks)
      .append("/")
      .append(link_names::kList)
      .append("/")
      .append(link_names::kId);
}

/// The text that identifies an entry; one without it can't be linked to, and counts as empty.
std::string keyOf(const XmlNode& identifier) {
  const XmlNode key = identifier.child(link_names::kLinkId);
  return key ? key.text() : std::string();
}

/// The element that holds the identifiers; made when it is missing.
XmlNode listIn(XmlDocument& document) {
  const XmlNode root = document.select(link_names::kLinks);
  XmlNode list = root.child(link_names::kList);
  if (!list) {
    list = document.createElement(link_names::kList);
    root.append(list);
  }
  return list;
}

/// The identifiers of a file in their order, in a fraction of the memory that its document takes.
class ListedIdentifiers final : public XmlElementVisitor {
 public:
  void begin() override {
    texts_.clear();
    ends_.clear();
  }
  void visit(const XmlNode& identifier) override {
    texts_.add(keyOf(identifier));
    for (XmlNode field = identifier.firstChild(); field; field = field.nextSibling()) {
      texts_.add(field.name());
      texts_.add(field.text());
    }
    ends_.push_back(texts_.size());
  }

  [[nodiscard]] std::size_t count() const { return ends_.size(); }
  [[nodiscard]] std::string_view key(std::size_t number) const { return texts_.at(begin(number)); }
  [[nodiscard]] XmlNode copyOf(std::size_t number, XmlDocument& target) const {
    XmlNode copy = target.createElement(link_names::kId);
    for (std::size_t at = begin(number) + 1; at < ends_[number]; at += 2) {
      const XmlNode field = target.createElement(texts_.at(at));
      field.setText(texts_.at(at + 1));
      copy.append(field);
    }
    return copy;
  }

 private:
  [[nodiscard]] std::size_t begin(std::size_t number) const {
    return number == 0 ? 0 : ends_[number - 1];
  }

  /// Of each identifier its key, and then of each field the name and the text.
  TextStore texts_;
  std::vector<std::size_t> ends_;
};

/// Appends what `target` lacks of `source` and answers whether there was anything.
bool merge(XmlDocument& target, const ListedIdentifiers& source) {
  TextIndex known;
  for (const XmlNode& identifier : target.selectAll(identifierQuery())) {
    known.add(keyOf(identifier));
  }
  const std::size_t knownBefore = known.size();
  const XmlNode list = listIn(target);
  for (std::size_t number = 0; number < source.count(); ++number) {
    if (known.add(source.key(number)).second) {
      list.append(source.copyOf(number, target));
    }
  }
  return known.size() != knownBefore;
}

}  // namespace

ReferenceLinkFileServices::ReferenceLinkFileServices(FileSystem& files,
                                                     XmlLibrary& xml,
                                                     ReferenceLibraryServices library)
    : files_(files), xml_(xml), library_(std::move(library)) {}

void ReferenceLinkFileServices::GenerateXMLHeader(std::string_view path,
                                                  std::string_view description,
                                                  std::string_view root) {
  TextWriter file(files_, path);
  file.writeLine(kUnicodeDeclaration);
  XmlWriter writer([&file](std::string_view text) { file.write(text); });
  writer.comment(description);
  writer.startElement(root);
  writer.endDocument();
  file.close();
}

void ReferenceLinkFileServices::MergeLinkIDFiles(std::string_view target, std::string_view source) {
  if (files_.sameFile(target, source)) {
    return;
  }
  auto identifiers = std::make_unique<ListedIdentifiers>();
  requireLoaded(xml_.visitSelected(source, identifierQuery(), *identifiers), source);
  const bool isNew = !files_.fileExists(target);
  if (isNew) {
    GenerateXMLHeader(target, link_names::kDescription, link_names::kLinks);
  }
  const auto document = loadDocument(xml_, target);
  const bool hasMore = merge(*document, *identifiers);
  // Not needed for the save, whose document is large enough.
  identifiers.reset();
  if (hasMore || isNew) {
    document->save(target);
  }
}

std::string ReferenceLinkFileServices::GetFolderName(std::string_view acronym,
                                                     std::string_view product) {
  const auto catalogue = xml_.createDocument();
  catalogue->load(
      library_.docsFolder().append(product).append("\\").append(catalogue_names::kFile));
  for (const XmlNode& book : catalogue->selectAll(catalogue_names::kBookPath)) {
    const XmlNode acro = book.child(catalogue_names::kAcro);
    if (acro && acro.text() == acronym) {
      const XmlNode folder = book.child(catalogue_names::kFolder);
      return folder ? folder.text() : std::string(acronym);
    }
  }
  return std::string(acronym);
}

}  // namespace quorbind
