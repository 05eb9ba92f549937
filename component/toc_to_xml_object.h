#pragma once

#include "bookxml/toc_to_xml.h"
#include "component/component_module.h"
#include "component/server/dual_object.h"
#include "quorbind_com.h"

namespace quorbind {

/// `CTOCToXML` as hosts see it.
class TocToXmlObject final : public DualObject<::CTOCToXML, _CTOCToXML> {
 public:
  STDMETHODIMP mstrGenerateXMLFromTOC(BSTR vstrtocpath,
                                      BSTR vstrQuorTOcPath,
                                      BSTR vstrBookName,
                                      BSTR vstrBookAcronym,
                                      BSTR vstrBookFile,
                                      BSTR vstrProductName,
                                      BSTR* result) override;

 private:
  CTOCToXML generator_{componentModule()};
};

}  // namespace quorbind
