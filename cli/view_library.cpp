#include "cli/view_library.h"

#include <algorithm>
#include <unordered_map>
#include <vector>

#include "cli/html_text.h"
#include "cli/text_list.h"
#include "platform/text.h"

namespace quorbind {

namespace {

constexpr std::string_view kLinksTitle = "Link identifiers";

/// Of lists in lists. Browsers put elements that stand in more than about five hundred others
/// beside those, and a list has two for each level.
constexpr std::size_t kDeepestList = 200;

std::string tag(std::string_view name, std::size_t depth) {
  return std::string(name) + std::to_string(depth);
}

/// The texts, each apart, with commas between them.
std::string isolatedList(const std::vector<std::string>& texts) {
  std::vector<std::string> isolated;
  isolated.reserve(texts.size());
  for (const std::string& text : texts) {
    isolated.push_back(isolatedText(text));
  }
  return joined(isolated, ", ");
}

std::string faultMark(const std::string& html) {
  return " <span class=\"fault\">" + html + "</span>";
}

std::string faultLine(const std::string& html) {
  return "<p class=\"fault\">" + html + "</p>\n";
}

std::string legible(const std::string& text) {
  return isolatedText(legibleName(text));
}

/// One part of a library under a title of its own.
struct Shelf {
  std::string place;
  std::string title;
  const std::vector<std::size_t>& books;
  const std::vector<std::string> unknownAcronyms = {};
};

class LibraryView {
 public:
  explicit LibraryView(const ViewedLibrary& viewed)
      : viewed_(viewed), library_(viewed.library), shelves_(shelves()) {}

  [[nodiscard]] std::string navigation() const {
    std::string html;
    for (const Shelf& shelf : shelves_) {
      html += entry(shelf.place, shelf.title, shelf.books.size());
    }
    if (!library_.links.empty()) {
      html += entry(placeOfLinks(), std::string(kLinksTitle), library_.links.size());
    }
    return html.empty() ? html : "<ul>\n" + html + "</ul>\n";
  }

  [[nodiscard]] FaultLinks faultLinks() const {
    FaultLinks links;
    for (std::size_t number = 0; number < library_.books.size(); ++number) {
      const LibraryBook& book = library_.books[number];
      if (book.missing > 0) {
        links.missing.push_back(linkToBook(number));
      }
      if (!book.failure.empty()) {
        links.unreadable.push_back(linkToBook(number));
      }
    }
    for (const LibraryLink& link : library_.links) {
      if (link.isDangling()) {
        links.dangling.push_back("<a href=\"#" + placeOfLink(link) + "\">" +
                                 isolatedText(readableName(link.entry.identifier)) + "</a>");
      }
    }
    return links;
  }

  [[nodiscard]] std::string contents() {
    std::string html;
    for (const std::string& failure : library_.failures) {
      html += faultLine("This can't be read: " + isolatedText(failure));
    }
    if (library_.books.empty() && library_.failures.empty()) {
      html += "<p class=\"empty aside\">There is no book here.</p>\n";
    }
    for (const Shelf& shelf : shelves_) {
      html += section(shelf);
    }
    return html + emptyCategories() + links();
  }

 private:
  [[nodiscard]] std::vector<Shelf> shelves() const {
    std::vector<Shelf> shelves;
    for (std::size_t number = 0; number < library_.categories.size(); ++number) {
      const LibraryCategory& category = library_.categories[number];
      if (!category.books.empty() || !category.unknownAcronyms.empty()) {
        shelves.push_back({place("c", number),
                           isolatedText(category.name),
                           category.books,
                           category.unknownAcronyms});
      }
    }
    if (!library_.uncategorised.empty()) {
      shelves.push_back({viewed_.prefix + "other",
                         shelves.empty() ? "Books" : "Without a category",
                         library_.uncategorised});
    }
    return shelves;
  }

  [[nodiscard]] std::string place(std::string_view kind, std::size_t number) const {
    return viewed_.prefix + std::string(kind) + std::to_string(number + 1);
  }
  [[nodiscard]] std::string placeOfBook(std::size_t book) const { return place("b", book); }
  [[nodiscard]] std::string placeOfLink(const LibraryLink& link) const {
    return place("i", static_cast<std::size_t>(&link - library_.links.data()));
  }
  [[nodiscard]] std::string placeOfLinks() const { return viewed_.prefix + "links"; }

  static std::string entry(const std::string& place, const std::string& title, std::size_t count) {
    return "<li><a href=\"#" + place + "\">" + title + "</a> <span class=\"count\">" +
           std::to_string(count) + "</span></li>\n";
  }

