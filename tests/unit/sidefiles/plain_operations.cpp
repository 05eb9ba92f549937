#include "tests/unit/sidefiles/plain_operations.h"

#include <cstdint>

#include "platform/error_trap.h"
#include "platform/file_system.h"
#include "platform/number.h"
#include "platform/text.h"
#include "platform/text_file.h"
#include "platform/toolset.h"
#include "platform/xml_document.h"
#include "platform/xpath_query.h"
#include "sidefiles/keyword_file.h"
#include "sidefiles/keyword_rules.h"

namespace quorbind::testing::plain {

namespace {

XmlNode appendElement(XmlDocument& document,
                      const XmlNode& parent,
                      std::string_view name,
                      std::string_view text) {
  const XmlNode element = document.createElement(name);
  element.setText(text);
  parent.append(element);
  return element;
}

std::string categoryNamed(const std::string& name) {
  return "BookSet_Categories/Category[CategoryName=" + quotedForQuery(name, '\'') + "]";
}

bool loadIfThere(const Platform& platform, XmlDocument& document, const std::string& path) {
  return platform.files.fileExists(path) && document.load(path);
}

}  // namespace

void addCategoryNode(const Platform& platform,
                     ProcessState& state,
                     const std::string& category,
                     const std::string& acronym) {
  trapped(platform.ui, source::kAddCategoryNode, [&] {
    const auto document = platform.xml.createDocument();
    if (!loadIfThere(platform, *document, state.currentCategoriesPath)) {
      return;
    }
    if (const XmlNode found = document->select(categoryNamed(category))) {
      bool present = false;
      for (const XmlNode& node : document->selectAll(categoryNamed(category) + "/BookAcro")) {
        present = present || node.text() == acronym;
      }
      if (!present) {
        appendElement(*document, found, "BookAcro", acronym);
      }
      document->save(state.currentCategoriesPath);
    } else if (!category.empty()) {
      const XmlNode other = document->select(categoryNamed("Other Category"));
      const XmlNode made = document->createElement("Category");
      appendElement(*document, made, "CategoryName", category);
      document->select("BookSet_Categories").insertBefore(made, other);
      appendElement(*document, made, "BookAcro", acronym);
      document->save(state.currentCategoriesPath);
    }
  });
}

void addBookAcro(const Platform& platform,
                 const std::string& category,
                 const TextArray& acronyms,
                 const std::string& path) {
  trapped(platform.ui, source::kAddBookAcro, [&] {
    const auto document = platform.xml.createDocument();
    if (!loadIfThere(platform, *document, path)) {
      return;
    }
    const XmlNode found = document->select(categoryNamed(category));
    bool present = true;
    for (std::int64_t i = acronyms.lowerBound + std::int64_t{1}; i <= acronyms.upperBound(); ++i) {
      if (found && found.children().size() <= 1) {
        present = false;
      } else if (found) {
        for (const XmlNode& node : found.selectAll("BookAcro")) {
          present = node.text() == acronyms.at(i);
          if (present) {
            break;
          }
        }
      }
      if (!present) {
        appendElement(*document, found, "BookAcro", acronyms.at(i));
      }
    }
    document->save(path);
  });
}

void addOtherCategory(const Platform& platform,
                      const std::string& category,
                      const TextArray& acronyms,
                      const std::string& path) {
  trapped(platform.ui, source::kAddOtherCategory, [&] {
    const auto document = platform.xml.createDocument();
    if (!loadIfThere(platform, *document, path)) {
      return;
    }
    const XmlNode found = document->select(categoryNamed(category));
    const std::vector<XmlNode> nodes = document->selectAll(categoryNamed(category) + "/BookAcro");
    for (std::int64_t i = acronyms.lowerBound + std::int64_t{1}; i <= acronyms.upperBound(); ++i) {
      std::string chosen = acronyms.at(i);
      if (!nodes.empty()) {
        bool present = false;
        std::int64_t j = 0;
        for (; !present && j < static_cast<std::int64_t>(nodes.size()); ++j) {
          const std::string text = nodes[static_cast<std::size_t>(j)].text();
          present = !text.empty() && text == acronyms.at(i);
        }
        if (present) {
          continue;
        }
        chosen = acronyms.at(j);
      }
      appendElement(*document, found, "BookAcro", chosen);
      document->save(path);
    }
  });
}

TextArray getBookAcroValue(const Platform& platform,
                           const ProcessState& state,
                           const std::string& category,
                           const std::string& cataloguePath) {
  TextArray matched{{""}};
  TextArray uncategorised{{""}};
  const auto catalogue = platform.xml.createDocument();
  catalogue->load(cataloguePath);
  for (const XmlNode& book : catalogue->elementsByName("Book")) {
    std::string acronym;
    for (const XmlNode& child : book.children()) {
      if (child.name() == "Book_Acro") {
        acronym = child.text();
      } else if (child.name() == "Book_Categories") {
        if (!child.firstChild()) {
          uncategorised.texts.push_back(acronym);
        }
        for (const XmlNode& named : child.children()) {
          if (named.text() == category) {
            matched.texts.push_back(acronym);
          }
        }
      }
    }
    if (uncategorised.texts.size() > 1) {
      addBookAcro(platform, "Other Category", uncategorised, state.currentCategoriesPath);
    }
  }
  return matched;
}

void getBookAcroInfo(const Platform& platform,
                     ProcessState& state,
                     const std::string& path,
                     const std::string& cataloguePath) {
  trapped(platform.ui, source::kGetBookAcroInfo, [&] {
    state.currentCategoriesPath = path;
    const auto document = platform.xml.createDocument();
    if (!loadIfThere(platform, *document, path)) {
      return;
    }
    for (const XmlNode& category : document->select("BookSet_Categories").children()) {
      for (const XmlNode& child : category.children()) {
        const std::string name = child.text();
        addBookAcro(platform, name, getBookAcroValue(platform, state, name, cataloguePath), path);
      }
    }
  });
}

void addKeyword(const Platform& platform,
                const std::string& path,
                const std::string& book,
                const std::string& keyword) {
  trapped(platform.ui, source::kAddKeywordsToXmlFile, [&] {
    const auto document = platform.xml.createDocument();
    const auto enterBook = [&] {
      const XmlNode entered = document->createElement("Book");
      entered.setAttribute("Book_Name", book);
      document->select("Books").append(entered);
      const XmlNode list = appendElement(*document, entered, "Keywords", "");
      appendElement(*document, list, "Keyword", keyword);
      document->save(path);
    };
    if (!platform.files.fileExists(path)) {
      CreateKeywordXmlFile(platform, path);
      if (document->load(path)) {
        enterBook();
      }
      return;
    }
    if (!document->load(path)) {
      platform.ui.show({.text = "File does not exist", .icon = MessageIcon::kInformation});
      return;
    }
    if (trimBlanks(keyword).empty()) {
      return;
    }
    const std::string bookQuery = "/Books/Book[@ Book_Name=" + quotedForQuery(book, '\'') + "]";
    if (!document->select(bookQuery)) {
      enterBook();
      return;
    }
    const XmlNode list = document->select(bookQuery + "/Keywords");
    for (const XmlNode& known : list.selectAll("Keyword")) {
      if (known.text() == keyword) {
        return;
      }
    }
    appendElement(*document, list, "Keyword", keyword);
    document->save(path);
  });
}

void addKeywords(const Platform& platform,
                 const ProcessState& state,
                 const TextArray& keywords,
                 const std::string& path) {
  trapped(platform.ui, source::kAddKeywords, [&] {
    if (keywords.upperBound() < 1) {
      return;
    }
    for (const std::string& keyword : keywords.texts) {
      const std::string trimmed(trimBlanks(keyword));
      if (contains(keyword, "##")) {
        platform.ui.show({.text = "Search keyword should not contain '##' in it."});
        return;
      }
      if (contains(trimmed, " ")) {
        platform.ui.show(
            {.text = "Search keyword should not have any spaces in between the characters"});
        return;
      }
      if (CheckXMLCharacters(platform, trimmed, "Keywords")) {
        const auto rules = platform.toolset.createXmlTextRules();
        addKeyword(platform,
                   path,
                   state.currentBookName,
                   std::string(trimBlanks(rules->mstrReplaceSpecialCharecters(trimmed))));
      }
    }
  });
}

void addToLinkIdFile(const Platform& platform,
                     const std::string& path,
                     const std::string& identifier,
                     const std::string& fullLink,
                     const std::string& source,
                     const std::string& product,
                     const std::string& acronym) {
  trapped(platform.ui, source::kAddToLinkIdFile, [&] {
    const auto document = platform.xml.createDocument();
    if (platform.files.fileExists(path)) {
      document->load(path);
    } else {
      platform.toolset.createLinkFileServices()->GenerateXMLHeader(
          path, "Inter Book Linking data file", "LINKS");
      document->load(path);
      appendElement(*document, document->select("LINKS"), "IBD", "");
      document->save(path);
    }
    const XmlNode found =
        document->select("LINKS/IBD/ID[LinkID= " + quotedForQuery(identifier, '\'') + "]/LinkID");
    if (!found) {
      const auto rules = platform.toolset.createXmlTextRules();
      const XmlNode entry = document->createElement("ID");
      appendElement(*document, entry, "LinkID", rules->ReplaceSpecCharToXMLChar(identifier));
      appendElement(*document, entry, "FullLink", fullLink);
      appendElement(*document, entry, "LinkIDSourceFile", product + "\\" + source);
      appendElement(*document, entry, "BookAcro", acronym);
      document->select("LINKS/IBD").append(entry);
      document->save(path);
      return;
    }
    const XmlNode linkNode = found.nextSibling();
    if (!trimBlanks(linkNode.text()).empty()) {
      platform.ui.show(criticalMessage(identifier + " - Link ID already exist. "));
      return;
    }
    linkNode.setText(fullLink);
    linkNode.nextSibling().setText(product + "\\" + source);
    linkNode.nextSibling().nextSibling().nextSibling().setText(acronym);
    document->save(path);
  });
}

bool checkDuplicateLinkId(const Platform& platform, const std::string& identifier) {
  return trapped(platform.ui, source::kCheckDuplicateLinkId, false, [&] {
    const std::string server = platform.toolset.createLibraryServices()->GetQuorServer();
    for (const std::string& product :
         platform.toolset.createProductServices()->GetAvailableProducts()) {
      const std::string path = server + "Docs\\" + product + "\\Quor_LinkID.xml";
      const auto document = platform.xml.createDocument();
      if (product.empty() || !loadIfThere(platform, *document, path)) {
        continue;
      }
      for (const XmlNode& node : document->selectAll("LINKS/IBD/ID/LinkID")) {
        if (trimBlanks(node.text()) == trimBlanks(identifier)) {
          platform.ui.show(criticalMessage(identifier + " - Link ID already exist. "));
          return true;
        }
      }
    }
    return false;
  });
}

void generateBookLinkId(const Platform& platform,
                        const ProcessState& state,
                        const std::string& acronym,
                        const std::string& exportPath) {
  trapped(platform.ui, source::kGenerateBookLinkId, [&] {
    TextReader reader(platform.files, platform.locale, exportPath);
    std::vector<std::string> names(2);
    while (!reader.atEnd()) {
      const std::string line(reader.readLine());
      const Pieces pieces(line, "$@@$");
      if (pieces.count() < 2) {
        continue;
      }
      const std::int16_t level = toInteger16(trimBlanks(pieces.at(1)));
      if (level > static_cast<int>(names.size()) - 1) {
        names.emplace_back();
      }
      if (level < 0 || level >= static_cast<int>(names.size())) {
        raise(ErrorNumber::kSubscriptOutOfRange);
      }
      names[static_cast<std::size_t>(level)] = pieces.at(3);
      if (trimBlanks(pieces.at(11)) == "#NO_BOOKLINK#") {
        continue;
      }
      const Pieces parts(pieces.at(11), "@@@");
      const std::string identifier(trimBlanks(parts.at(0)));
      const std::string source(trimBlanks(parts.at(1)));
      std::string fullLink = acronym;
      for (std::size_t i = 1; static_cast<int>(i) <= level; ++i) {
        if (!trimBlanks(names[i]).empty()) {
          fullLink.append("@QUOR@").append(trimBlanks(names[i]));
        }
      }
      if (!checkDuplicateLinkId(platform, identifier)) {
        addToLinkIdFile(platform,
                        platform.toolset.createLibraryServices()->GetQuorServer() + "Docs\\" +
                            state.currentProductName + "\\Quor_LinkID.xml",
                        identifier,
                        fullLink,
                        source,
                        state.currentProductName,
                        acronym);
      }
    }
  });
}

}  // namespace quorbind::testing::plain
