// Bytes as the export of a page or a workbook: its first entry written and cut again, the place
// that it states, the link identifiers that it carries, and the book file that is generated.

#include <algorithm>
#include <string>

#include "bookxml/toc_to_xml.h"
#include "platform/paths.h"
#include "platform/text.h"
#include "platform/text_encoding.h"
#include "sidefiles/link_identifiers.h"
#include "sidefiles/names.h"
#include "tests/fuzz/claim.h"
#include "tests/fuzz/fuzzed_library.h"
#include "tests/fuzz/targets.h"
#include "toc/book_place.h"
#include "toc/text_form.h"

namespace quorbind::testing {

namespace {

constexpr const char* kExport = "in/page_Temp.txt";

/// A field that neither holds a mark nor makes one with the mark behind it.
bool isField(std::string_view text) {
  return std::string(text).append(text_form::kMarker).find(text_form::kMarker) == text.size();
}

/// Takes what stands in front of the next line end for a field.
std::string_view nextField(std::string_view& text) {
  const std::string_view field = text.substr(0, text.find('\n'));
  text.remove_prefix(std::min(field.size() + 1, text.size()));
  return isField(field) ? field : std::string_view();
}

void claimEntryComesBack(std::string_view text) {
  const text_form::Entry entry{.level = static_cast<std::int16_t>(text.size()),
                               .name = nextField(text),
                               .file = nextField(text),
                               .subLink = nextField(text),
                               .fLinkValue = nextField(text),
                               .bookLinkValue = nextField(text)};
  const std::string line = text_form::lineOf(entry);
  const Pieces pieces(line, text_form::kMarker);
  claim(pieces.count() == 13, "a line has six fields");
  claim(pieces.at(text_form::kLevel) == std::to_string(entry.level), "a level comes back");
  claim(pieces.at(text_form::kName) == entry.name, "a name comes back");
  claim(pieces.at(text_form::kFile) == entry.file, "a file comes back");
  claim(pieces.at(text_form::kSubLink) == entry.subLink, "a bookmark comes back");
  claim(pieces.at(text_form::kFLinkValue) == entry.fLinkValue, "an FLinkValue comes back");
  claim(pieces.at(text_form::kBookLinkValue) == entry.bookLinkValue, "a book link comes back");
}

void claimPlaceIsInLibrary(const StatedPlace& place) {
  const bool isUsed = place.folder && !place.refusal && !place.folder->empty();
  claim(!isUsed || staysInFolder(*place.folder), "a stated folder is one of the library");
}

void recordLinks(FuzzedLibrary& library) {
  ProcessState state;
  state.currentProductName = "Plant";
  GenerateBookLinkID(library.platform(), state, "FUZ", componentPath(kExport));
  const auto links = library.platform().xml.createDocument();
  claim(links->load(componentPath(library_file::kLinks)).loaded, "the identifiers can be read");
  for (const XmlNode& id : links->selectAll("LINKS/IBD/ID")) {
    claim(!trimBlanks(id.child(link_names::kFullLink).text()).empty(),
          "an identifier leads somewhere");
  }
}

}  // namespace

void fuzzExportLine(std::string_view bytes) {
  claimEntryComesBack(bytes);
  FuzzedLibrary& library = FuzzedLibrary::restored();
  library.files().write(kExport, bytes);
  claimPlaceIsInLibrary(statedPlaceInEntries(toValidUtf8(bytes), 3));
  claimPlaceIsInLibrary(readStatedPlace(library.platform(), componentPath(kExport)));
  recordLinks(library);
  Module module(library.platform());
  CTOCToXML(module).mstrGenerateXMLFromTOC(
      componentPath(kExport), "", "Fuzz", "FUZ", "page.htm", "Plant");
  library.claimIsWhole();
}

}  // namespace quorbind::testing
