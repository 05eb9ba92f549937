// Bytes as what stands in a workbook's cells: one row a line, cells between tabs, and a line `--`
// between the headings and the list of books. The books are added.

#include <string>
#include <vector>

#include "catalogue/names.h"
#include "platform/paths.h"
#include "platform/text.h"
#include "platform/text_encoding.h"
#include "sidefiles/keyword_rules.h"
#include "sidefiles/names.h"
#include "tests/fuzz/claim.h"
#include "tests/fuzz/fuzzed_library.h"
#include "tests/fuzz/targets.h"
#include "tests/support/paper_spreadsheets.h"
#include "toc/toc_check.h"
#include "workflow/forms/name_rules.h"

namespace quorbind::testing {

namespace {

constexpr std::string_view kNextSheet = "--";

std::vector<PaperSheet> sheetsOf(const std::string& text) {
  std::vector<PaperSheet> sheets(1);
  for (const std::string_view line : Pieces(text, "\n")) {
    if (line == kNextSheet) {
      sheets.emplace_back();
      continue;
    }
    const Pieces cells(line, "\t");
    sheets.back().emplace_back(cells.begin(), cells.end());
  }
  return sheets;
}

/// The texts of all elements of that name in a file of the library.
std::vector<std::string> textsIn(FuzzedLibrary& library, const char* file, std::string_view name) {
  const auto document = library.platform().xml.createDocument();
  claim(document->load(componentPath(file)).loaded, "a file of the library can be read");
  std::vector<std::string> texts;
  for (const XmlNode& node : document->elementsByName(name)) {
    texts.push_back(node.text());
  }
  return texts;
}

void claimRulesAreKept(FuzzedLibrary& library) {
  for (const std::string& keyword :
       textsIn(library, library_file::kKeywords, keyword_names::kKeyword)) {
    const auto fault = findKeywordFault(keyword);
    claim(!fault || !fault->endsList, "a keyword keeps the rules of keywords");
  }
  for (const std::string& category :
       textsIn(library, library_file::kCategories, category_names::kName)) {
    claim(!trimBlanks(category).empty(), "a category has a name");
  }
  for (const std::string& acronym :
       textsIn(library, library_file::kCatalogue, catalogue_names::kAcro)) {
    claim(!refusalOfAcronym(acronym), "an acronym keeps the rules of acronyms");
  }
  for (const std::string& folder :
       textsIn(library, library_file::kCatalogue, catalogue_names::kFolder)) {
    claim(folder.empty() || staysInFolder(folder), "a book lies in a folder of the library");
  }
}

}  // namespace

void fuzzBookList(std::string_view bytes) {
  FuzzedLibrary& library = FuzzedLibrary::restored();
  library.files().write("in/books.xls", "");
  PaperSpreadsheets spreadsheets;
  spreadsheets.put(componentPath("in/books.xls"), sheetsOf(toValidUtf8(bytes)));
  library.add("books.xls", TocCheck::kExcel, spreadsheets);
  claimRulesAreKept(library);
  library.claimIsWhole();
}

}  // namespace quorbind::testing
