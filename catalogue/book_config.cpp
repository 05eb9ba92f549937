#include "catalogue/book_config.h"

#include "catalogue/names.h"
#include "platform/error_trap.h"
#include "platform/xml_document.h"
#include "platform/xpath_query.h"

namespace quorbind {

void Book_Config::DeleteQuorNode(const std::string& vstrQuorTOcPath,
                                 const std::string& vstrBookName) {
  trapped(module_.platform.ui, source::kDeleteNode, [&] {
    const auto catalogue = module_.platform.xml.createDocument();
    if (!catalogue->load(vstrQuorTOcPath)) {
      return;
    }
    const XmlNode book = catalogue->select(std::string(catalogue_names::kBookPath)
                                               .append("[")
                                               .append(catalogue_names::kName)
                                               .append("=")
                                               .append(quotedForQuery(vstrBookName, '\''))
                                               .append("]"));
    if (book) {
      catalogue->select(catalogue_names::kBooksPath).remove(book);
    }
    catalogue->save(vstrQuorTOcPath);
  });
}

}  // namespace quorbind
