#include "catalogue/book_config.h"

#include "catalogue/names.h"
#include "platform/error_trap.h"
#include "platform/xml_document.h"
#include "platform/xpath_query.h"
#include "sidefiles/category_creation.h"
#include "sidefiles/category_filing.h"
#include "sidefiles/category_list.h"
#include "sidefiles/category_rebuild.h"
#include "sidefiles/category_sort.h"

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

void Book_Config::AddBookCateToXMLFile(const std::string& vstrBookCatePath,
                                       const std::string& sBookCateName) {
  quorbind::AddBookCateToXMLFile(module_.platform, module_.state, vstrBookCatePath, sBookCateName);
}

void Book_Config::CreateBookCateXmlFile(const std::string& vstrServerPath,
                                        const std::string& vstrPath,
                                        std::int32_t vlngInstallType,
                                        bool blnCRM) {
  quorbind::CreateBookCateXmlFile(
      module_.platform, vstrServerPath, vstrPath, vlngInstallType, blnCRM);
}

void Book_Config::GetBookAcroInfo(const std::string& vstrQuorBookCatePath,
                                  const std::string& vstrQuorTOcPath) {
  quorbind::GetBookAcroInfo(module_.platform, module_.state, vstrQuorBookCatePath, vstrQuorTOcPath);
}

TextArray Book_Config::GetBookAcroValue(const std::string& vstrCateName,
                                        const std::string& vstrQuorTOcPath) {
  return quorbind::GetBookAcroValue(module_.platform, module_.state, vstrCateName, vstrQuorTOcPath);
}

void Book_Config::AddBookAcro(const std::string& vstrCateName,
                              const TextArray& vstrarrBookAcro,
                              const std::string& vstrQuorBookCatePath) {
  quorbind::AddBookAcro(module_.platform, vstrCateName, vstrarrBookAcro, vstrQuorBookCatePath);
}

void Book_Config::Addothercategory(const std::string& vstrCateName,
                                   const TextArray& vstrothCateBookAcro,
                                   const std::string& vstrCategoryPath) {
  quorbind::Addothercategory(
      module_.platform, module_.state, vstrCateName, vstrothCateBookAcro, vstrCategoryPath);
}

TextArray Book_Config::SortArray(TextArray& rarrsBookNames,
                                 TextArray& rarrsBookAcros,
                                 std::int16_t ivalue) {
  return quorbind::SortArray(module_.platform, rarrsBookNames, rarrsBookAcros, ivalue);
}

void Book_Config::EditBookCateToXMLFile(const std::string& vstrBookCatePath,
                                        const std::string& sBookCateName,
                                        const std::string& sBookCateOLDName) {
  quorbind::EditBookCateToXMLFile(
      module_.platform, module_.state, vstrBookCatePath, sBookCateName, sBookCateOLDName);
}

bool Book_Config::bCheckIfDefaultCategory(const std::string& vstrBookCatePath,
                                          const std::string& vstrCateName,
                                          std::int32_t vlngInstallType) {
  return quorbind::bCheckIfDefaultCategory(
      module_.platform, vstrBookCatePath, vstrCateName, vlngInstallType);
}

bool Book_Config::bCheckCategoryinQuorBookCategories(const std::string& vstrBookCatePath) {
  return quorbind::bCheckCategoryinQuorBookCategories(module_.platform, vstrBookCatePath);
}

}  // namespace quorbind
