#pragma once

#include <cstddef>
#include <functional>
#include <optional>
#include <string>
#include <string_view>

#include "component/process_state.h"
#include "platform/platform.h"
#include "platform/text_index.h"
#include "platform/text_store.h"
#include "sidefiles/link_file.h"
#include "sidefiles/listed_changes.h"

namespace quorbind {

/// The link identifiers of one book on their way into the file of the current product.
///
/// Each is recorded as CheckDuplicateLinkID and, unless that finds it taken, AddToLinkIDFile would
/// do it one after the other, boxes included; but every product's file is read once and this one's
/// written once. Whoever finds identifiers in a table of contents fills one of these.
class LinkIdentifierList {
 public:
  /// Kept by reference. The product is the current one of the process.
  LinkIdentifierList(const Platform& platform, const ProcessState& state);
  LinkIdentifierList(const LinkIdentifierList&) = delete;
  LinkIdentifierList& operator=(const LinkIdentifierList&) = delete;

  /// Runs a walk that records, and writes the file at its end, also when an error ends the walk.
  void during(const std::function<void()>& walk);

  /// Records one; call it inside of `during`. The acronym is the caller's to know. Raises what the
  /// tool set raises when it is asked for the server's folder; every other error is told.
  void record(std::string_view identifier,
              std::string_view fullLink,
              std::string_view sourceFilePath,
              std::string_view bookAcro);

 private:
  /// What the files of all products have but this one's.
  struct OtherProducts {
    TextIndex trimmedIds;
    /// Whether this product is one of the server's list.
    bool includeThisOne = false;
  };

  /// Whether everything that the list compares with is in memory; one item alone may mend it.
  [[nodiscard]] bool isReady();
  void requireFile();
  void requireOthers();
  [[nodiscard]] bool isTaken(std::string_view identifier);
  void recordLater(const LinkIdentifier& link);
  void recordAlone(const LinkIdentifier& link);
  /// The one whose parts begin with that of this number.
  [[nodiscard]] LinkIdentifier keptLink(std::size_t first) const;
  /// As ListedChanges::settle.
  bool settle();

  const Platform& platform_;
  const ProcessState& state_;
  std::string path_;
  /// Present once the server's folder is known.
  std::optional<LinkFile> file_;
  std::optional<ListedChanges> changes_;
  std::optional<OtherProducts> others_;
  /// What may have to be recorded alone later, text by text: that many small strings would take
  /// longer to free than to write.
  TextStore links_;
};

}  // namespace quorbind
