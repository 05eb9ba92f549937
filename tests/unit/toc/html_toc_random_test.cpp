// The quick reader of HTML pages against the plain one, on pages of every shape.

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <random>

#include "tests/support/one_file.h"
#include "tests/support/plain_html_toc.h"
#include "tests/support/world.h"
#include "toc/toc_check.h"

namespace quorbind::testing {

void PrintTo(const HtmlTocOutcome& outcome, std::ostream* stream) {
  *stream << (outcome.accepted ? "accepted" : "refused") << " at level " << outcome.lastLevel
          << ", " << ::testing::PrintToString(outcome.record) << ", missing "
          << ::testing::PrintToString(outcome.missingFiles) << ", export\n"
          << outcome.exportText;
}

namespace {

using Tokens = std::vector<std::string_view>;

/// What stands between the tags of a heading that is accepted.
constexpr std::string_view kLink = "HREF=\"a#b\"t";
constexpr std::string_view kHeading = "<K1>HREF=\"a#b\"t</K1>";
/// One that reads like it when the heading inside it is gone.
constexpr std::string_view kBlankHeading = "<K1>HREF=\"a#b\"t </K1>";
/// A start tag that the end tag behind it does not belong to.
constexpr std::string_view kOpenHeading = "<K1>HREF=\"a#b\"t";

class RandomPages : public ::testing::Test {
 protected:
  /// Holds both readers against each other and answers whether the page was accepted.
  bool compare(const std::string& page) {
    files_.put(page);
    world_.user.forget();
    TocCheck check(module_);
    HtmlTocOutcome outcome;
    outcome.accepted = check.mbValidateHTMLToc("C:\\toc.htm", outcome.exportText);
    outcome.record = world_.user.record();
    outcome.lastLevel = check.mintPrevLevel();
    outcome.missingFiles = check.marrsMissingFiles();
    EXPECT_EQ(outcome, checkHeadingsPlainly(page)) << page;
    return outcome.accepted;
  }

  std::size_t below(std::size_t bound) {
    return std::uniform_int_distribution<std::size_t>(0, bound - 1)(random_);
  }
  std::string_view oneOf(const Tokens& tokens) { return tokens[below(tokens.size())]; }

  std::string randomTokens(const Tokens& tokens, std::size_t count) {
    std::string page;
    for (std::size_t i = 0; i < count; ++i) {
      page += oneOf(tokens);
    }
    return page;
  }

  /// Headings in headings, out of few pieces, so that many of them read alike.
  std::string nestedHeadings(std::size_t depth) {
    std::string page;
    for (std::size_t count = below(4); count > 0; --count) {
      const std::string_view level = oneOf({"1", "1", "1", "2"});
      page.append("<K").append(level).append(">");
      page.append(oneOf({"", "", " ", "<b>"})).append(kLink).append(oneOf({"", "x", " "}));
      if (depth > 0) {
        page += nestedHeadings(depth - 1);
      }
      page.append(oneOf({"", "", " "})).append("</K").append(level).append(oneOf({">", ">", " >"}));
      page += oneOf({"", "", " ", "y"});
    }
    return page;
  }

