#include "component/toc_to_xml_object.h"

#include "component/operation.h"

namespace quorbind {

STDMETHODIMP TocToXmlObject::mstrGenerateXMLFromTOC(BSTR vstrtocpath,
                                                    BSTR vstrQuorTOcPath,
                                                    BSTR vstrBookName,
                                                    BSTR vstrBookAcronym,
                                                    BSTR vstrBookFile,
                                                    BSTR vstrProductName,
                                                    BSTR* result) {
  return Operation(source::kGenerateXmlFromToc).answer(result, [&] {
    return generator_.mstrGenerateXMLFromTOC(textOf(vstrtocpath),
                                             textOf(vstrQuorTOcPath),
                                             textOf(vstrBookName),
                                             textOf(vstrBookAcronym),
                                             textOf(vstrBookFile),
                                             textOf(vstrProductName));
  });
}

}  // namespace quorbind
