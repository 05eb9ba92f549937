#include "workflow/driver/quor_book.h"

#include "workflow/inputs/catalogue_check.h"
#include "workflow/inputs/form_input.h"

namespace quorbind {

Quor_Book::Quor_Book(Module& module, QuorBookEvents* events)
    : module_(module), tocCheck_(module), valuator_(module, tocCheck_, events) {}

bool Quor_Book::Book_Valuator(const std::string& vstrtocpath,
                              const std::string& vstrQuorTOcPath,
                              std::int16_t vintType,
                              const std::string& vstrProductName,
                              const std::string& vstrBookName,
                              const std::string& vstrBookAcro,
                              const std::string& vstrCategory,
                              const std::string& vstrKeywordsPath,
                              const std::string& vstrBookCategoryPath,
                              const std::string& strKeyWords,
                              const std::string& strCategory,
                              const std::string& spath,
                              std::int32_t vlngInstallType,
                              bool blnChkCateFlag,
                              const std::string& strServerPath) {
  return valuator_.run({.vstrtocpath = vstrtocpath,
                        .vstrQuorTOcPath = vstrQuorTOcPath,
                        .vintType = vintType,
                        .vstrProductName = vstrProductName,
                        .vstrBookName = vstrBookName,
                        .vstrBookAcro = vstrBookAcro,
                        .vstrCategory = vstrCategory,
                        .vstrKeywordsPath = vstrKeywordsPath,
                        .vstrBookCategoryPath = vstrBookCategoryPath,
                        .strKeyWords = strKeyWords,
                        .strCategory = strCategory,
                        .spath = spath,
                        .vlngInstallType = vlngInstallType,
                        .blnChkCateFlag = blnChkCateFlag,
                        .strServerPath = strServerPath});
}

bool Quor_Book::mbGetFormInput(const std::string& vstrQuorTOcPath, std::int16_t vintType) {
  return quorbind::mbGetFormInput(module_, vstrQuorTOcPath, vintType);
}

bool Quor_Book::mbCheckQuorTOCForBook(const std::string& vstrQuorTOcPath,
                                      const std::string& vstrBookName,
                                      const std::string& vstrBookAcro) {
  return quorbind::mbCheckQuorTOCForBook(module_, vstrQuorTOcPath, vstrBookName, vstrBookAcro);
}

}  // namespace quorbind
