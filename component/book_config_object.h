#pragma once

#include "catalogue/book_config.h"
#include "component/component_module.h"
#include "component/server/dual_object.h"
#include "quorbind_com.h"

namespace quorbind {

/// `Book_Config` as hosts see it.
class BookConfigObject final : public DualObject<::Book_Config, _Book_Config> {
 public:
  STDMETHODIMP get_QuorLocation(BSTR vstrQuorName, BSTR* result) override;
  STDMETHODIMP get_QuorNames(SAFEARRAY** result) override;
  STDMETHODIMP get_BookInfo(BSTR vstrtocpath, SAFEARRAY** result) override;
  STDMETHODIMP get_CategorieInfo(BSTR vstrtocpath, BSTR vstrBookName, SAFEARRAY** result) override;
  STDMETHODIMP strFolderLinkInfo(BSTR vstrtocpath,
                                 BSTR vstrBookName,
                                 BSTR* rstrFolderName,
                                 BSTR* rstrFileLink) override;
  STDMETHODIMP GetBookAcro(BSTR vstrtocpath, BSTR vstrBookName, BSTR* result) override;
  STDMETHODIMP strBookAcroInfo(BSTR vstrtocpath, BSTR vstrBookName) override;
  STDMETHODIMP UpdateBookNameAcro(BSTR vstrBookPath, BSTR vstrBookName, BSTR vstrBookAcro) override;
  STDMETHODIMP DeleteQuorNode(BSTR vstrQuorTOcPath, BSTR vstrBookName) override;
  STDMETHODIMP strMatchingBooksInfo(BSTR vstrMainTocPAth, BSTR vstrtocpath) override;
  STDMETHODIMP mbsetQuorBookProperties(BSTR vstrtocpath,
                                       BSTR vstrBookName,
                                       SAFEARRAY** rarrsBCategories,
                                       BSTR vstrFolder,
                                       BSTR vstrFullink,
                                       VARIANT_BOOL* result) override;
  STDMETHODIMP CreateQuorBookNodeForSEntry(BSTR strTocFile,
                                           BSTR vstrBookName,
                                           BSTR vstrFolder,
                                           BSTR vstrType,
                                           BSTR vstrProductName,
                                           LONG vlngInstallType,
                                           VARIANT_BOOL vblnChkCateFlag,
                                           SAFEARRAY** strBookInfo) override;
  STDMETHODIMP AddBookCateToXMLFile(BSTR* vstrBookCatePath, BSTR* sBookCateName) override;
  STDMETHODIMP CreateBookCateXmlFile(BSTR vstrServerPath,
                                     BSTR vstrPath,
                                     LONG vlngInstallType,
                                     VARIANT_BOOL blnCRM) override;
  STDMETHODIMP GetBookAcroInfo(BSTR vstrQuorBookCatePath, BSTR vstrQuorTOcPath) override;
  STDMETHODIMP GetBookAcroValue(BSTR vstrCateName,
                                BSTR vstrQuorTOcPath,
                                SAFEARRAY** result) override;
  STDMETHODIMP AddBookAcro(BSTR vstrCateName,
                           SAFEARRAY** vstrarrBookAcro,
                           BSTR vstrQuorBookCatePath) override;
  STDMETHODIMP Addothercategory(BSTR vstrCateName,
                                SAFEARRAY** vstrothCateBookAcro,
                                BSTR vstrCategoryPath) override;
  STDMETHODIMP SortArray(SAFEARRAY** rarrsBookNames,
                         SAFEARRAY** rarrsBookAcros,
                         SHORT ivalue,
                         SAFEARRAY** result) override;
  STDMETHODIMP EditBookCateToXMLFile(BSTR* vstrBookCatePath,
                                     BSTR* sBookCateName,
                                     BSTR* sBookCateOLDName) override;
  STDMETHODIMP bCheckIfDefaultCategory(BSTR vstrBookCatePath,
                                       BSTR vstrCateName,
                                       LONG vlngInstallType,
                                       VARIANT_BOOL* result) override;
  STDMETHODIMP bCheckCategoryinQuorBookCategories(BSTR vstrBookCatePath,
                                                  VARIANT_BOOL* result) override;

 private:
  Book_Config config_{componentModule()};
};

}  // namespace quorbind