  World world_;
  OneFile files_;
  Module module_{Platform{files_,
                          world_.platform().xml,
                          world_.platform().ui,
                          world_.platform().toolset,
                          world_.platform().locale,
                          world_.platform().spreadsheets}};
  std::mt19937 random_{20260102};
};

/// Calls `visitor` with every text of up to `length` of these tokens.
template <typename Visitor>
void forAllTexts(const Tokens& tokens, std::size_t length, Visitor&& visitor) {
  std::vector<std::string> texts{""};
  for (std::size_t tokenCount = 0; tokenCount < length; ++tokenCount) {
    std::vector<std::string> longer;
    for (const std::string& text : texts) {
      for (const std::string_view token : tokens) {
        longer.push_back(std::string(text).append(token));
        visitor(longer.back());
      }
    }
    texts = std::move(longer);
  }
}

TEST_F(RandomPages, OfEveryShortSequenceOfMarksAreReadAlike) {
  forAllTexts({"<K1>", "</K1>", "<K", "</K", "1>", kLink}, 6, [this](const std::string& page) {
    compare(page);
    ASSERT_FALSE(HasFailure());
  });
}

TEST_F(RandomPages, OfManyMarksAreReadAlike) {
  const Tokens tokens{
      "<K1>", "</K1>", "<K", "</k", ">", "1", " ", "<", "\xC3\xA4", kLink, kHeading};
  for (int page = 0; page < 20'000; ++page) {
    compare(randomTokens(tokens, 1 + below(20)));
    ASSERT_FALSE(HasFailure());
  }
}

TEST_F(RandomPages, OfNestedAndRepeatedHeadingsAreReadAlike) {
  int accepted = 0;
  for (int page = 0; page < 20'000; ++page) {
    accepted += compare(nestedHeadings(below(4))) ? 1 : 0;
    ASSERT_FALSE(HasFailure());
  }
  EXPECT_GT(accepted, 2000);
}

TEST_F(RandomPages, OfHeadingsThatBeganInsideOthersAreReadAlike) {
  int accepted = 0;
  for (int page = 0; page < 20'000; ++page) {
    std::string headings = randomTokens({kHeading, kHeading, kBlankHeading, kOpenHeading, " "}, 8);
    for (std::size_t count = below(4); count > 0; --count) {
      const std::size_t begin = below(headings.size());
      headings.insert(below(headings.size()), headings.substr(begin, 1 + below(40)));
    }
    accepted += compare(headings) ? 1 : 0;
    ASSERT_FALSE(HasFailure());
  }
  EXPECT_GT(accepted, 2000);
}

TEST_F(RandomPages, OfHeadingsThatDifferInFrontAloneAreReadAlike) {
  const Tokens tokens{
      "<K1>x", "<K1>x ", "<K1>y", kHeading, kHeading, kBlankHeading, kOpenHeading, " "};
  int accepted = 0;
  for (int page = 0; page < 20'000; ++page) {
    accepted += compare(randomTokens(tokens, 1 + below(24))) ? 1 : 0;
    ASSERT_FALSE(HasFailure());
  }
  EXPECT_GT(accepted, 2000);
}

TEST_F(RandomPages, WithBookLinksAndFLinkValuesAreReadAlike) {
  const Tokens inside{kLink,
                      "href=\"x/y.htm#b#c\"",
                      "FLinkValue=\"7\"",
                      "<IBD>#A#</IBD>",
                      "<ibd>",
                      "</ibd>",
                      "#",
                      "<b>",
                      "title",
                      "\""};
  for (int page = 0; page < 20'000; ++page) {
    std::string headings;
    for (std::size_t count = 1 + below(3); count > 0; --count) {
      headings += "<K1>" + randomTokens(inside, below(7)) + "</K1>";
    }
    compare(headings);
    ASSERT_FALSE(HasFailure());
  }
}

TEST_F(RandomPages, CutOffAnywhereAreReadAlike) {
  const std::string page =
      "<p><K1 ><A HREF=\"a.htm\" FLINKVALUE=\"x\">\xC3\xA4</A></K1><K2><IBD>#A#</IBD>"
      "HREF=\"b\"t</K 2>" +
      std::string(kHeading) + "<K2><K2>HREF=\"c\"" + std::string(kHeading) + "</K2>";
  for (std::size_t size = 0; size <= page.size(); ++size) {
    const bool isInsideCharacter = size < page.size() && (page[size] & 0xC0) == 0x80;
    if (!isInsideCharacter) {
      compare(page.substr(0, size));
      ASSERT_FALSE(HasFailure());
    }
  }
}

TEST_F(RandomPages, OfOneCharacterAreReadAlike) {
  for (int byte = 1; byte < 0x80; ++byte) {
    compare(std::string(1, static_cast<char>(byte)));
    ASSERT_FALSE(HasFailure());
  }
  compare("");
}

TEST_F(RandomPages, LoseTheSameTags) {
  forAllTexts({"<", ">", " ", "a"}, 8, [](const std::string& text) {
    ASSERT_EQ(withoutHtmlTags(text), removeTagsPlainly(text)) << text;
  });
  for (const Tokens& tokens : {Tokens{"<a>", "<a >", "<< >", "<b>", "<", ">", " ", "x"},
                               Tokens{"<1<x>", "<2<x>", "<1<", "<2<2<", "<x>", "<", ">", " "}}) {
    for (int text = 0; text < 20'000; ++text) {
      const std::string random = randomTokens(tokens, 1 + below(16));
      ASSERT_EQ(withoutHtmlTags(random), removeTagsPlainly(random)) << random;
    }
  }
}

}  // namespace
}  // namespace quorbind::testing
