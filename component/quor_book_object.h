#pragma once

#include <string_view>

#include "component/component_module.h"
#include "component/server/event_source.h"
#include "quorbind_com.h"
#include "workflow/driver/quor_book.h"

namespace quorbind {

/// `Quor_Book` as hosts see it.
class QuorBookObject final : public EventSource<::Quor_Book, _Quor_Book, __Quor_Book>,
                             private QuorBookEvents {
 public:
  STDMETHODIMP Book_Valuator(BSTR vstrtocpath,
                             BSTR vstrQuorTOcPath,
                             SHORT vintType,
                             BSTR vstrProductName,
                             BSTR vstrBookName,
                             BSTR vstrBookAcro,
                             BSTR vstrCategory,
                             BSTR vstrKeywordsPath,
                             BSTR vstrBookCategoryPath,
                             BSTR strKeyWords,
                             BSTR strCategory,
                             BSTR spath,
                             LONG vlngInstallType,
                             VARIANT_BOOL blnChkCateFlag,
                             BSTR strServerPath,
                             VARIANT_BOOL* result) override;
  STDMETHODIMP mbGetFormInput(BSTR vstrQuorTOcPath, SHORT vintType, VARIANT_BOOL* result) override;
  STDMETHODIMP mbCheckQuorTOCForBook(BSTR vstrQuorTOcPath,
                                     BSTR vstrBookName,
                                     BSTR vstrBookAcro,
                                     VARIANT_BOOL* result) override;
  STDMETHODIMP getExcelBookCount(IDispatch* vobjXLWSheetRead, LONG vlCount, LONG* result) override;
  STDMETHODIMP AddKeywordsToXmlFile(BSTR vstrKeywordsPath, BSTR* sBookName, BSTR sKeyWord) override;
  STDMETHODIMP EditKeywordsToXmlFile(BSTR vstrKeywordsPath,
                                     BSTR* sBookName,
                                     BSTR sKeyWord,
                                     BSTR sOldKeyword) override;
  STDMETHODIMP AddCategoryNode(BSTR vstrCategory, BSTR vstrBookAcro, BSTR vstrxmlPath) override;
  STDMETHODIMP CreateKeywordXmlFile(BSTR vstrPath) override;
  STDMETHODIMP AddKeywords(SAFEARRAY** vstrArrKeywords, BSTR vstrKeywordsPath) override;
  STDMETHODIMP CheckXMLCharacters(BSTR strCurWord, BSTR strBook, VARIANT_BOOL* result) override;
  STDMETHODIMP AddToLinkIDFile(BSTR strLinkIDFilePath,
                               BSTR strLinkID,
                               BSTR strFullLink,
                               BSTR strSourceFilePath,
                               BSTR strProjectName,
                               BSTR strBookAcro) override;

 private:
  void evtGetFolderName(std::string_view sFolderName) override;

  Quor_Book book_{componentModule(), this};
};

}  // namespace quorbind
