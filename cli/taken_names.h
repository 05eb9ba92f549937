#pragma once

#include <functional>
#include <optional>
#include <set>
#include <string>
#include <vector>

#include "cli/catalogue_reader.h"
#include "cli/wiring.h"
#include "platform/locale.h"
#include "platform/user_interface.h"

namespace quorbind {

/// A name or an acronym that another book has.
struct TakenName {
  /// What the component would say of it.
  UserMessage box;
  /// In the same letters, which the component finds itself.
  bool isExact = false;
};

/// The names and acronyms that books have, of which no two may have the same in whatever letter
/// case: their book files would be one file. A book without one takes none.
class TakenNames {
 public:
  /// Kept by reference.
  explicit TakenNames(const Locale& locale);

  /// Takes what the book is called, which others may be called too.
  void take(const ListedBook& book);
  // Take a name or an acronym for a book. Where another book has it that is answered.
  std::optional<TakenName> takeName(const std::string& name);
  std::optional<TakenName> takeAcronym(const std::string& acronym);

 private:
  /// Texts that differ in letter case alone stand together.
  using Texts =
      std::multiset<std::string, std::function<bool(const std::string&, const std::string&)>>;

  Texts names_;
  Texts acronyms_;
};

/// Tells the user of the first of name and acronym, typed or stored, that a book has in another
/// letter case, and returns whether one is. The component looks for the same letters only.
bool tellTakenInOtherLetterCase(Wiring& wiring,
                                const std::vector<ListedBook>& books,
                                const std::string& name,
                                const std::string& acronym);

}  // namespace quorbind