  /// A part with its title, by which assistive programs call it.
  [[nodiscard]] std::string part(const std::string& place,
                                 std::string_view kind,
                                 const std::string& title,
                                 const std::string& html) const {
    const std::string level = tag("h", viewed_.depth);
    return "<section class=\"" + std::string(kind) + "\" id=\"" + place + "\" aria-labelledby=\"" +
           place + "-title\">\n<" + level + " id=\"" + place + "-title\">" + title + "</" + level +
           ">\n" + html + "</section>\n";
  }

  [[nodiscard]] std::string section(const Shelf& shelf) {
    std::string html;
    for (const std::size_t book : shelf.books) {
      const auto [shown, isFirst] = shownUnder_.emplace(book, shelf.title);
      html += isFirst ? card(book) : reference(book, shown->second);
    }
    if (!shelf.unknownAcronyms.empty()) {
      html +=
          faultLine("Filed here, and not in the catalogue: " + isolatedList(shelf.unknownAcronyms));
    }
    return part(shelf.place, "category", shelf.title, html);
  }

  [[nodiscard]] std::string linkToBook(std::size_t book) const {
    return "<a href=\"#" + placeOfBook(book) + "\">" +
           legible(readableName(library_.books[book].entry.name)) + "</a>";
  }

  /// A book has one place in the page; every further category leads there.
  [[nodiscard]] std::string reference(std::size_t book, const std::string& category) const {
    return R"(<p class="also" data-book=")" + placeOfBook(book) + "\">" + linkToBook(book) +
           " stands under " + category + ".</p>\n";
  }

