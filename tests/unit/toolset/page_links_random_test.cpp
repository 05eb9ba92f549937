// The search for links, which looks at each `=` of a page once, against one that tries a pattern at
// every place of the page.

#include <gtest/gtest.h>

#include <regex>
#include <string>
#include <string_view>
#include <vector>

#include "platform/text.h"
#include "platform/text_encoding.h"
#include "tests/support/random_choices.h"
#include "toolset/page_links.h"

namespace quorbind::testing {
namespace {

using Links = std::vector<std::string>;

/// Every escape as the byte that it stands for.
std::string unescapedPlainly(const std::string& text) {
  static const std::regex escape("%([0-9A-Fa-f]{2})");
  std::string result;
  std::string rest = text;
  for (std::smatch found; std::regex_search(rest, found, escape); rest = found.suffix().str()) {
    result += found.prefix().str() + static_cast<char>(std::stoi(found.str(1), nullptr, 16));
  }
  return result + rest;
}

std::string namePlainly(const std::string& value) {
  static const std::regex whiteSpaceAround("^[ \\t\\r\\n\\f]+|[ \\t\\r\\n\\f]+$");
  static const std::regex queryOrBookmark("[?#][^]*");
  const std::string link = std::regex_replace(value, whiteSpaceAround, "");
  const std::string name = std::regex_replace(link, queryOrBookmark, "");
  return toValidUtf8(unescapedPlainly(replaceAll(name, "&amp;", "&")));
}

/// The pattern is an attribute behind something that is no part of a name. Behind a value in quotes
/// the search goes on inside it, behind one without quotes where it ends.
Links linksPlainly(const std::string& page) {
  static const std::regex attribute(
      "[^A-Za-z0-9_.:-](?:src|href)[ \\t\\r\\n\\f]*=[ \\t\\r\\n\\f]*"
      "(?:\"([^\"]*)\"|'([^']*)'|([^\"' \\t\\r\\n\\f>][^ \\t\\r\\n\\f>]*))",
      std::regex::icase);
  Links links;
  std::string rest = page;
  for (std::smatch found; std::regex_search(rest, found, attribute);) {
    const std::string name = namePlainly(found.str(1) + found.str(2) + found.str(3));
    if (!name.empty()) {
      links.push_back(name);
    }
    const auto equals = static_cast<std::size_t>(found.position()) + found.str().find('=', 1);
    rest = found[3].matched ? found.suffix().str() : rest.substr(equals);
  }
  return links;
}

class RandomLinks : public ::testing::Test {
 protected:
  /// Holds both searches against each other and answers how many links there are.
  static std::size_t compare(const std::string& page) {
    const Links links = linksIn(page);
    EXPECT_EQ(links, linksPlainly(page)) << page;
    return links.size();
  }

  /// Answers how many links all pages have together.
  std::size_t compareMany(const std::vector<std::string_view>& tokens, std::size_t longest) {
    constexpr int kPages = 5'000;
    std::size_t links = 0;
    for (int page = 0; page < kPages && !HasFailure(); ++page) {
      links += compare(random_.textOf(tokens, 1 + random_.below(longest)));
    }
    return links;
  }

  RandomChoices random_{20260102};
};

TEST_F(RandomLinks, OfMarksInAnyOrderAreFoundAlike) {
  EXPECT_GT(compareMany({"src", "href", "=", "=", " ", " ", "\"", "'", ">", "a", "-", "x/"}, 16),
            300U);
}

TEST_F(RandomLinks, OfAttributesInAttributesAreFoundAlike) {
  EXPECT_GT(compareMany({" src=",
                         " HRef =\n",
                         " src='",
                         "' ",
                         " href=\"",
                         "\" ",
                         "a.png",
                         "\t",
                         "data-",
                         "<img",
                         ">",
                         "src=b ",
                         "/src"},
                        12),
            5000U);
}

TEST_F(RandomLinks, OfEscapesAreReadAlike) {
  const std::vector<std::string_view> inside{"a",
                                             "%20",
                                             "%",
                                             "%C3%A4",
                                             "%c3",
                                             "%G1",
                                             "2",
                                             "&amp;",
                                             "&",
                                             "#",
                                             "?",
                                             "/",
                                             " ",
                                             "..",
                                             "%25",
                                             "\xC3\xA4"};
  std::size_t links = 0;
  for (int page = 0; page < 5'000 && !HasFailure(); ++page) {
    links += compare("<a href=\"" + random_.textOf(inside, random_.below(8)) + "\">");
  }
  EXPECT_GT(links, 2000U);
}

TEST_F(RandomLinks, OfPagesThatEndAnywhereAreFoundAlike) {
  const std::string page =
      "<img\r\n\tSRC = 'a b.png' alt=x><a href=c%20d.htm#top>c</a><a data-src=e href=\"f.htm?g\">";
  for (std::size_t size = 0; size <= page.size() && !HasFailure(); ++size) {
    compare(page.substr(0, size));
  }
}

}  // namespace
}  // namespace quorbind::testing
