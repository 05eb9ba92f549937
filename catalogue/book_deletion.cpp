#include "catalogue/book_deletion.h"

#include "catalogue/names.h"
#include "platform/error_trap.h"
#include "platform/xml_document.h"
#include "platform/xpath_query.h"

namespace quorbind {

void DeleteQuorNode(const Platform& platform,
                    const std::string& vstrQuorTOcPath,
                    const std::string& vstrBookName) {
  trapped(platform.ui, source::kDeleteNode, [&] {
    const auto catalogue = platform.xml.createDocument();
    if (!catalogue->load(vstrQuorTOcPath)) {
      return;
    }
    const XmlNode book = catalogue->select(
        elementsWith(catalogue_names::kBookPath, catalogue_names::kName, vstrBookName, '\''));
    if (book) {
      catalogue->select(catalogue_names::kBooksPath).remove(book);
    }
    catalogue->save(vstrQuorTOcPath);
  });
}

}  // namespace quorbind
