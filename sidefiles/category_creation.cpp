#include "sidefiles/category_creation.h"

#include <optional>
#include <vector>

#include "catalogue/names.h"
#include "platform/error_trap.h"
#include "platform/locale.h"
#include "platform/text_file.h"
#include "platform/xml_document.h"
#include "platform/xml_writer.h"
#include "resources/file_comments.h"
#include "sidefiles/names.h"

namespace quorbind {

namespace {

constexpr std::string_view kIndent = "    ";
constexpr std::string_view kTitle = " Book Categories data file ";

using Names = std::vector<std::string>;

/// The names of a server's default categories; nothing when their file does not load.
std::optional<Names> readDefaults(const Platform& platform,
                                  const std::string& serverPath,
                                  std::int32_t installationType) {
  const auto defaults = platform.xml.createDocument();
  if (!defaults->load(serverPath + std::string(server_names::kDefaultCategoriesFile))) {
    return std::nullopt;
  }
  Names names;
  for (const XmlNode& name : defaults->selectAll(defaultCategoriesQuery(installationType))) {
    names.push_back(name.text());
  }
  return names;
}

void writeCategoryHeader(TextWriter& file, const Locale& locale) {
  const std::string indent(kIndent);
  file.writeLine(kUnicodeDeclaration);
  file.writeLine(std::string("<!-- ").append(file_comment::kMaker));
  file.writeLine(indent + std::string(file_comment::kFamily));
  file.writeLine((indent + std::string(file_comment::kProduct)).append(kTitle));
  file.writeLine(indent + locale.generalDate(locale.now()));
  file.writeLine((indent + std::string(file_comment::kVersion)).append(" "));
  file.writeLine((indent + std::string(file_comment::kContact)).append(" -->"));
}

void GenerateXMLTag(UserInterface& ui,
                    XmlWriter& writer,
                    std::string_view name,
                    std::string_view text) {
  trapped(ui, source::kGenerateCategoryTag, [&] { writer.textElement(name, text); });
}

std::string treeOf(UserInterface& ui, const Names& categories) {
  std::string tree;
  XmlWriter writer([&tree](std::string_view text) { tree.append(text); });
  writer.startElement(category_names::kSet);
  for (const std::string& name : categories) {
    writer.startElement(category_names::kCategory);
    GenerateXMLTag(ui, writer, category_names::kName, name);
    writer.endElement();
  }
  writer.endDocument(XmlLastLine::kOpen);
  return tree;
}

}  // namespace

std::string defaultCategoriesQuery(std::int32_t installationType) {
  using namespace default_category_names;
  return std::string(kDefaults)
      .append("/")
      .append(installationType == kDeveloperProInstallation ? kDeveloperPro : kDeveloper)
      .append("/")
      .append(kName);
}

void CreateBookCateXmlFile(const Platform& platform,
                           const std::string& vstrServerPath,
                           const std::string& vstrPath,
                           std::int32_t vlngInstallType,
                           bool blnCRM) {
  trapped(platform.ui, source::kCreateBookCateXmlFile, [&] {
    TextWriter file(platform.files, vstrPath);
    std::optional<Names> categories = Names();
    if (!blnCRM) {
      categories = readDefaults(platform, vstrServerPath, vlngInstallType);
    }
    writeCategoryHeader(file, platform.locale);
    if (categories) {
      if (!blnCRM) {
        categories->emplace_back(category_names::kOther);
      }
      file.write(treeOf(platform.ui, *categories));
    }
    file.close();
    if (!categories) {
      raise(ErrorNumber::kObjectNotSet);
    }
  });
}

}  // namespace quorbind
