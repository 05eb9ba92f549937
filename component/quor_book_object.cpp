#include "component/quor_book_object.h"

#include "component/operation.h"

namespace quorbind {

namespace {

constexpr ErrorSource kGetExcelBookCount{"Quorbind: Quor_Book::getExcelBookCount"};
constexpr ErrorSource kAddKeywordsToXmlFile{"Quorbind: Quor_Book::AddKeywordsToXmlFile"};
constexpr ErrorSource kEditKeywordsToXmlFile{"Quorbind: Quor_Book::EditKeywordsToXmlFile"};
constexpr ErrorSource kAddCategoryNode{"Quorbind: Quor_Book::AddCategoryNode"};
constexpr ErrorSource kCreateKeywordXmlFile{"Quorbind: Quor_Book::CreateKeywordXmlFile"};
constexpr ErrorSource kAddKeywords{"Quorbind: Quor_Book::AddKeywords"};
constexpr ErrorSource kCheckXMLCharacters{"Quorbind: Quor_Book::CheckXMLCharacters"};
constexpr ErrorSource kAddToLinkIDFile{"Quorbind: Quor_Book::AddToLinkIDFile"};

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

STDMETHODIMP QuorBookObject::getExcelBookCount(IDispatch* /*vobjXLWSheetRead*/,
                                               LONG /*vlCount*/,
                                               LONG* result) {
  return Operation(kGetExcelBookCount).answer(result, raiseNotBuilt);
}

STDMETHODIMP QuorBookObject::AddKeywordsToXmlFile(BSTR /*vstrKeywordsPath*/,
                                                  BSTR* sBookName,
                                                  BSTR /*sKeyWord*/) {
  return Operation(kAddKeywordsToXmlFile, {sBookName}).run(raiseNotBuilt);
}

STDMETHODIMP QuorBookObject::EditKeywordsToXmlFile(BSTR /*vstrKeywordsPath*/,
                                                   BSTR* sBookName,
                                                   BSTR /*sKeyWord*/,
                                                   BSTR /*sOldKeyword*/) {
  return Operation(kEditKeywordsToXmlFile, {sBookName}).run(raiseNotBuilt);
}

STDMETHODIMP QuorBookObject::AddCategoryNode(BSTR /*vstrCategory*/,
                                             BSTR /*vstrBookAcro*/,
                                             BSTR /*vstrxmlPath*/) {
  return Operation(kAddCategoryNode).run(raiseNotBuilt);
}

STDMETHODIMP QuorBookObject::CreateKeywordXmlFile(BSTR /*vstrPath*/) {
  return Operation(kCreateKeywordXmlFile).run(raiseNotBuilt);
}

STDMETHODIMP QuorBookObject::AddKeywords(SAFEARRAY** vstrArrKeywords, BSTR /*vstrKeywordsPath*/) {
  return Operation(kAddKeywords, {vstrArrKeywords}).run(raiseNotBuilt);
}

STDMETHODIMP QuorBookObject::CheckXMLCharacters(BSTR /*strCurWord*/,
                                                BSTR /*strBook*/,
                                                VARIANT_BOOL* result) {
  return Operation(kCheckXMLCharacters).answer(result, raiseNotBuilt);
}

STDMETHODIMP QuorBookObject::AddToLinkIDFile(BSTR /*strLinkIDFilePath*/,
                                             BSTR /*strLinkID*/,
                                             BSTR /*strFullLink*/,
                                             BSTR /*strSourceFilePath*/,
                                             BSTR /*strProjectName*/,
                                             BSTR /*strBookAcro*/) {
  return Operation(kAddToLinkIDFile).run(raiseNotBuilt);
}

void QuorBookObject::evtGetFolderName(std::string_view sFolderName) {
  raiseEvent(kEvtGetFolderName, sFolderName);
}

}  // namespace quorbind