  [[nodiscard]] std::string card(std::size_t number) const {
    const LibraryBook& book = library_.books[number];
    const std::string place = placeOfBook(number);
    const std::string level = tag("h", viewed_.depth + 1);
    return R"(<article class="book" id=")" + place + R"(" aria-labelledby=")" + place +
           "-title\">\n<" + level + R"( class="title" id=")" + place + "-title\">" + name(book) +
           "</" + level + ">\n" + facts(book) + keywords(book) + tree(book) + "</article>\n";
  }

  [[nodiscard]] std::string linkTo(const FoundDocument& document) const {
    return viewed_.linkBase.to(document.file) +
           (document.bookmark.empty() ? "" : "#" + linkPiece(document.bookmark));
  }

  /// `inner` as a link to a document that is there, or without one.
  [[nodiscard]] std::string linked(const FoundDocument& document,
                                   std::string_view attributes,
                                   const std::string& inner) const {
    const bool isThere = document.state == FoundDocument::State::kThere;
    const std::string opening = isThere ? "a href=\"" + linkTo(document) + "\"" : "span";
    return "<" + opening + std::string(attributes) + ">" + inner + (isThere ? "</a>" : "</span>");
  }

  [[nodiscard]] std::string name(const LibraryBook& book) const {
    return linked(book.document, " class=\"own\"", legible(readableName(book.entry.name))) +
           " <span class=\"acronym own\">" + isolatedText(readableName(book.entry.acronym)) +
           "</span>";
  }

  static std::string facts(const LibraryBook& book) {
    const std::string folder = book.entry.folder.empty()
                                   ? "The library's own folder"
                                   : "Folder " + isolatedText(book.entry.folder);
    const std::string type = book.entry.fileType
                                 ? ", a single document: " + isolatedText(book.entry.bookFile)
                                 : std::string();
    return "<p class=\"facts\">" + folder + type +
           (book.document.isMissing() ? faultMark("missing") : "") + "</p>\n";
  }

  static std::string keywords(const LibraryBook& book) {
    std::string items;
    for (const std::string& word : book.keywords) {
      items += "<li class=\"own\">" + isolatedText(word) + "</li>";
    }
    return items.empty() ? items
                         : R"(<ul class="keywords" aria-label="Keywords">)" + items + "</ul>\n";
  }

  [[nodiscard]] std::string tree(const LibraryBook& book) const {
    if (!book.failure.empty()) {
      return faultLine("The headings can't be read: " + isolatedText(book.failure));
    }
    if (book.headings.empty()) {
      return book.entry.fileType ? "" : "<p class=\"facts\">No headings</p>\n";
    }
    return "<details>\n<summary>" + counted(book.headings.size(), "heading", "headings") +
           (book.missing == 0
                ? ""
                : faultMark(counted(book.missing, "document", "documents") + " missing")) +
           "</summary>\n" + headings(book) + "</details>\n";
  }

  [[nodiscard]] std::string headings(const LibraryBook& book) const {
    std::string html = "<ul class=\"tree\">\n";
    std::size_t open = 0;
    bool isFirst = true;
    for (const LibraryHeading& heading : book.headings) {
      // A level that is left out makes none in the page.
      const std::size_t depth =
          isFirst ? 0 : std::min({heading.heading.depth, open + 1, kDeepestList});
      if (!isFirst) {
        html += depth > open ? "\n<ul>\n" : "</li>\n";
      }
      for (; open > depth; --open) {
        html += "</ul></li>\n";
      }
      open = depth;
      isFirst = false;
      html += "<li>" + line(heading);
    }
    html += "</li>\n";
    for (; open > 0; --open) {
      html += "</ul></li>\n";
    }
    return html + "</ul>\n";
  }

  [[nodiscard]] std::string line(const LibraryHeading& heading) const {
    return linked(heading.document, " class=\"heading\"", legible(heading.heading.title)) +
           levelBelowTheLists(heading.heading.depth) +
           (heading.document.isMissing()
                ? faultMark("missing: " + isolatedText(heading.heading.document))
                : "");
  }

  /// Of a heading that stands beside those above it; empty where its list shows the level.
  static std::string levelBelowTheLists(std::size_t depth) {
    return depth > kDeepestList
               ? " <span class=\"count\">level " + std::to_string(depth + 1) + "</span>"
               : "";
  }

  [[nodiscard]] std::string emptyCategories() const {
    std::vector<std::string> names;
    for (const LibraryCategory& category : library_.categories) {
      if (category.books.empty() && category.unknownAcronyms.empty()) {
        names.push_back(category.name);
      }
    }
    return names.empty()
               ? ""
               : "<p class=\"empty aside\">Categories without books: " + isolatedList(names) +
                     ".</p>\n";
  }

  [[nodiscard]] std::string links() const {
    if (library_.links.empty()) {
      return {};
    }
    std::string rows;
    for (const LibraryLink& link : library_.links) {
      rows += "<tr id=\"" + placeOfLink(link) + R"("><th scope="row">)" +
              isolatedText(readableName(link.entry.identifier)) + "</th><td>" + target(link) +
              "</td><td>" + document(link) + "</td></tr>\n";
    }
    return part(placeOfLinks(),
                "aside",
                std::string(kLinksTitle),
                R"(<div class="scroll" tabindex="0" role="group" aria-labelledby=")" +
                    placeOfLinks() +
                    "-title\">\n<table>\n<thead><tr><th scope=\"col\">Identifier</th><th "
                    "scope=\"col\">Leads to</th><th scope=\"col\">Document</th></tr></thead>\n"
                    "<tbody>\n" +
                    rows + "</tbody>\n</table>\n</div>\n");
  }

  /// The book, and the headings that its full link names.
  [[nodiscard]] std::string target(const LibraryLink& link) const {
    std::string html = link.book ? linkToBook(*link.book) : "";
    const std::string full = replaceAll(link.entry.fullLink, "@quor@", "@QUOR@");
    for (const std::string_view piece : Pieces(full, "@QUOR@")) {
      if (!trimBlanks(piece).empty() && piece != link.entry.acronym) {
        html.append(html.empty() ? "" : " &rsaquo; ").append(isolatedText(readableName(piece)));
      }
    }
    return html;
  }

  [[nodiscard]] std::string document(const LibraryLink& link) const {
    if (!link.book) {
      return faultMark("leads nowhere: there is no book " + isolatedText(link.entry.acronym));
    }
    if (link.document.state == FoundDocument::State::kNone) {
      return "the whole book";
    }
    const std::string name = isolatedText(documentOf(link.entry));
    return link.isDangling() ? faultMark("leads nowhere: missing " + name)
                             : linked(link.document, "", name);
  }

  const ViewedLibrary& viewed_;
  const LibraryModel& library_;
  const std::vector<Shelf> shelves_;
  /// Of each book that has its place in the page: the category under which.
  std::unordered_map<std::size_t, std::string> shownUnder_;
};

}  // namespace

FaultLinks& FaultLinks::operator+=(const FaultLinks& more) {
  missing.insert(missing.end(), more.missing.begin(), more.missing.end());
  unreadable.insert(unreadable.end(), more.unreadable.begin(), more.unreadable.end());
  dangling.insert(dangling.end(), more.dangling.begin(), more.dangling.end());
  return *this;
}

FaultLinks faultLinksOf(const ViewedLibrary& viewed) {
  return LibraryView(viewed).faultLinks();
}

std::string navigationOf(const ViewedLibrary& viewed) {
  return LibraryView(viewed).navigation();
}

std::string contentsOf(const ViewedLibrary& viewed) {
  return LibraryView(viewed).contents();
}

}  // namespace quorbind
