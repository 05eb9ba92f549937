#pragma once

// The rules of an HTML page as a table of contents, without any effect: what a walk finds is told
// to a listener, which decides what becomes of it.
//
// `<Kn>` to `</Kn>` is a heading of level n, `<HT>` to `</HT>` the title of the book; both hold a
// link to a document. The page is not parsed as HTML. Marks are found wherever they stand, in any
// letter case, and everything else of the page is passed over.
//
// A walk takes heading after heading out of the page, each together with every other place that
// reads the same, so that of equal headings only the first counts (toc/block_removal.h).

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

#include "platform/locale.h"
#include "toc/toc_violation.h"

namespace quorbind {

/// A piece of a page on its way through the rules; the view holds during the call that hands it
/// over.
struct HtmlTocPiece {
  /// Where it begins in the page, in bytes.
  std::size_t position = 0;
  std::string_view text;
};

/// What a tag of a heading lacks.
enum class HtmlTagFault { kNoStartTag, kNoEndTag };

class HtmlTocListener {
 public:
  virtual ~HtmlTocListener() = default;
  /// A heading from its start tag to its end tag. False ends the walk; a heading whose levels
  /// `checkHtmlLevel` refuses must be answered so.
  virtual bool heading(const HtmlTocPiece& block) = 0;
  /// A tag without its counterpart; the walk ends with it.
  virtual void refused(const HtmlTocPiece& tag, HtmlTagFault fault) = 0;
  /// The page has no heading at all; the walk ends at once.
  virtual void refused(const TocViolation& violation) = 0;
};

/// Walks through the headings of `page`. Answers whether everything was accepted.
bool walkHtmlToc(std::string_view page, HtmlTocListener& listener);

/// The rule that a tag without its counterpart breaks, and the tag as it is shown: in upper case.
struct HtmlTagRefusal {
  std::string tag;
  TocViolation violation;
};
HtmlTagRefusal refusalOfHtmlTag(std::string_view tag, HtmlTagFault fault, const Locale& locale);

/// Holds the levels of a heading against the rules. `previousLevel` is the level of the heading
/// before it, 0 in front of the first, and becomes this one's as soon as that is accepted. Answers
/// the first rule broken. Raises 6 for a level that has no next one, which its entry would get.
std::optional<TocViolation> checkHtmlLevel(std::string_view block,
                                           std::int16_t& previousLevel,
                                           std::int16_t& level);

/// The document that a heading or a title links to, as it is written; nothing when the link is
/// missing or its quotes are not complete.
std::optional<std::string_view> htmlPathIn(std::string_view block);
/// The rule that a block without one breaks.
TocViolation htmlPathMissing(std::string_view block);

/// `text` with every tag replaced by a blank, without the blanks at both ends. What is between the
/// first `<` and the first `>` is a tag, and so is every other place that reads the same; then
/// again, until the first `>` does not stand behind a `<`.
std::string withoutHtmlTags(std::string_view text);
/// Whether what is left of `block` without its tags can be a title.
std::optional<TocViolation> checkHtmlTitle(std::string_view block, std::string_view title);

/// The FLinkValue of a heading; text_form::kNoLink when it has none.
std::string_view htmlFLinkValueIn(std::string_view block);

/// What stands between the tags of the book's title; nothing in a page without them.
std::optional<HtmlTocPiece> htmlTitleBlockIn(std::string_view page);
/// The file of a title's document: without the folders before its last `/`, and without its
/// bookmark.
std::string_view htmlTitleFile(std::string_view path);
/// The part of a page that belongs to the book as a whole: what stands before the first heading.
std::string_view htmlBeforeHeadings(std::string_view page);

}  // namespace quorbind
