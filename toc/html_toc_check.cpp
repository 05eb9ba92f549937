// The check of HTML pages: what the rules of toc/html_toc.h find, and what becomes of it.

#include <limits>

#include "platform/error_trap.h"
#include "platform/locale.h"
#include "platform/paths.h"
#include "platform/text.h"
#include "platform/text_file.h"
#include "resources/messages.h"
#include "sidefiles/book_link.h"
#include "sidefiles/link_file.h"
#include "sidefiles/link_identifiers.h"
#include "toc/html_place.h"
#include "toc/text_form.h"
#include "toc/toc_check.h"

namespace quorbind {

namespace {

/// The second line is empty, because the reader of the export takes another for an entry.
constexpr std::string_view kExportHead =
    "\"Node Level\" \"Node Name\" \"File Name\" \"Sub Link\" \"FLinkValue\" \"BookLinkValue\"\r\n"
    "\r\n";

/// The book itself is level 1 of an export, and its headings begin below it. Raises 6 where there
/// is no next level.
std::int16_t nodeLevelOf(std::int16_t headingLevel) {
  if (headingLevel == std::numeric_limits<std::int16_t>::max()) {
    raise(ErrorNumber::kOverflow);
  }
  return static_cast<std::int16_t>(headingLevel + 1);
}

StatedPlace placeInExport(std::string_view exportText) {
  constexpr std::size_t kFirstEntry = 3;
  return statedPlaceInEntries(exportText.substr(kExportHead.size()), kFirstEntry);
}

}  // namespace

bool TocCheck::exportHtmlToc(std::string& tocPath) {
  const Platform& platform = module_.platform;
  std::string exportText;
  if (!mbValidateHTMLToc(tocPath, exportText) || !placeIsAllowed(placeInExport(exportText)) ||
      !mHTMLExportToText(tocPath, exportText)) {
    return false;
  }
  GenerateBookLinkID(platform,
                     module_.state,
                     module_.state.currentBookAcro,
                     text_form::exportPathOf(platform.locale, tocPath, text_form::kHtmlExtension));
  return true;
}

/// Hands the headings of a page to the published checks, and tells the user of what the walk
/// refuses.
class TocCheck::HtmlTocTeller final : public HtmlTocListener {
 public:
  HtmlTocTeller(TocCheck& check, std::string_view folder, std::string& exportText)
      : check_(check), folder_(folder), exportText_(exportText) {}

  bool heading(const HtmlTocPiece& block) override {
    return check_.mbCheckHTMLForValidity(block.text, folder_, exportText_);
  }
  void refused(const HtmlTocPiece& tag, HtmlTagFault fault) override {
    const Platform& platform = check_.module_.platform;
    trapped(platform.ui, source::kCheckStartEndTagsHtml, [&] {
      const HtmlTagRefusal refusal = refusalOfHtmlTag(tag.text, fault, platform.locale);
      check_.tell(refusal.tag, refusal.violation);
    });
  }
  void refused(const TocViolation& violation) override { check_.tell({}, violation); }

