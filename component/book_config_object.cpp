#include "component/book_config_object.h"

#include "component/operation.h"

namespace quorbind {

STDMETHODIMP BookConfigObject::get_QuorLocation(BSTR vstrQuorName, BSTR* result) {
  return Operation(source::kQuorLocation).answer(result, [&] {
    return config_.QuorLocation(textOf(vstrQuorName));
  });
}

STDMETHODIMP BookConfigObject::get_QuorNames(SAFEARRAY** result) {
  return Operation(source::kQuorNames).answer(result, [&] { return config_.QuorNames(); });
}

STDMETHODIMP BookConfigObject::get_BookInfo(BSTR vstrtocpath, SAFEARRAY** result) {
  return Operation(source::kBookInfo).answer(result, [&] {
    return config_.BookInfo(textOf(vstrtocpath));
  });
}

STDMETHODIMP BookConfigObject::get_CategorieInfo(BSTR vstrtocpath,
                                                 BSTR vstrBookName,
                                                 SAFEARRAY** result) {
  return Operation(source::kCategorieInfo).answer(result, [&] {
    return config_.CategorieInfo(textOf(vstrtocpath), textOf(vstrBookName));
  });
}

STDMETHODIMP BookConfigObject::strFolderLinkInfo(BSTR vstrtocpath,
                                                 BSTR vstrBookName,
                                                 BSTR* rstrFolderName,
                                                 BSTR* rstrFileLink) {
  return Operation(kIgnoringErrors, {rstrFolderName, rstrFileLink}).run([&] {
    std::string folder = textOf(*rstrFolderName);
    std::string link = textOf(*rstrFileLink);
    config_.strFolderLinkInfo(textOf(vstrtocpath), textOf(vstrBookName), folder, link);
    putText(rstrFolderName, folder);
    putText(rstrFileLink, link);
  });
}

STDMETHODIMP BookConfigObject::GetBookAcro(BSTR vstrtocpath, BSTR vstrBookName, BSTR* result) {
  return Operation(kIgnoringErrors).answer(result, [&] {
    return config_.GetBookAcro(textOf(vstrtocpath), textOf(vstrBookName));
  });
}

STDMETHODIMP BookConfigObject::strBookAcroInfo(BSTR vstrtocpath, BSTR vstrBookName) {
  return Operation(kIgnoringErrors).run([&] {
    config_.strBookAcroInfo(textOf(vstrtocpath), textOf(vstrBookName));
  });
}

STDMETHODIMP BookConfigObject::UpdateBookNameAcro(BSTR vstrBookPath,
                                                  BSTR vstrBookName,
                                                  BSTR vstrBookAcro) {
  return Operation(source::kUpdateBookNameAcro).run([&] {
    config_.UpdateBookNameAcro(textOf(vstrBookPath), textOf(vstrBookName), textOf(vstrBookAcro));
  });
}

STDMETHODIMP BookConfigObject::DeleteQuorNode(BSTR vstrQuorTOcPath, BSTR vstrBookName) {
  return Operation(source::kDeleteNode).run([&] {
    config_.DeleteQuorNode(textOf(vstrQuorTOcPath), textOf(vstrBookName));
  });
}

STDMETHODIMP BookConfigObject::strMatchingBooksInfo(BSTR vstrMainTocPAth, BSTR vstrtocpath) {
  return Operation(source::kMatchingBooksInfo).run([&] {
    config_.strMatchingBooksInfo(textOf(vstrMainTocPAth), textOf(vstrtocpath));
  });
}

STDMETHODIMP BookConfigObject::mbsetQuorBookProperties(BSTR vstrtocpath,
                                                       BSTR vstrBookName,
                                                       SAFEARRAY** rarrsBCategories,
                                                       BSTR vstrFolder,
                                                       BSTR vstrFullink,
                                                       VARIANT_BOOL* result) {
  return Operation(source::kSetQuorBookProperties, {rarrsBCategories}).answer(result, [&] {
    return config_.mbsetQuorBookProperties(textOf(vstrtocpath),
                                           textOf(vstrBookName),
                                           textArrayOf(*rarrsBCategories),
                                           textOf(vstrFolder),
                                           textOf(vstrFullink));
  });
}

STDMETHODIMP BookConfigObject::CreateQuorBookNodeForSEntry(BSTR strTocFile,
                                                           BSTR vstrBookName,
                                                           BSTR vstrFolder,
                                                           BSTR vstrType,
                                                           BSTR vstrProductName,
                                                           LONG vlngInstallType,
                                                           VARIANT_BOOL vblnChkCateFlag,
                                                           SAFEARRAY** strBookInfo) {
  return Operation(source::kCreateQuorBookNodeForSEntry, {strBookInfo}).run([&] {
    config_.CreateQuorBookNodeForSEntry(textOf(strTocFile),
                                        textOf(vstrBookName),
                                        textOf(vstrFolder),
                                        textOf(vstrType),
                                        textOf(vstrProductName),
                                        vlngInstallType,
                                        isTrue(vblnChkCateFlag),
                                        textArrayOf(*strBookInfo));
  });
}

STDMETHODIMP BookConfigObject::AddBookCateToXMLFile(BSTR* vstrBookCatePath, BSTR* sBookCateName) {
  return Operation(source::kAddBookCateToXmlFile, {vstrBookCatePath, sBookCateName}).run([&] {
    config_.AddBookCateToXMLFile(textOf(*vstrBookCatePath), textOf(*sBookCateName));
  });
}

STDMETHODIMP BookConfigObject::CreateBookCateXmlFile(BSTR vstrServerPath,
                                                     BSTR vstrPath,
                                                     LONG vlngInstallType,
                                                     VARIANT_BOOL blnCRM) {
  return Operation(source::kCreateBookCateXmlFile).run([&] {
    config_.CreateBookCateXmlFile(
        textOf(vstrServerPath), textOf(vstrPath), vlngInstallType, isTrue(blnCRM));
  });
}

STDMETHODIMP BookConfigObject::GetBookAcroInfo(BSTR vstrQuorBookCatePath, BSTR vstrQuorTOcPath) {
  return Operation(source::kGetBookAcroInfo).run([&] {
    config_.GetBookAcroInfo(textOf(vstrQuorBookCatePath), textOf(vstrQuorTOcPath));
  });
}

STDMETHODIMP BookConfigObject::GetBookAcroValue(BSTR vstrCateName,
                                                BSTR vstrQuorTOcPath,
                                                SAFEARRAY** result) {
  return Operation(source::kGetBookAcroValue).answer(result, [&] {
    return config_.GetBookAcroValue(textOf(vstrCateName), textOf(vstrQuorTOcPath)).texts;
  });
}

STDMETHODIMP BookConfigObject::AddBookAcro(BSTR vstrCateName,
                                           SAFEARRAY** vstrarrBookAcro,
                                           BSTR vstrQuorBookCatePath) {
  return Operation(source::kAddBookAcro, {vstrarrBookAcro}).run([&] {
    config_.AddBookAcro(
        textOf(vstrCateName), textArrayOf(*vstrarrBookAcro), textOf(vstrQuorBookCatePath));
  });
}

STDMETHODIMP BookConfigObject::Addothercategory(BSTR vstrCateName,
                                                SAFEARRAY** vstrothCateBookAcro,
                                                BSTR vstrCategoryPath) {
  return Operation(source::kAddOtherCategory, {vstrothCateBookAcro}).run([&] {
    config_.Addothercategory(
        textOf(vstrCateName), textArrayOf(*vstrothCateBookAcro), textOf(vstrCategoryPath));
  });
}

STDMETHODIMP BookConfigObject::SortArray(SAFEARRAY** rarrsBookNames,
                                         SAFEARRAY** rarrsBookAcros,
                                         SHORT ivalue,
                                         SAFEARRAY** result) {
  return Operation(source::kSortArray, {rarrsBookNames, rarrsBookAcros}).answer(result, [&] {
    TextArray names = textArrayOf(*rarrsBookNames);
    TextArray acronyms = textArrayOf(*rarrsBookAcros);
    TextArray sorted = config_.SortArray(names, acronyms, ivalue);
    putTexts(*rarrsBookNames, names.texts);
    putTexts(*rarrsBookAcros, acronyms.texts);
    return sorted;
  });
}

STDMETHODIMP BookConfigObject::EditBookCateToXMLFile(BSTR* vstrBookCatePath,
                                                     BSTR* sBookCateName,
                                                     BSTR* sBookCateOLDName) {
  return Operation(source::kEditBookCateToXmlFile,
                   {vstrBookCatePath, sBookCateName, sBookCateOLDName})
      .run([&] {
        config_.EditBookCateToXMLFile(
            textOf(*vstrBookCatePath), textOf(*sBookCateName), textOf(*sBookCateOLDName));
      });
}

STDMETHODIMP BookConfigObject::bCheckIfDefaultCategory(BSTR vstrBookCatePath,
                                                       BSTR vstrCateName,
                                                       LONG vlngInstallType,
                                                       VARIANT_BOOL* result) {
  return Operation(source::kCheckIfDefaultCategory).answer(result, [&] {
    return config_.bCheckIfDefaultCategory(
        textOf(vstrBookCatePath), textOf(vstrCateName), vlngInstallType);
  });
}

STDMETHODIMP BookConfigObject::bCheckCategoryinQuorBookCategories(BSTR vstrBookCatePath,
                                                                  VARIANT_BOOL* result) {
  return Operation(source::kCheckCategoryInQuorBookCategories).answer(result, [&] {
    return config_.bCheckCategoryinQuorBookCategories(textOf(vstrBookCatePath));
  });
}

}  // namespace quorbind
