#include "toc/excel_links.h"

#include <cstddef>
#include <cstdint>
#include <map>
#include <string_view>
#include <vector>

#include "platform/error_trap.h"
#include "platform/number.h"
#include "platform/text.h"
#include "platform/text_store.h"
#include "platform/toolset.h"
#include "sidefiles/link_list.h"
#include "toc/excel_toc.h"

namespace quorbind {

namespace {

constexpr std::string_view kHeadingJoint = "@quor@";
constexpr std::string_view kFieldSeparator = "@@@";

/// The fields of a record, by their places between the separators.
enum Field : std::size_t { kBook, kFile, kIdentifier, kHeadings };

/// The headings that lead to a row, by level. They begin with room for the level 0, and grow by one
/// level at a time.
class HeadingChain {
 public:
  /// Raises 9 for a level further down than one below the deepest so far, and for a negative one.
  void set(std::int16_t level, const std::string& name) {
    if (level >= static_cast<std::int64_t>(names_.size())) {
      names_.emplace_back();
    }
    if (level < 0 || static_cast<std::size_t>(level) >= names_.size()) {
      raise(ErrorNumber::kSubscriptOutOfRange);
    }
    names_[static_cast<std::size_t>(level)] = name;
  }

  /// Those above a heading of that level, the outermost first; level 0 counts, though it rarely has
  /// a name.
  [[nodiscard]] std::string above(std::int16_t level) const {
    std::string chain;
    for (std::int16_t each = 0; each < level; ++each) {
      chain.append(kHeadingJoint).append(names_[static_cast<std::size_t>(each)]);
    }
    return chain;
  }

 private:
  std::vector<std::string> names_ = std::vector<std::string>(1);
};

/// Everything that the sheet of headings says of its identifiers, in one text for each.
TextStore recordsOf(Worksheet& sheet) {
  TextStore records;
  HeadingChain chain;
  std::int32_t book = 0;
  for (std::int32_t row = excel_toc::kFirstRow;; ++row) {
    const std::string levelText = sheet.cellText(row, excel_toc::kLevelColumn);
    if (trimBlanks(levelText).empty()) {
      return records;
    }
    const std::int16_t level = toInteger16(trimBlanks(levelText));
    chain.set(level, sheet.cellText(row, excel_toc::kNameColumn));
    book += level == 1 ? 1 : 0;
    const std::string identifier = sheet.cellText(row, excel_toc::kBookLinkColumn);
    if (!trimBlanks(identifier).empty()) {
      records.add(std::to_string(book)
                      .append(kFieldSeparator)
                      .append(sheet.cellText(row, excel_toc::kFileColumn))
                      .append(sheet.cellText(row, excel_toc::kSubLinkColumn))
                      .append(kFieldSeparator)
                      .append(identifier)
                      .append(kFieldSeparator)
                      .append(chain.above(level)));
    }
  }
}

/// The books of the workbook's list as identifiers need them. The tool set is asked once per book.
class ListedBooks {
 public:
  /// All are kept by reference.
  ListedBooks(Worksheet& list, Toolset& toolset, const std::string& product)
      : list_(list), toolset_(toolset), product_(product) {}

  /// The acronym as its cell has it.
  [[nodiscard]] std::string acronymCell(std::int16_t book) {
    return list_.cellText(excel_toc::bookRow(book), excel_toc::kBookAcroColumn);
  }
  [[nodiscard]] const std::string& folderOf(const std::string& acronym) {
    auto known = folders_.find(acronym);
    if (known == folders_.end()) {
      const std::string folder =
          toolset_.createLinkFileServices()->GetFolderName(acronym, product_);
      known = folders_.emplace(acronym, folder).first;
    }
    return known->second;
  }

 private:
  Worksheet& list_;
  Toolset& toolset_;
  const std::string& product_;
  std::map<std::string, std::string> folders_;
};

void record(std::string_view text, ListedBooks& books, LinkIdentifierList& list) {
  const Pieces fields(text, kFieldSeparator);
  const std::string acronymCell = books.acronymCell(toInteger16(fields.at(kBook)));
  const std::string acronym(trimBlanks(acronymCell));
  list.record(fields.at(kIdentifier),
              std::string(acronymCell).append(fields.at(kHeadings)),
              std::string(books.folderOf(acronym)).append("\\").append(fields.at(kFile)),
              acronym);
}

}  // namespace

void UpdateQuorLinkIDFile(const Platform& platform,
                          const ProcessState& state,
                          Spreadsheets& spreadsheets,
                          const std::string& workbook) {
  trapped(platform.ui, source::kUpdateQuorLinkIdFile, [&] {
    const auto book = spreadsheets.open(workbook);
    const TextStore records = recordsOf(*book->worksheet(excel_toc::kHeadingSheet));
    if (records.empty()) {
      return;
    }
    const auto bookSheet = book->worksheet(excel_toc::kBookSheet);
    ListedBooks books(*bookSheet, platform.toolset, state.currentProductName);
    LinkIdentifierList list(platform, state);
    list.during([&] {
      for (std::size_t number = 0; number < records.size(); ++number) {
        record(records.at(number), books, list);
      }
    });
  });
}

}  // namespace quorbind
