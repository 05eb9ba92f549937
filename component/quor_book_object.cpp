#include "component/quor_book_object.h"

#include "component/operation.h"
#include "platform/windows/excel_automation.h"

namespace quorbind {

namespace {

constexpr DISPID kEvtGetFolderName = 1;

}  // namespace

STDMETHODIMP QuorBookObject::Book_Valuator(BSTR vstrtocpath,
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
                                           VARIANT_BOOL* result) {
  // The host may let go of the object when it hears the event.
  const auto keptAlive = ComPtr<_Quor_Book>::sharing(this);
  return Operation(source::kBookValuator).answer(result, [&] {
    return book_.Book_Valuator(textOf(vstrtocpath),
                               textOf(vstrQuorTOcPath),
                               vintType,
                               textOf(vstrProductName),
                               textOf(vstrBookName),
                               textOf(vstrBookAcro),
                               textOf(vstrCategory),
                               textOf(vstrKeywordsPath),
                               textOf(vstrBookCategoryPath),
                               textOf(strKeyWords),
                               textOf(strCategory),
                               textOf(spath),
                               vlngInstallType,
                               isTrue(blnChkCateFlag),
                               textOf(strServerPath));
  });
}

STDMETHODIMP QuorBookObject::mbGetFormInput(BSTR vstrQuorTOcPath,
                                            SHORT vintType,
                                            VARIANT_BOOL* result) {
  return Operation(source::kGetFormInput).answer(result, [&] {
    return book_.mbGetFormInput(textOf(vstrQuorTOcPath), vintType);
  });
}

STDMETHODIMP QuorBookObject::mbCheckQuorTOCForBook(BSTR vstrQuorTOcPath,
                                                   BSTR vstrBookName,
                                                   BSTR vstrBookAcro,
                                                   VARIANT_BOOL* result) {
  return Operation(source::kCheckQuorTocForBook).answer(result, [&] {
    return book_.mbCheckQuorTOCForBook(
        textOf(vstrQuorTOcPath), textOf(vstrBookName), textOf(vstrBookAcro));
  });
}

STDMETHODIMP QuorBookObject::getExcelBookCount(IDispatch* vobjXLWSheetRead,
                                               LONG vlCount,
                                               LONG* result) {
  return Operation(source::kGetExcelBookCount).answer(result, [&] {
    const auto sheet = wrapWorksheet(ComPtr<IDispatch>::sharing(vobjXLWSheetRead));
    return book_.getExcelBookCount(*sheet, vlCount);
  });
}

STDMETHODIMP QuorBookObject::AddKeywordsToXmlFile(BSTR vstrKeywordsPath,
                                                  BSTR* sBookName,
                                                  BSTR sKeyWord) {
  return Operation(source::kAddKeywordsToXmlFile, {sBookName}).run([&] {
    book_.AddKeywordsToXmlFile(textOf(vstrKeywordsPath), textOf(*sBookName), textOf(sKeyWord));
  });
}

STDMETHODIMP QuorBookObject::EditKeywordsToXmlFile(BSTR vstrKeywordsPath,
                                                   BSTR* sBookName,
                                                   BSTR sKeyWord,
                                                   BSTR sOldKeyword) {
  return Operation(source::kAddKeywordsToXmlFile, {sBookName}).run([&] {
    book_.EditKeywordsToXmlFile(
        textOf(vstrKeywordsPath), textOf(*sBookName), textOf(sKeyWord), textOf(sOldKeyword));
  });
}

STDMETHODIMP QuorBookObject::AddCategoryNode(BSTR vstrCategory,
                                             BSTR vstrBookAcro,
                                             BSTR vstrxmlPath) {
  return Operation(source::kAddCategoryNode).run([&] {
    book_.AddCategoryNode(textOf(vstrCategory), textOf(vstrBookAcro), textOf(vstrxmlPath));
  });
}

STDMETHODIMP QuorBookObject::CreateKeywordXmlFile(BSTR vstrPath) {
  return Operation(source::kCreateKeywordXmlFile).run([&] {
    book_.CreateKeywordXmlFile(textOf(vstrPath));
  });
}

STDMETHODIMP QuorBookObject::AddKeywords(SAFEARRAY** vstrArrKeywords, BSTR vstrKeywordsPath) {
  return Operation(source::kAddKeywords, {vstrArrKeywords}).run([&] {
    book_.AddKeywords(textArrayOf(*vstrArrKeywords), textOf(vstrKeywordsPath));
  });
}

STDMETHODIMP QuorBookObject::CheckXMLCharacters(BSTR strCurWord,
                                                BSTR strBook,
                                                VARIANT_BOOL* result) {
  return Operation(source::kCheckXmlCharacters).answer(result, [&] {
    return book_.CheckXMLCharacters(textOf(strCurWord), textOf(strBook));
  });
}

STDMETHODIMP QuorBookObject::AddToLinkIDFile(BSTR strLinkIDFilePath,
                                             BSTR strLinkID,
                                             BSTR strFullLink,
                                             BSTR strSourceFilePath,
                                             BSTR strProjectName,
                                             BSTR strBookAcro) {
  return Operation(source::kAddToLinkIdFile).run([&] {
    book_.AddToLinkIDFile(textOf(strLinkIDFilePath),
                          textOf(strLinkID),
                          textOf(strFullLink),
                          textOf(strSourceFilePath),
                          textOf(strProjectName),
                          textOf(strBookAcro));
  });
}

void QuorBookObject::evtGetFolderName(std::string_view sFolderName) {
  raiseEvent(kEvtGetFolderName, sFolderName);
}

}  // namespace quorbind
