#include "component/book_config_object.h"

#include "component/operation.h"

namespace quorbind {

namespace {

constexpr ErrorSource kQuorLocation{"Quorbind:Book_Config::QuorLocation"};
constexpr ErrorSource kQuorNames{"Quorbind:Book_Config::QuorNames"};
constexpr ErrorSource kBookInfo{"Quorbind:Book_Config::BookInfo"};
constexpr ErrorSource kCategorieInfo{"Quorbind:Book_Config::CategorieInfo"};
constexpr ErrorSource kStrFolderLinkInfo{"Quorbind:Book_Config::strFolderLinkInfo"};
constexpr ErrorSource kGetBookAcro{"Quorbind:Book_Config::GetBookAcro"};
constexpr ErrorSource kStrBookAcroInfo{"Quorbind:Book_Config::strBookAcroInfo"};
constexpr ErrorSource kUpdateBookNameAcro{"Quorbind:Book_Config::UpdateBookNameAcro"};
constexpr ErrorSource kStrMatchingBooksInfo{"Quorbind:Book_Config::strMatchingBooksInfo"};
constexpr ErrorSource kMbsetQuorBookProperties{"Quorbind:Book_Config::mbsetQuorBookProperties"};
constexpr ErrorSource kCreateQuorBookNodeForSEntry{
    "Quorbind:Book_Config::CreateQuorBookNodeForSEntry"};
constexpr ErrorSource kAddBookCateToXMLFile{"Quorbind:Book_Config::AddBookCateToXMLFile"};
constexpr ErrorSource kCreateBookCateXmlFile{"Quorbind:Book_Config::CreateBookCateXmlFile"};
constexpr ErrorSource kGetBookAcroInfo{"Quorbind:Book_Config::GetBookAcroInfo"};
constexpr ErrorSource kGetBookAcroValue{"Quorbind:Book_Config::GetBookAcroValue"};
constexpr ErrorSource kAddBookAcro{"Quorbind:Book_Config::AddBookAcro"};
constexpr ErrorSource kAddothercategory{"Quorbind:Book_Config::Addothercategory"};
constexpr ErrorSource kSortArray{"Quorbind:Book_Config::SortArray"};
constexpr ErrorSource kEditBookCateToXMLFile{"Quorbind:Book_Config::EditBookCateToXMLFile"};
constexpr ErrorSource kBCheckIfDefaultCategory{"Quorbind:Book_Config::bCheckIfDefaultCategory"};
constexpr ErrorSource kBCheckCategoryinQuorBookCategories{
    "Quorbind:Book_Config::bCheckCategoryinQuorBookCategories"};

}  // namespace

STDMETHODIMP BookConfigObject::get_QuorLocation(BSTR /*vstrQuorName*/, BSTR* result) {
  return Operation(kQuorLocation).answer(result, raiseNotBuilt);
}

STDMETHODIMP BookConfigObject::get_QuorNames(SAFEARRAY** result) {
  return Operation(kQuorNames).answer(result, raiseNotBuilt);
}

STDMETHODIMP BookConfigObject::get_BookInfo(BSTR /*vstrtocpath*/, SAFEARRAY** result) {
  return Operation(kBookInfo).answer(result, raiseNotBuilt);
}

STDMETHODIMP BookConfigObject::get_CategorieInfo(BSTR /*vstrtocpath*/,
                                                 BSTR /*vstrBookName*/,
                                                 SAFEARRAY** result) {
  return Operation(kCategorieInfo).answer(result, raiseNotBuilt);
}

STDMETHODIMP BookConfigObject::strFolderLinkInfo(BSTR /*vstrtocpath*/,
                                                 BSTR /*vstrBookName*/,
                                                 BSTR* rstrFolderName,
                                                 BSTR* rstrFileLink) {
  return Operation(kStrFolderLinkInfo, {rstrFolderName, rstrFileLink}).run(raiseNotBuilt);
}

STDMETHODIMP BookConfigObject::GetBookAcro(BSTR /*vstrtocpath*/,
                                           BSTR /*vstrBookName*/,
                                           BSTR* result) {
  return Operation(kGetBookAcro).answer(result, raiseNotBuilt);
}

STDMETHODIMP BookConfigObject::strBookAcroInfo(BSTR /*vstrtocpath*/, BSTR /*vstrBookName*/) {
  return Operation(kStrBookAcroInfo).run(raiseNotBuilt);
}

STDMETHODIMP BookConfigObject::UpdateBookNameAcro(BSTR /*vstrBookPath*/,
                                                  BSTR /*vstrBookName*/,
                                                  BSTR /*vstrBookAcro*/) {
  return Operation(kUpdateBookNameAcro).run(raiseNotBuilt);
}

STDMETHODIMP BookConfigObject::DeleteQuorNode(BSTR vstrQuorTOcPath, BSTR vstrBookName) {
  return Operation(source::kDeleteNode).run([&] {
    config_.DeleteQuorNode(textOf(vstrQuorTOcPath), textOf(vstrBookName));
  });
}

STDMETHODIMP BookConfigObject::strMatchingBooksInfo(BSTR /*vstrMainTocPAth*/,
                                                    BSTR /*vstrtocpath*/) {
  return Operation(kStrMatchingBooksInfo).run(raiseNotBuilt);
}

STDMETHODIMP BookConfigObject::mbsetQuorBookProperties(BSTR /*vstrtocpath*/,
                                                       BSTR /*vstrBookName*/,
                                                       SAFEARRAY** rarrsBCategories,
                                                       BSTR /*vstrFolder*/,
                                                       BSTR /*vstrFullink*/,
                                                       VARIANT_BOOL* result) {
  return Operation(kMbsetQuorBookProperties, {rarrsBCategories}).answer(result, raiseNotBuilt);
}

STDMETHODIMP BookConfigObject::CreateQuorBookNodeForSEntry(BSTR /*strTocFile*/,
                                                           BSTR /*vstrBookName*/,
                                                           BSTR /*vstrFolder*/,
                                                           BSTR /*vstrType*/,
                                                           BSTR /*vstrProductName*/,
                                                           LONG /*vlngInstallType*/,
                                                           VARIANT_BOOL /*vblnChkCateFlag*/,
                                                           SAFEARRAY** strBookInfo) {
  return Operation(kCreateQuorBookNodeForSEntry, {strBookInfo}).run(raiseNotBuilt);
}

STDMETHODIMP BookConfigObject::AddBookCateToXMLFile(BSTR* vstrBookCatePath, BSTR* sBookCateName) {
  return Operation(kAddBookCateToXMLFile, {vstrBookCatePath, sBookCateName}).run(raiseNotBuilt);
}

STDMETHODIMP BookConfigObject::CreateBookCateXmlFile(BSTR /*vstrServerPath*/,
                                                     BSTR /*vstrPath*/,
                                                     LONG /*vlngInstallType*/,
                                                     VARIANT_BOOL /*blnCRM*/) {
  return Operation(kCreateBookCateXmlFile).run(raiseNotBuilt);
}

STDMETHODIMP BookConfigObject::GetBookAcroInfo(BSTR /*vstrQuorBookCatePath*/,
                                               BSTR /*vstrQuorTOcPath*/) {
  return Operation(kGetBookAcroInfo).run(raiseNotBuilt);
}

STDMETHODIMP BookConfigObject::GetBookAcroValue(BSTR /*vstrCateName*/,
                                                BSTR /*vstrQuorTOcPath*/,
                                                SAFEARRAY** result) {
  return Operation(kGetBookAcroValue).answer(result, raiseNotBuilt);
}

STDMETHODIMP BookConfigObject::AddBookAcro(BSTR /*vstrCateName*/,
                                           SAFEARRAY** vstrarrBookAcro,
                                           BSTR /*vstrQuorBookCatePath*/) {
  return Operation(kAddBookAcro, {vstrarrBookAcro}).run(raiseNotBuilt);
}

STDMETHODIMP BookConfigObject::Addothercategory(BSTR /*vstrCateName*/,
                                                SAFEARRAY** vstrothCateBookAcro,
                                                BSTR /*vstrCategoryPath*/) {
  return Operation(kAddothercategory, {vstrothCateBookAcro}).run(raiseNotBuilt);
}

STDMETHODIMP BookConfigObject::SortArray(SAFEARRAY** rarrsBookNames,
                                         SAFEARRAY** rarrsBookAcros,
                                         SHORT /*ivalue*/,
                                         SAFEARRAY** result) {
  return Operation(kSortArray, {rarrsBookNames, rarrsBookAcros}).answer(result, raiseNotBuilt);
}

STDMETHODIMP BookConfigObject::EditBookCateToXMLFile(BSTR* vstrBookCatePath,
                                                     BSTR* sBookCateName,
                                                     BSTR* sBookCateOLDName) {
  return Operation(kEditBookCateToXMLFile, {vstrBookCatePath, sBookCateName, sBookCateOLDName})
      .run(raiseNotBuilt);
}

STDMETHODIMP BookConfigObject::bCheckIfDefaultCategory(BSTR /*vstrBookCatePath*/,
                                                       BSTR /*vstrCateName*/,
                                                       LONG /*vlngInstallType*/,
                                                       VARIANT_BOOL* result) {
  return Operation(kBCheckIfDefaultCategory).answer(result, raiseNotBuilt);
}

STDMETHODIMP BookConfigObject::bCheckCategoryinQuorBookCategories(BSTR /*vstrBookCatePath*/,
                                                                  VARIANT_BOOL* result) {
  return Operation(kBCheckCategoryinQuorBookCategories).answer(result, raiseNotBuilt);
}

}  // namespace quorbind
