// Bytes as an HTML page: its tags, its headings, its links, and the book that is added from it.

#include <string>

#include "platform/text.h"
#include "platform/text_encoding.h"
#include "platform/text_file.h"
#include "tests/fuzz/claim.h"
#include "tests/fuzz/fuzzed_library.h"
#include "tests/fuzz/targets.h"
#include "tests/support/plain_html_toc.h"
#include "toc/html_toc.h"
#include "toc/toc_check.h"
#include "toolset/page_links.h"

namespace quorbind::testing {

namespace {

constexpr const char* kPage = "in/page.htm";
/// The plain readers take the square of a page's size and more.
constexpr std::size_t kLargestForPlainReaders = 2000;

/// The plain readers know the capitals of ASCII alone.
bool isForPlainReaders(const Platform& platform, std::string_view page) {
  return page.size() <= kLargestForPlainReaders &&
         platform.locale.upperCase(page) == upperCaseAscii(page);
}

void claimLinksAreText(std::string_view page) {
  for (const std::string& link : linksIn(page)) {
    claim(!link.empty() && isValidUtf8(link), "a link is a text");
    claim(link.find_first_of("?#") == std::string::npos || page.find('%') != std::string_view::npos,
          "a link ends before a query or a bookmark");
  }
}

void claimReadersAgree(FuzzedLibrary& library, std::string_view page) {
  claim(withoutHtmlTags(page) == removeTagsPlainly(page), "tags are removed as the rule is told");
  if (htmlTitleBlockIn(page)) {
    return;
  }
  library.library().user.forget();
  Module module(library.platform());
  TocCheck check(module);
  HtmlTocOutcome outcome;
  outcome.accepted = check.mbValidateHTMLToc(componentPath(kPage), outcome.exportText);
  outcome.record = library.library().user.record();
  outcome.lastLevel = check.mintPrevLevel();
  outcome.missingFiles = check.marrsMissingFiles();
  claim(outcome == checkHeadingsPlainly(page), "headings are taken out as the rule is told");
}

}  // namespace

void fuzzHtml(std::string_view bytes) {
  FuzzedLibrary& library = FuzzedLibrary::restored();
  library.files().write(kPage, bytes);
  const std::string page =
      TextReader(library.platform().files, library.platform().locale, componentPath(kPage))
          .readAll();
  claimLinksAreText(page);
  if (isForPlainReaders(library.platform(), page)) {
    claimReadersAgree(library, page);
  }
  library.add("page.htm", TocCheck::kHtml);
  library.claimIsWhole();
}

}  // namespace quorbind::testing
