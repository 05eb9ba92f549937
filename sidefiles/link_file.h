#pragma once

// The file of link identifiers that each product has: identifier by identifier the full place of a
// heading that other books can link to.

#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "platform/platform.h"
#include "platform/text_index.h"
#include "platform/toolset.h"
#include "sidefiles/side_file.h"

namespace quorbind {

/// One identifier and what it leads to, in texts that others own.
struct LinkIdentifier {
  std::string_view identifier;
  std::string_view fullLink;
  std::string_view sourceFilePath;
  std::string_view projectName;
  std::string_view bookAcro;
};

/// Records one identifier in the file at `strLinkIDFilePath`, which the tool set makes when it is
/// missing. `strFullLink` is the whole place of the target, `strSourceFilePath` its document, which
/// is recorded behind the product name `strProjectName`.
///
/// The identifier is looked up as it is given and stored with its markup characters replaced. The
/// user is told of one that leads somewhere already; nothing is changed then. One whose full link
/// is empty is meant to be filled in, which fails for an entry of the usual four fields: hosts know
/// the box. An identifier with an apostrophe is an error as well. Errors are told.
void AddToLinkIDFile(const Platform& platform,
                     const std::string& strLinkIDFilePath,
                     const std::string& strLinkID,
                     const std::string& strFullLink,
                     const std::string& strSourceFilePath,
                     const std::string& strProjectName,
                     const std::string& strBookAcro);

/// The file of a product's identifiers, below the documentation server's folder `serverRoot`, which
/// ends with a separator.
std::string linkFileBelow(std::string serverRoot, std::string_view product);
/// The same for the server that the tool set knows. Raises what the tool set raises.
std::string linkFileOf(Toolset& toolset, std::string_view product);

/// Tells the user that an identifier is taken.
void tellOfTakenLinkId(const Platform& platform, std::string_view identifier);

/// A file of link identifiers in memory. An error leaves the document as it was.
class LinkFile final : public SideFile {
 public:
  using SideFile::SideFile;

  /// Whether the identifier, as it is given, stands there with a full link that is not blank.
  /// Raises kInvalidQueryError for one with an apostrophe.
  [[nodiscard]] bool leadsSomewhere(std::string_view identifier);
  /// Whether an identifier stands there, the blanks at the ends of both left out.
  [[nodiscard]] bool hasTrimmed(std::string_view identifier);

  /// Enters an identifier that leads nowhere yet. A root alone, which is what a run leaves that
  /// ends while it makes the file, gets its list first. Raises as leadsSomewhere does, 91 in a
  /// document with another root and for an entry that lacks a field, and what the tool set raises.
  void record(const LinkIdentifier& link);
  /// Makes the list of a file that has only its root. Raises 91 for another root.
  void makeList();

 private:
  void dropIndex() override;
  void requireIndex();
  void addToIndex(const XmlNode& linkId);
  [[nodiscard]] XmlNode find(std::string_view identifier);
  void enter(const LinkIdentifier& link);

  std::unique_ptr<XmlTextRules> rules_;
  /// The list of entries; no node where the document has none.
  XmlNode list_;
  TextIndex identifiers_;
  /// The first element of each identifier, by its number.
  std::vector<XmlNode> linkIds_;
  /// What is left, without their blanks, of the identifiers that have blanks at their ends.
  TextIndex trimmed_;
  /// Whether the tables and the document are in step. Not behind an error half way, which may have
  /// left one table longer than another.
  bool indexed_ = false;
};

}  // namespace quorbind
