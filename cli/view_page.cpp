#include "cli/view_page.h"

#include <algorithm>

#include "cli/html_text.h"
#include "cli/page_assets.h"
#include "cli/text_list.h"
#include "cli/view_library.h"

namespace quorbind {

namespace {

constexpr std::string_view kServerTitle = "Documentation libraries";
/// How many places of one kind of fault the beginning of a page names.
constexpr std::size_t kShownFaults = 5;

/// What a page is made of.
struct Parts {
  /// Both of the same words; the first is plain text.
  std::string title;
  std::string heading;
  LibraryCounts counts;
  FaultLinks faultLinks;
  std::string navigation;
  std::string contents;
};

/// Nothing from elsewhere; and of what stands in the page only this style and this script.
std::string securityPolicy() {
  return "default-src 'none'; style-src '" + std::string(page_assets::kStyleHash) +
         "'; script-src '" + std::string(page_assets::kScriptHash) +
         "'; base-uri 'none'; form-action 'none'";
}

std::string head(const std::string& title) {
  return std::string(kPageBeginning) +
         "<html lang=\"en\">\n<head>\n<meta charset=\"utf-8\">\n"
         "<meta http-equiv=\"Content-Security-Policy\" content=\"" +
         securityPolicy() +
         "\">\n<meta name=\"viewport\" content=\"width=device-width, initial-scale=1\">\n<title>" +
         htmlText(title) + "</title>\n<style>" + std::string(page_assets::kStyle) +
         "</style>\n</head>\n";
}

/// The first few places where something is wrong, behind `lead`.
std::string firstOf(std::vector<std::string> links, std::string_view lead) {
  const std::size_t shown = std::min(links.size(), kShownFaults);
  const std::string rest =
      links.size() == shown ? "" : " and " + std::to_string(links.size() - shown) + " more";
  links.resize(shown);
  return links.empty() ? "" : std::string(lead) + joined(links, ", ") + rest;
}

std::string faults(const LibraryCounts& counts, const FaultLinks& links) {
  std::string items;
  const auto add = [&items](const std::vector<std::string>& places,
                            std::string_view lead,
                            std::size_t count,
                            std::string_view one,
                            std::string_view several) {
    if (count > 0) {
      items += "<li>" + counted(count, one, several) + firstOf(places, lead) + "</li>\n";
    }
  };
  add(links.missing, " in ", counts.missing, "document is missing", "documents are missing");
  add(links.unreadable, ": ", counts.unreadable, "file can't be read", "files can't be read");
  add(links.dangling,
      ": ",
      counts.dangling,
      "link identifier leads nowhere",
      "link identifiers lead nowhere");
  return items.empty() ? items
                       : "<ul class=\"faults\" aria-label=\"What is wrong\">\n" + items + "</ul>\n";
}

std::string banner(const Parts& parts) {
  return "<a class=\"skip\" href=\"#books\">Skip to the books</a>\n<header>\n<h1>" + parts.heading +
         "</h1>\n<p>" + counted(parts.counts.books, "book", "books") + ", " +
         counted(parts.counts.headings, "heading", "headings") + "</p>\n" +
         faults(parts.counts, parts.faultLinks) + "</header>\n";
}

constexpr std::string_view kSearch =
    "<form role=\"search\" hidden>\n"
    "<label for=\"q\">Search names, keywords and headings</label>\n"
    "<input id=\"q\" type=\"search\" autocomplete=\"off\" spellcheck=\"false\" "
    "aria-keyshortcuts=\"/\">\n"
    "<button type=\"button\" id=\"open\">Open all</button>\n"
    "<button type=\"button\" id=\"close\">Close all</button>\n"
    "<p id=\"hits\" role=\"status\"></p>\n"
    "</form>\n";

constexpr std::string_view kFooter =
    "<footer>\n<p>Made by <code>quorbind view</code>. It shows what was there then; after a "
    "change, "
    "make it again.</p>\n</footer>\n";

std::string pageOf(const Parts& parts) {
  const std::string navigation =
      parts.navigation.empty() ? ""
                               : "<nav aria-labelledby=\"contents\">\n<h2 id=\"contents\">Contents"
                                 "</h2>\n" +
                                     parts.navigation + "</nav>\n";
  return head(parts.title) + "<body>\n" + banner(parts) + "<div class=\"columns\">\n" +
         std::string(kSearch) + navigation + "<main id=\"books\" tabindex=\"-1\">\n" +
         parts.contents + "</main>\n</div>\n" + std::string(kFooter) + "<script>" +
         std::string(page_assets::kScript) + "</script>\n</body>\n</html>\n";
}

/// A library among others, under its name.
std::string sectionOf(const ViewedLibrary& viewed,
                      const std::string& place,
                      const std::string& name) {
  return R"(<section class="library" id=")" + place + R"(" aria-labelledby=")" + place +
         "-title\">\n<h2 id=\"" + place + "-title\">" + name + "</h2>\n" + contentsOf(viewed) +
         "</section>\n";
}

}  // namespace

std::string ViewPage::ofLibrary(const LibraryModel& library) const {
  const ViewedLibrary viewed{.library = library, .prefix = "", .linkBase = linkBase_};
  return pageOf({.title = library.name,
                 .heading = isolatedText(library.name),
                 .counts = countsOf(library),
                 .faultLinks = faultLinksOf(viewed),
                 .navigation = navigationOf(viewed),
                 .contents = contentsOf(viewed)});
}

std::string ViewPage::ofServer(const std::vector<LibraryModel>& libraries) const {
  const std::string title(kServerTitle);
  Parts parts;
  parts.title = title;
  parts.heading = title;
  for (std::size_t number = 0; number < libraries.size(); ++number) {
    const LibraryModel& library = libraries[number];
    const std::string place = "l" + std::to_string(number + 1);
    const std::string name = isolatedText(library.name);
    const ViewedLibrary viewed{
        .library = library, .prefix = place + "-", .linkBase = linkBase_, .depth = 3};
    parts.counts += countsOf(library);
    parts.faultLinks += faultLinksOf(viewed);
    parts.navigation.append("<li><a href=\"#")
        .append(place)
        .append("\">")
        .append(name)
        .append("</a>\n")
        .append(navigationOf(viewed))
        .append("</li>\n");
    parts.contents += sectionOf(viewed, place, name);
  }
  if (!parts.navigation.empty()) {
    parts.navigation = "<ul>\n" + parts.navigation + "</ul>\n";
  }
  return pageOf(parts);
}

}  // namespace quorbind
