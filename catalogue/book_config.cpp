#include "catalogue/book_config.h"

#include "catalogue/book_deletion.h"
#include "catalogue/book_installation.h"
#include "catalogue/book_merge.h"
#include "catalogue/book_properties.h"
#include "catalogue/book_queries.h"
#include "catalogue/book_rename.h"
#include "catalogue/library_selection.h"
#include "sidefiles/category_creation.h"
#include "sidefiles/category_filing.h"
#include "sidefiles/category_list.h"
#include "sidefiles/category_rebuild.h"
#include "sidefiles/category_sort.h"

namespace quorbind {

std::string Book_Config::QuorLocation(const std::string& vstrQuorName) {
  return quorbind::QuorLocation(module_.platform, vstrQuorName);
}

std::vector<std::string> Book_Config::QuorNames() {
  return quorbind::QuorNames(module_.platform);
}

std::vector<std::string> Book_Config::BookInfo(const std::string& vstrtocpath) {
  return quorbind::BookInfo(module_.platform, vstrtocpath);
}

std::vector<std::string> Book_Config::CategorieInfo(const std::string& vstrtocpath,
                                                    const std::string& vstrBookName) {
  return quorbind::CategorieInfo(module_.platform, vstrtocpath, vstrBookName);
}

void Book_Config::strFolderLinkInfo(const std::string& vstrtocpath,
                                    const std::string& vstrBookName,
                                    std::string& rstrFolderName,
                                    std::string& rstrFileLink) {
  quorbind::strFolderLinkInfo(
      module_.platform, vstrtocpath, vstrBookName, rstrFolderName, rstrFileLink);
}

std::string Book_Config::GetBookAcro(const std::string& vstrtocpath,
                                     const std::string& vstrBookName) {
  return quorbind::GetBookAcro(module_.platform, vstrtocpath, vstrBookName);
}

void Book_Config::strBookAcroInfo(const std::string& vstrtocpath, const std::string& vstrBookName) {
  quorbind::strBookAcroInfo(module_, vstrtocpath, vstrBookName);
}

void Book_Config::UpdateBookNameAcro(const std::string& vstrBookPath,
                                     const std::string& vstrBookName,
                                     const std::string& vstrBookAcro) {
  quorbind::UpdateBookNameAcro(module_, vstrBookPath, vstrBookName, vstrBookAcro);
}

void Book_Config::DeleteQuorNode(const std::string& vstrQuorTOcPath,
                                 const std::string& vstrBookName) {
  quorbind::DeleteQuorNode(module_.platform, vstrQuorTOcPath, vstrBookName);
}

void Book_Config::strMatchingBooksInfo(const std::string& vstrMainTocPAth,
                                       const std::string& vstrtocpath) {
  quorbind::strMatchingBooksInfo(module_.platform, vstrMainTocPAth, vstrtocpath);
}

bool Book_Config::mbsetQuorBookProperties(const std::string& vstrtocpath,
                                          const std::string& vstrBookName,
                                          const TextArray& rarrsBCategories,
                                          const std::string& vstrFolder,
                                          const std::string& vstrFullink) {
  return quorbind::mbsetQuorBookProperties(
      module_, vstrtocpath, vstrBookName, rarrsBCategories, vstrFolder, vstrFullink);
}

void Book_Config::CreateQuorBookNodeForSEntry(const std::string& strTocFile,
                                              const std::string& vstrBookName,
                                              const std::string& /*vstrFolder*/,
                                              const std::string& vstrType,
                                              const std::string& vstrProductName,
                                              std::int32_t vlngInstallType,
                                              bool vblnChkCateFlag,
                                              const TextArray& strBookInfo) {
  quorbind::CreateQuorBookNodeForSEntry(module_,
                                        strTocFile,
                                        vstrBookName,
                                        vstrType,
                                        vstrProductName,
                                        vlngInstallType,
                                        vblnChkCateFlag,
                                        strBookInfo);
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
