#pragma once

#include <libxml/xmlerror.h>

#include <functional>

namespace quorbind {

/// As long as it lives, the errors that libxml2 finds in this thread go to the listener, without
/// one nowhere, and nothing gets printed.
///
/// Handlers of single parsers would not do: libxml2 raises the errors of its encoders and of memory
/// without a parser, and prints some of XPath besides raising them.
class XmlMessages {
 public:
  /// Is called from inside libxml2 and must not throw.
  using Listener = std::function<void(const xmlError&)>;

  explicit XmlMessages(Listener listener = {});
  ~XmlMessages();
  XmlMessages(const XmlMessages&) = delete;
  XmlMessages& operator=(const XmlMessages&) = delete;

 private:
  /// Newer releases of libxml2 hand over a const error.
  template <typename Error>
  static void receive(void* self, Error* error) noexcept;

  Listener listener_;
  xmlStructuredErrorFunc outerFunction_;
  void* outerContext_;
  xmlGenericErrorFunc outerPrinter_;
  void* outerPrinterContext_;
};

}  // namespace quorbind
