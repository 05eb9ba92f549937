#include "component/toolset/objects.h"

#include <utility>

#include "component/server/conversion.h"
#include "component/server/failure.h"

namespace quorbind {

namespace {

template <typename Interface, typename Body>
HRESULT run(Body&& body) noexcept {
  try {
    std::forward<Body>(body)();
    return S_OK;
  } catch (...) {
    return leaveCurrentError(__uuidof(Interface));
  }
}

template <typename Interface, typename Result, typename Body>
HRESULT answer(Result* result, Body&& body) noexcept {
  if (result == nullptr) {
    return E_POINTER;
  }
  *result = {};
  return run<Interface>([&] { give(result, body()); });
}

}  // namespace

STDMETHODIMP LibraryServicesObject::GetQuorServer(BSTR* result) {
  return answer<_clsLibraryServices>(result, [&] { return services_->GetQuorServer(); });
}

STDMETHODIMP XmlTextRulesObject::mstrCheckSpecialCharecters(BSTR text, BSTR* result) {
  return answer<_clsXmlTextRules>(result,
                                  [&] { return rules_->mstrCheckSpecialCharecters(textOf(text)); });
}

STDMETHODIMP XmlTextRulesObject::mstrReplaceSpecialCharecters(BSTR text, BSTR* result) {
  return answer<_clsXmlTextRules>(
      result, [&] { return rules_->mstrReplaceSpecialCharecters(textOf(text)); });
}

STDMETHODIMP XmlTextRulesObject::ReplaceSpecCharToXMLChar(BSTR text, BSTR* result) {
  return answer<_clsXmlTextRules>(result,
                                  [&] { return rules_->ReplaceSpecCharToXMLChar(textOf(text)); });
}

STDMETHODIMP XmlTextRulesObject::CheckReplacedXMLCharacters(BSTR text,
                                                            BSTR label,
                                                            VARIANT_BOOL* result) {
  return answer<_clsXmlTextRules>(
      result, [&] { return rules_->CheckReplacedXMLCharacters(textOf(text), textOf(label)); });
}

STDMETHODIMP LinkFileServicesObject::GenerateXMLHeader(BSTR path, BSTR description, BSTR root) {
  return run<_clsLinkFileServices>(
      [&] { services_->GenerateXMLHeader(textOf(path), textOf(description), textOf(root)); });
}

STDMETHODIMP LinkFileServicesObject::MergeLinkIDFiles(BSTR target, BSTR source) {
  return run<_clsLinkFileServices>(
      [&] { services_->MergeLinkIDFiles(textOf(target), textOf(source)); });
}

STDMETHODIMP LinkFileServicesObject::GetFolderName(BSTR acronym, BSTR product, BSTR* result) {
  return answer<_clsLinkFileServices>(
      result, [&] { return services_->GetFolderName(textOf(acronym), textOf(product)); });
}

STDMETHODIMP ProductServicesObject::GetAvailableProducts(SAFEARRAY** result) {
  return answer<_clsProductServices>(result,
                                     [&] { return TextArray{services_->GetAvailableProducts()}; });
}

STDMETHODIMP FileCopyObject::mbCopyFiles(
    BSTR destination, BSTR source, SHORT overwrite, SHORT dialog, VARIANT_BOOL* result) {
  return answer<_clsFileCopy>(result, [&] {
    return copy_->mbCopyFiles(textOf(destination), textOf(source), overwrite, dialog);
  });
}

STDMETHODIMP FileCopyObject::flush() {
  return run<_clsFileCopy>([&] { copy_->flush(); });
}

STDMETHODIMP FileCopyObject::copyLinkedFiles(BSTR destination, BSTR page) {
  return run<_clsFileCopy>([&] { copy_->copyLinkedFiles(textOf(destination), textOf(page)); });
}

}  // namespace quorbind
