#include "workflow/driver/quor_book.h"

#include "sidefiles/category_filing.h"
#include "sidefiles/keyword_file.h"
#include "sidefiles/keyword_list.h"
#include "sidefiles/keyword_rules.h"
#include "sidefiles/link_file.h"
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

std::int32_t Quor_Book::getExcelBookCount(Worksheet& vobjXLWSheetRead, std::int32_t vlCount) {
  return tocCheck_.excel().getExcelBookCount(vobjXLWSheetRead, vlCount);
}

void Quor_Book::AddKeywordsToXmlFile(const std::string& vstrKeywordsPath,
                                     const std::string& sBookName,
                                     const std::string& sKeyWord) {
  quorbind::AddKeywordsToXmlFile(module_.platform, vstrKeywordsPath, sBookName, sKeyWord);
}

void Quor_Book::EditKeywordsToXmlFile(const std::string& vstrKeywordsPath,
                                      const std::string& sBookName,
                                      const std::string& sKeyWord,
                                      const std::string& sOldKeyword) {
  quorbind::EditKeywordsToXmlFile(
      module_.platform, vstrKeywordsPath, sBookName, sKeyWord, sOldKeyword);
}

void Quor_Book::AddCategoryNode(const std::string& vstrCategory,
                                const std::string& vstrBookAcro,
                                const std::string& vstrxmlPath) {
  quorbind::AddCategoryNode(
      module_.platform, module_.state, vstrCategory, vstrBookAcro, vstrxmlPath);
}

void Quor_Book::CreateKeywordXmlFile(const std::string& vstrPath) {
  quorbind::CreateKeywordXmlFile(module_.platform, vstrPath);
}

void Quor_Book::AddKeywords(const TextArray& vstrArrKeywords, const std::string& vstrKeywordsPath) {
  quorbind::AddKeywords(module_.platform, module_.state, vstrArrKeywords, vstrKeywordsPath);
}

bool Quor_Book::CheckXMLCharacters(const std::string& strCurWord, const std::string& strBook) {
  return quorbind::CheckXMLCharacters(module_.platform, strCurWord, strBook);
}

void Quor_Book::AddToLinkIDFile(const std::string& strLinkIDFilePath,
                                const std::string& strLinkID,
                                const std::string& strFullLink,
                                const std::string& strSourceFilePath,
                                const std::string& strProjectName,
                                const std::string& strBookAcro) {
  quorbind::AddToLinkIDFile(module_.platform,
                            strLinkIDFilePath,
                            strLinkID,
                            strFullLink,
                            strSourceFilePath,
                            strProjectName,
                            strBookAcro);
}

}  // namespace quorbind
