#pragma once

#include <string>
#include <string_view>

#include "platform/toolset.h"

namespace quorbind {

class UserInterface;

/// How names get into XML, and which ones don't.
///
/// All three conversions are the same one: `<`, `>`, `"`, `'` and `&` become the texts of their
/// entities. An `&` that begins such a text already stays as it is, so that a name may be converted
/// as often as it passes by and is found again in the form of the first time. Nothing becomes
/// ambiguous by that, because names that hold the text of an entity are not acceptable.
class ReferenceXmlTextRules final : public XmlTextRules {
 public:
  /// Kept by reference.
  explicit ReferenceXmlTextRules(UserInterface& ui) : ui_(ui) {}

  std::string mstrCheckSpecialCharecters(std::string_view text) override;
  std::string mstrReplaceSpecialCharecters(std::string_view text) override;
  std::string ReplaceSpecCharToXMLChar(std::string_view text) override;

  /// Of several entity texts that `text` holds, one is shown.
  bool CheckReplacedXMLCharacters(std::string_view text, std::string_view label) override;

 private:
  UserInterface& ui_;
};

}  // namespace quorbind
