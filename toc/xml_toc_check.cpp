// The check of existing book files: what the rules of toc/xml_toc.h find, and what is taken over.

#include "bookxml/names.h"
#include "platform/error_trap.h"
#include "platform/paths.h"
#include "platform/xml_document.h"
#include "toc/toc_check.h"
#include "toc/xml_toc.h"
#include "workflow/inputs/catalogue_check.h"

namespace quorbind {

bool TocCheck::mbValidateXMLToc(std::string_view tocPath) {
  const Platform& platform = module_.platform;
  return trapped(platform.ui, source::kValidateXmlToc, false, [&] {
    const std::string folder(folderPartOf(tocPath));
    const auto book = platform.xml.createDocument();
    if (const auto refusal = loadXmlToc(*book, tocPath)) {
      tell(refusal->offered, refusal->violation);
      return false;
    }
    // From here on errors are ignored, statement by statement.
    for (const XmlNode& document : book->elementsByName(book_names::kHeadingFile)) {
      ignoringErrors([&] { mbCheckFilePath(tocPath, document.text(), folder); });
    }
    takeBookFrom(*book);
    const ProcessState& state = module_.state;
    const bool hasCatalogue = mbCheckQuorTOCForBook(
        module_, state.currentCataloguePath, state.currentBookName, state.currentBookAcro);
    if (state.cancelled) {
      return false;
    }
    if (hasCatalogue) {
      takeFolderFrom(*book);
    } else {
      askForFolder();
    }
    return true;
  });
}

void TocCheck::takeBookFrom(const XmlDocument& book) {
  ProcessState& state = module_.state;
  const auto takeUnlessKnown = [&book](std::string& value, std::string_view query) {
    if (value.empty()) {
      ignoringErrors([&] { value = book.select(query).text(); });
    }
  };
  takeUnlessKnown(state.currentBookName, book_names::kNamePath);
  takeUnlessKnown(state.currentBookAcro, book_names::kAcroPath);
  ignoringErrors([&] { state.recordedXmlAcro = book.select(book_names::kAcroPath).text(); });
  takeFolderFrom(book);
}

void TocCheck::takeFolderFrom(const XmlDocument& book) {
  ignoringErrors(
      [&] { mstrBookFolder_ = folderInBookPath(book.select(book_names::kPathPath).text()); });
}

void TocCheck::askForFolder() {
  std::string& remembered = module_.state.rememberedBookFolder;
  ignoringErrors([&] { module_.bookFolder.showModal(); });
  if (remembered.empty()) {
    ignoringErrors([&] { remembered = module_.bookFolder.Text1().text(); });
  }
  mstrBookFolder_ = remembered;
}

}  // namespace quorbind