 private:
  TocCheck& check_;
  std::string_view folder_;
  std::string& exportText_;
};

bool TocCheck::mbValidateHTMLToc(std::string_view tocPath, std::string& exportText) {
  return trapped(module_.platform.ui, source::kValidateHtmlToc, false, [&] {
    exportText = kExportHead;
    const std::string path = withBackslashes(tocPath);
    const std::string folder = std::string(folderOf(path)).append("\\");
    const std::string page = mstrParseFile(path);
    if (!mcheckHTMLTocBookTitle(page, folder, path)) {
      return false;
    }
    // They are about as long, and moving a long text costs.
    exportText.reserve(page.size());
    HtmlTocTeller teller(*this, folder, exportText);
    return walkHtmlToc(page, teller);
  });
}

bool TocCheck::placeIsAllowed(const StatedPlace& stated) {
  if (stated.refusal) {
    module_.platform.ui.show(criticalMessage(*stated.refusal));
  }
  return !stated.refusal;
}

std::string TocCheck::mstrParseFile(std::string_view tocPath) {
  const Platform& platform = module_.platform;
  return trapped(platform.ui, source::kParseFile, std::string(), [&] {
    return TextReader(platform.files, platform.locale, tocPath).readAll();
  });
}

bool TocCheck::mcheckHTMLTocBookTitle(std::string_view page,
                                      std::string_view folder,
                                      std::string_view tocPath) {
  return trapped(module_.platform.ui, source::kCheckHtmlTocBookTitle, false, [&] {
    const auto piece = htmlTitleBlockIn(page);
    if (!piece) {
      return true;
    }
    const std::string_view block = piece->text;
    const auto path = takeHtmlPath(block, folder);
    if (!path) {
      return false;
    }
    const std::string title = mstrRemoveTagsFromHTML(block);
    if (!accepts(block, checkHtmlTitle(block, title))) {
      return false;
    }
    mstrBookFile_ = htmlTitleFile(*path);
    if (module_.state.currentBookName.empty()) {
      module_.state.currentBookName = title;
    }
    const auto identifier = linkIdentifierIn(htmlBeforeHeadings(page));
    if (!identifier) {
      return true;
    }
    // The headings come later, but a book that is refused for its place must not be recorded.
    if (!placeIsAllowed(statedPlaceOfPage(page, mstrCurFile_))) {
      return false;
    }
    recordBookLink(*identifier, title, tocPath);
    return true;
  });
}

bool TocCheck::mbCheckHTMLForValidity(std::string_view block,
                                      std::string_view folder,
                                      std::string& exportText) {
  const Platform& platform = module_.platform;
  return trapped(platform.ui, source::kCheckHtmlForValidity, false, [&] {
    const auto level = mbCheckForHeadingHTML(block);
    if (!level || !takeHtmlPath(block, folder)) {
      return false;
    }
    const std::string title = mstrRemoveTagsFromHTML(block);
    const std::string fLink = mstrCheckFlink(block);
    const std::string bookLink = mstrCheckBookLink(platform, block, mstrCurFile_, mstrCurBookMark_);
    if (!accepts(block, checkHtmlTitle(block, title))) {
      return false;
    }
    exportText
        .append(text_form::lineOf({.level = *level,
                                   .name = title,
                                   .file = mstrCurFile_,
                                   .subLink = mstrCurBookMark_,
                                   .fLinkValue = fLink,
                                   .bookLinkValue = bookLink}))
        .append(kLineEnd);
    return true;
  });
}

std::optional<std::int16_t> TocCheck::mbCheckForHeadingHTML(std::string_view block) {
  const std::optional<std::int16_t> refused;
  return trapped(module_.platform.ui, source::kCheckForHeadingHtml, refused, [&] {
    std::int16_t level = 0;
    if (!accepts(block, checkHtmlLevel(block, mintPrevLevel_, level))) {
      return std::optional<std::int16_t>();
    }
    return std::optional(nodeLevelOf(level));
  });
}

std::string TocCheck::mstrCheckFlink(std::string_view block) {
  return trapped(module_.platform.ui, source::kCheckFlink, std::string(), [&] {
    return std::string(htmlFLinkValueIn(block));
  });
}

std::string TocCheck::mstrRemoveTagsFromHTML(std::string_view text) {
  return trapped(module_.platform.ui, source::kRemoveTagsFromHtml, std::string(), [&] {
    return withoutHtmlTags(text);
  });
}

/// Takes over the document that a block links to; nothing when the user was told that it has none.
std::optional<std::string_view> TocCheck::takeHtmlPath(std::string_view block,
                                                       std::string_view folder) {
  const auto path = htmlPathIn(block);
  if (path) {
    mbCheckFilePath(block, *path, folder);
  } else {
    tell(block, htmlPathMissing(block));
  }
  return path;
}

void TocCheck::recordBookLink(const std::string& identifier,
                              std::string_view title,
                              std::string_view tocPath) {
  const Platform& platform = module_.platform;
  const ProcessState& state = module_.state;
  AddToLinkIDFile(platform,
                  linkFileOf(platform.toolset, state.currentProductName),
                  identifier,
                  std::string(state.currentBookAcro).append(kLinkJoint).append(title),
                  std::string(tocPath),
                  state.currentProductName,
                  state.currentBookAcro);
}

bool TocCheck::mHTMLExportToText(std::string& tocPath, std::string_view text) {
  const Platform& platform = module_.platform;
  return trapped(platform.ui, source::kHtmlExportToText, false, [&] {
    tocPath = text_form::exportPathOf(platform.locale, tocPath, text_form::kHtmlExtension);
    try {
      TextWriter file(platform.files, tocPath);
      file.write(text);
      file.close();
      return true;
    } catch (const RunTimeError& error) {
      if (!error.is(ErrorNumber::kPermissionDenied)) {
        throw;
      }
      platform.ui.show({.text = (Message::kTemporaryFileUnderThis + folderOf(tocPath)).append(" ") +
                                Message::kNoPermissionAtLocation,
                        .icon = MessageIcon::kInformation});
      return false;
    }
  });
}

}  // namespace quorbind
