#include "cli/doctor/link_examination.h"

#include <set>
#include <unordered_map>
#include <unordered_set>

#include "catalogue/names.h"
#include "cli/book_file.h"
#include "cli/failure.h"
#include "cli/library_documents.h"
#include "platform/text.h"
#include "sidefiles/link_identifiers.h"
#include "sidefiles/names.h"

namespace quorbind {

namespace {

using Kind = FindingKind;
using Titles = std::unordered_set<std::string>;

class LinkExamination {
 public:
  LinkExamination(ExaminedLibrary& library, const ServerLinks& links)
      : library_(library),
        links_(links),
        finder_(library.platform, library.paths.serverRoot),
        lines_(library.platform.xml,
               library.paths.linkIds,
               std::string(link_names::kListPath).append("/").append(link_names::kId)) {}

  void run() {
    const std::vector<ListedLink>& links = links_.of(library_.place.library);
    for (std::size_t index = 0; index < links.size(); ++index) {
      examine(links[index], index);
    }
  }

 private:
  void add(Kind kind, const ListedLink& link, std::size_t index, FindingWords words) {
    words.emplace_back("IDENTIFIER", readableName(link.identifier));
    words.emplace_back("ACRONYM", quoted(link.acronym));
    library_.findings.add(kind, {library_.paths.linkIds, lines_.lineOf(index)}, words);
  }

  void examine(const ListedLink& link, std::size_t index) {
    if (trimBlanks(link.identifier).empty()) {
      // Where it leads is nothing that anybody could come to.
      add(Kind::kNamelessIdentifier, link, index, {});
      return;
    }
    const std::vector<LinkPlace>& places = links_.placesOf(link);
    if (places.size() > 1 && told_.insert(linkKeyOf(link)).second) {
      add(Kind::kRepeatedIdentifier, link, index, {{"PLACES", textOf(places)}});
    }
    if (trimBlanks(link.fullLink).empty()) {
      add(Kind::kBlankIdentifier, link, index, {});
    }
    if (!library_.entries) {
      return;
    }
    const auto entry = library_.entries->withExactAcronym(link.acronym);
    if (!entry) {
      add(Kind::kUnknownLinkBook, link, index, {});
      return;
    }
    const ListedBook& book = library_.books[*entry];
    if (const std::string target = missingTargetOf(link, book); !target.empty()) {
      add(Kind::kUnresolvedIdentifier, link, index, {{"TARGET", target}, {"BOOK", titleOf(book)}});
    }
  }

  static std::string quoted(const std::string& text) { return "'" + text + "'"; }

  /// What an identifier leads to and what is not there; empty when all of it is.
  std::string missingTargetOf(const ListedLink& link, const ListedBook& book) {
    if (!hasDocument(link, book)) {
      return "the document " + link.sourceFile.substr(0, link.sourceFile.find('#'));
    }
    const std::string heading = headingOf(link);
    return heading.empty() || hasHeading(book, heading) ? std::string() : "the heading " + heading;
  }

  /// Of a book that leads out of the library its entry tells already.
  [[nodiscard]] bool hasDocument(const ListedLink& link, const ListedBook& book) {
    return !catalogue_names::staysInLibrary(book.folder) ||
           !findLinkTarget(library_.paths, book, link, finder_).isMissing();
  }

  /// The heading that a full link ends with. One of an acronym and a single name may mean the book,
  /// and one that is joined otherwise ends above its heading: they have none to be looked for.
  static std::string headingOf(const ListedLink& link) {
    constexpr std::size_t kFewestParts = 3;
    const Pieces parts(link.fullLink, kLinkJoint);
    return parts.count() < kFewestParts ? std::string() : std::string(trimBlanks(parts.last()));
  }

  bool hasHeading(const ListedBook& book, const std::string& heading) {
    auto [titles, isNew] = titles_.try_emplace(book.acronym);
    if (isNew) {
      titles->second = titlesOf(book);
    }
    return !titles->second || titles->second->contains(readableName(heading));
  }

  /// Nothing for a book whose headings can't be looked at, of which its book file tells already.
  [[nodiscard]] std::optional<Titles> titlesOf(const ListedBook& book) const {
    const auto file = library_.fileOf(book);
    if (book.fileType || !file) {
      return std::nullopt;
    }
    Titles titles;
    try {
      readHeadings(library_.platform, *file, [&titles](const BookHeading& heading) {
        titles.emplace(trimBlanks(heading.title));
      });
    } catch (const CommandFailure&) {
      return std::nullopt;
    }
    return titles;
  }

  ExaminedLibrary& library_;
  const ServerLinks& links_;
  DocumentFinder finder_;
  EntryLines lines_;
  /// Identifiers of which it has been told that they stand more than once.
  std::set<std::string> told_;
  std::unordered_map<std::string, std::optional<Titles>> titles_;
};

}  // namespace

void examineLinks(ExaminedLibrary& library, const ServerLinks& links) {
  LinkExamination(library, links).run();
}

}  // namespace quorbind
