#include "bench/library_sample.h"

#include <functional>

#include "bookxml/names.h"
#include "catalogue/names.h"
#include "platform/text.h"
#include "platform/xml_writer.h"
#include "sidefiles/names.h"
#include "toc/text_form.h"

namespace quorbind::bench {

namespace {

/// A whole file with what `write` puts into it.
std::string fileWith(const std::function<void(XmlWriter&)>& write) {
  std::string text = std::string(kUnicodeDeclaration).append("\r\n");
  XmlWriter writer([&text](std::string_view piece) { text += piece; });
  write(writer);
  writer.endDocument();
  return testing::utf16File(text);
}

std::string numbered(std::string_view text, std::size_t number) {
  return std::string(text).append(std::to_string(number));
}

std::string fileNameOfBook(std::size_t book) {
  return hasBookXml(book) ? book_names::fileOf(acronymOfBook(book)) : kDocumentFile;
}

void writeBookEntry(XmlWriter& writer,
                    std::size_t book,
                    std::size_t categories,
                    std::string_view link) {
  using namespace catalogue_names;
  const bool isDocument = !hasBookXml(book);
  const std::string acronym = acronymOfBook(book);
  writer.startElement(kBook);
  writer.textElement(kName, nameOfBook(book));
  writer.textElement(kAcro, acronym);
  writer.startElement(kKey);
  writer.attribute(kKeyId, link);
  writer.text(kLibrary);
  writer.endElement();
  writer.textElement(kFolder, acronym);
  writer.startElement(kBookFile);
  if (isDocument) {
    writer.attribute(kBookFileType, "pdf");
  }
  writer.text(fileNameOfBook(book));
  writer.endElement();
  writer.startElement(kCategories);
  for (std::size_t category = 0; category < categories; ++category) {
    writer.textElement(kCategory, nameOfCategory(category));
  }
  writer.endElement();
  writer.endElement();
}

std::string bookXmlOf(std::size_t book, std::size_t headings) {
  using namespace book_names;
  return fileWith([&](XmlWriter& writer) {
    writer.startElement(kMaster);
    writer.startElement(kBook);
    writer.textElement(kName, nameOfBook(book));
    writer.textElement(kAcro, acronymOfBook(book));
    writer.startElement(kKey);
    writer.attribute(kKeyId, "");
    writer.endElement();
    writer.startElement(kCategories);
    writer.endElement();
    writer.endElement();
    writer.startElement(kHeadings);
    for (std::size_t heading = 0; heading < headings; ++heading) {
      writer.startElement(kHeading);
      writer.textElement(kHeadingName, numbered("Setting ", heading));
      writer.textElement(kHeadingFile, numbered("page", heading) + ".htm");
      writer.endElement();
    }
  });
}

}  // namespace

std::string nameOfBook(std::size_t book) {
  return numbered("Service Manual ", book) + " of the pump, in \xC2\xB5s";
}

std::string acronymOfBook(std::size_t book) {
  return numbered("B", book);
}

bool hasBookXml(std::size_t book) {
  constexpr std::size_t kBooksPerBookXml = 1'000;
  return book % kBooksPerBookXml == kBooksPerBookXml - 1;
}

std::string fileOfBook(std::size_t book) {
  return kLibraryFolder + acronymOfBook(book) + "/" + fileNameOfBook(book);
}

std::string nameOfCategory(std::size_t category) {
  return numbered("Category ", category);
}

std::string keywordOf(std::size_t index) {
  return numbered("keyword", index);
}

std::string identifierOf(std::size_t index) {
  return numbered("ID_", index);
}

std::string selectionListOf(std::size_t libraries) {
  using namespace selection_names;
  return fileWith([&](XmlWriter& writer) {
    writer.startElement(kList);
    writer.startElement(kQuors);
    for (std::size_t index = 0; index < libraries; ++index) {
      const std::string name = index == 0 ? kLibrary : numbered(kLibrary, index);
      writer.startElement(kQuor);
      writer.textElement(kName, name);
      writer.textElement(kLocation, std::string(server_names::kDocsFolder) + "\\" + name);
      writer.endElement();
    }
  });
}

std::string catalogueOf(std::size_t books, std::size_t categoriesOfEach, std::string_view link) {
  return fileWith([&](XmlWriter& writer) {
    writer.startElement(catalogue_names::kMaster);
    writer.startElement(catalogue_names::kBooks);
    for (std::size_t book = 0; book < books; ++book) {
      writeBookEntry(writer, book, categoriesOfEach, link);
    }
  });
}

std::string contentOfBook(std::size_t book) {
  return hasBookXml(book) ? bookXmlOf(book, /*headings=*/1) : "%PDF-1.7";
}

std::string bookFileOf(std::size_t headings) {
  return bookXmlOf(/*book=*/0, headings);
}

std::string categoriesFileOf(std::size_t categories, std::size_t books) {
  using namespace category_names;
  return fileWith([&](XmlWriter& writer) {
    writer.startElement(kSet);
    for (std::size_t category = 0; category < categories; ++category) {
      writer.startElement(kCategory);
      writer.textElement(kName, nameOfCategory(category));
      for (std::size_t book = 0; book < books; ++book) {
        writer.textElement(kBookAcro, acronymOfBook(book));
      }
      writer.endElement();
    }
    writer.startElement(kCategory);
    writer.textElement(kName, kOther);
  });
}

std::string defaultCategoriesOf(std::size_t categories) {
  using namespace default_category_names;
  return fileWith([&](XmlWriter& writer) {
    writer.startElement(kDefaults);
    writer.startElement(kDeveloper);
    for (std::size_t category = 0; category < categories; ++category) {
      writer.textElement(kName, nameOfCategory(category));
    }
  });
}

std::string keywordsFileOf(std::size_t keywords) {
  using namespace keyword_names;
  return fileWith([&](XmlWriter& writer) {
    writer.startElement(kBooks);
    writer.startElement(kBook);
    writer.attribute(kBookName, nameOfBook(0));
    writer.startElement(kKeywords);
    for (std::size_t index = 0; index < keywords; ++index) {
      writer.textElement(kKeyword, keywordOf(index));
    }
  });
}

std::string linksFileOf(std::size_t identifiers) {
  using namespace link_names;
  return fileWith([&](XmlWriter& writer) {
    writer.startElement(kLinks);
    writer.startElement(kList);
    for (std::size_t index = 0; index < identifiers; ++index) {
      writer.startElement(kId);
      writer.textElement(kLinkId, identifierOf(index));
      writer.textElement(kFullLink, acronymOfBook(0) + numbered("@QUOR@Setting ", index));
      writer.textElement(kSourceFile, std::string(kLibrary) + numbered("\\page", index) + ".htm");
      writer.textElement(kBookAcro, acronymOfBook(0));
      writer.endElement();
    }
  });
}

std::string exportWithIdentifiers(std::size_t identifiers) {
  std::string text = "\"Node Level\" \"Node Name\"\r\n\r\n";
  for (std::size_t index = 0; index < identifiers; ++index) {
    const std::string name = numbered("Setting ", index);
    const std::string link = identifierOf(index) + numbered("@@@page", index) + ".htm";
    text += text_form::lineOf({.level = 1, .name = name, .bookLinkValue = link}) + "\r\n";
  }
  return testing::utf16File(text);
}

bool fileSays(const testing::World& world, std::string_view name, std::string_view text) {
  constexpr std::size_t kMarkSize = 2;
  return contains(world.disk.read(name), testing::utf16File(text).substr(kMarkSize));
}

std::string element(std::string_view name, std::string_view text) {
  return std::string("<").append(name).append(">").append(text).append("</").append(name).append(
      ">");
}

std::string systemPathOf(const testing::World& world, std::string_view name) {
  return (world.disk.path() / name).string();
}

}  // namespace quorbind::bench
