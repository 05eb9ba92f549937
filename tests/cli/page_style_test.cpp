// The colours of library pages: a text has to stand out from what it stands on, for everybody.

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <string>
#include <string_view>

#include "cli/page_assets.h"

namespace quorbind::testing {
namespace {

/// What WCAG 2 asks of ordinary text (level AA).
constexpr double kEnough = 4.5;

enum class Scheme { kLight, kDark };

/// The value that a scheme gives to a colour's name: `#` and six digits.
std::string_view colour(Scheme scheme, std::string_view name) {
  std::string_view style = page_assets::kStyle;
  if (scheme == Scheme::kDark) {
    style.remove_prefix(style.find("prefers-color-scheme: dark"));
  }
  const std::size_t begin = style.find("--" + std::string(name) + ": #");
  EXPECT_NE(begin, std::string_view::npos) << name;
  return style.substr(style.find('#', begin), 7);
}

double luminance(std::string_view colour) {
  const auto part = [colour](std::size_t at) {
    const double value = std::stoi(std::string(colour.substr(at, 2)), nullptr, 16) / 255.0;
    return value <= 0.03928 ? value / 12.92 : std::pow((value + 0.055) / 1.055, 2.4);
  };
  return 0.2126 * part(1) + 0.7152 * part(3) + 0.0722 * part(5);
}

double contrast(std::string_view one, std::string_view other) {
  const auto [low, high] = std::minmax({luminance(one), luminance(other)});
  return (high + 0.05) / (low + 0.05);
}

TEST(PageStyle, ContrastIsMeasuredAsItIsDefined) {
  EXPECT_NEAR(contrast("#000000", "#ffffff"), 21, 0.001);
  EXPECT_NEAR(contrast("#777777", "#ffffff"), 4.48, 0.01);
}

TEST(PageStyle, EveryTextStandsOutFromItsGroundInBothSchemes) {
  struct Pair {
    const char* text;
    const char* ground;
  };
  for (const Scheme scheme : {Scheme::kLight, Scheme::kDark}) {
    for (const auto& [text, ground] : {Pair{"text", "ground"},
                                       {"text", "card"},
                                       {"text", "chip"},
                                       {"quiet", "ground"},
                                       {"quiet", "card"},
                                       {"link", "ground"},
                                       {"link", "card"},
                                       {"link", "mark"},
                                       {"text", "mark"},
                                       {"accent", "ground"},
                                       {"warning", "warning-ground"}}) {
      EXPECT_GE(contrast(colour(scheme, text), colour(scheme, ground)), kEnough)
          << text << " on " << ground << (scheme == Scheme::kDark ? ", dark" : ", light");
    }
  }
}

TEST(PageStyle, LoadsNothing) {
  for (const char* loading : {"url(", "@import", "http:", "https:"}) {
    EXPECT_EQ(page_assets::kStyle.find(loading), std::string_view::npos) << loading;
    EXPECT_EQ(page_assets::kScript.find(loading), std::string_view::npos) << loading;
  }
}

}  // namespace
}  // namespace quorbind::testing
