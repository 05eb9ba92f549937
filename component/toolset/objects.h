#pragma once

#include <memory>

#include "component/server/dual_object.h"
#include "component/toolset/workshop.h"
#include "quor_toolset_com.h"

// The reference components as hosts see them. Their errors reach the caller as failed calls that
// carry the error's number and description.

namespace quorbind {

class LibraryServicesObject final : public DualObject<::clsLibraryServices, _clsLibraryServices> {
 public:
  STDMETHODIMP GetQuorServer(BSTR* result) override;

 private:
  Workshop workshop_;
  std::unique_ptr<LibraryServices> services_ = workshop_.components().createLibraryServices();
};

class XmlTextRulesObject final : public DualObject<::clsXmlTextRules, _clsXmlTextRules> {
 public:
  STDMETHODIMP mstrCheckSpecialCharecters(BSTR text, BSTR* result) override;
  STDMETHODIMP mstrReplaceSpecialCharecters(BSTR text, BSTR* result) override;
  STDMETHODIMP ReplaceSpecCharToXMLChar(BSTR text, BSTR* result) override;
  STDMETHODIMP CheckReplacedXMLCharacters(BSTR text, BSTR label, VARIANT_BOOL* result) override;

 private:
  Workshop workshop_;
  std::unique_ptr<XmlTextRules> rules_ = workshop_.components().createXmlTextRules();
};

class LinkFileServicesObject final
    : public DualObject<::clsLinkFileServices, _clsLinkFileServices> {
 public:
  STDMETHODIMP GenerateXMLHeader(BSTR path, BSTR description, BSTR root) override;
  STDMETHODIMP MergeLinkIDFiles(BSTR target, BSTR source) override;
  STDMETHODIMP GetFolderName(BSTR acronym, BSTR product, BSTR* result) override;

 private:
  Workshop workshop_;
  std::unique_ptr<LinkFileServices> services_ = workshop_.components().createLinkFileServices();
};

class ProductServicesObject final : public DualObject<::clsProductServices, _clsProductServices> {
 public:
  STDMETHODIMP GetAvailableProducts(SAFEARRAY** result) override;

 private:
  Workshop workshop_;
  std::unique_ptr<ProductServices> services_ = workshop_.components().createProductServices();
};

class FileCopyObject final : public DualObject<::clsFileCopy, _clsFileCopy> {
 public:
  STDMETHODIMP mbCopyFiles(
      BSTR destination, BSTR source, SHORT overwrite, SHORT dialog, VARIANT_BOOL* result) override;
  STDMETHODIMP flush() override;
  STDMETHODIMP copyLinkedFiles(BSTR destination, BSTR page) override;

 private:
  Workshop workshop_;
  std::unique_ptr<FileCopy> copy_ = workshop_.components().createFileCopy();
};

}  // namespace quorbind
