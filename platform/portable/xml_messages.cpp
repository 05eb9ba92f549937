#include "platform/portable/xml_messages.h"

#include <libxml/globals.h>

#include <utility>

namespace quorbind {

namespace {

void printNothing(void* /*context*/, const char* /*format*/, ...) {}

}  // namespace

XmlMessages::XmlMessages(Listener listener)
    : listener_(std::move(listener)),
      outerFunction_(xmlStructuredError),
      outerContext_(xmlStructuredErrorContext),
      outerPrinter_(xmlGenericError),
      outerPrinterContext_(xmlGenericErrorContext) {
  xmlSetStructuredErrorFunc(this, &XmlMessages::receive);
  xmlSetGenericErrorFunc(nullptr, &printNothing);
}

XmlMessages::~XmlMessages() {
  xmlSetStructuredErrorFunc(outerContext_, outerFunction_);
  xmlSetGenericErrorFunc(outerPrinterContext_, outerPrinter_);
}

template <typename Error>
void XmlMessages::receive(void* self, Error* error) noexcept {
  const Listener& listener = static_cast<XmlMessages*>(self)->listener_;
  if (listener && error != nullptr) {
    listener(*error);
  }
}

}  // namespace quorbind
