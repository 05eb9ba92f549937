// What the component does with a list in one reading and one writing leaves the same files and
// shows the same boxes as the published way, item by item, for whatever stands in the files and in
// the list, on a disk that is full at any point, and on one that goes away.

#include <array>
#include <functional>
#include <map>
#include <optional>
#include <random>

#include "platform/xml_writer.h"
#include "sidefiles/category_filing.h"
#include "sidefiles/category_rebuild.h"
#include "sidefiles/keyword_list.h"
#include "sidefiles/link_file.h"
#include "sidefiles/link_identifiers.h"
#include "tests/support/read_only_files.h"
#include "tests/support/watched_xml.h"
#include "tests/unit/sidefiles/plain_operations.h"
#include "tests/unit/sidefiles/side_file_test.h"
#include "toc/text_form.h"

namespace quorbind::testing {
namespace {

constexpr const char* kCategories = "C:\\cat.xml";
constexpr const char* kCatalogue = "C:\\Quor_TOC.xml";
constexpr const char* kKeywords = "C:\\kw.xml";
constexpr const char* kExport = "C:\\toc_Temp.txt";

/// Random numbers, names and documents: the same in the same round.
class Chance {
 public:
  explicit Chance(unsigned seed) : random_(seed) {}

  unsigned below(unsigned bound) { return static_cast<unsigned>(random_()) % bound; }
  bool oneIn(unsigned chances) { return below(chances) == 0; }

  template <std::size_t kCount>
  std::string anyOf(const std::array<const char*, kCount>& choices) {
    return choices[below(kCount)];
  }
  /// Words that come again soon, some of them awkward.
  std::string word() {
    constexpr std::array kWords{"A", "B", "a", "ALM", "TRD", "Other Category", "R&D", "目录"};
    constexpr std::array kAwkward{
        "O'Neil", "", " x ", "\t", "a\nb", "\x01", "<\"&amp;\">", "Other Category", " "};
    return oneIn(4) ? anyOf(kAwkward) : anyOf(kWords);
  }
  std::vector<std::string> words(unsigned atMost) {
    std::vector<std::string> words(below(atMost + 1));
    for (std::string& each : words) {
      each = word();
    }
    return words;
  }
  TextArray array(unsigned atMost) {
    return {words(atMost), oneIn(4) ? static_cast<std::int32_t>(below(5)) - 2 : 0};
  }

  /// A document of some kind: mostly `whole`, sometimes what has happened to one.
  std::optional<std::string> file(const std::string& whole) {
    if (oneIn(10)) {
      return std::nullopt;
    }
    if (oneIn(15)) {
      return whole.substr(0, below(static_cast<unsigned>(whole.size()) + 1));
    }
    if (oneIn(15)) {
      return "<Foreign/>";
    }
    return oneIn(3) ? utf16File("<?xml version=\"1.0\" encoding=\"UTF-16\"?>" + whole) : whole;
  }

 private:
  std::mt19937 random_;
};

/// An element with text in it, as it stands in a file.
std::string element(const std::string& name, const std::string& text) {
  std::string result;
  XmlWriter writer([&result](std::string_view piece) { result.append(piece); });
  writer.textElement(name, text);
  writer.endDocument();
  return result;
}

std::string categoriesFile(Chance& chance) {
  std::string text = "<BookSet_Categories>";
  for (unsigned count = chance.below(7); count > 0; --count) {
    text += chance.oneIn(12) ? "<!-- note -->" : "";
    text += "<Category>";
    text += chance.oneIn(10) ? "" : element("CategoryName", chance.word());
    text += chance.oneIn(12) ? element("CategoryName", chance.word()) : "";
    text += chance.oneIn(12) ? "<!--A-->" : "";
    text += chance.oneIn(20) ? "text" : "";
    for (const std::string& acronym : chance.words(4)) {
      text += element("BookAcro", acronym);
    }
    text += "</Category>";
  }
  return text + "</BookSet_Categories>";
}

std::string catalogueFile(Chance& chance) {
  std::string text = "<Quor_Master><Quor_Books>";
  for (unsigned count = chance.below(8); count > 0; --count) {
    const std::string acronym = chance.oneIn(8) ? "" : element("Book_Acro", chance.word());
    const bool acronymLast = chance.oneIn(8);
    text += "<Book>" + element("Book_Name", chance.word()) + (acronymLast ? "" : acronym);
    if (!chance.oneIn(8)) {
      text += "<Book_Categories>";
      for (const std::string& category : chance.words(3)) {
        text += element("Book_Category", category);
      }
      text += "</Book_Categories>";
    }
    text += (acronymLast ? acronym : "") + "</Book>";
  }
  return text + "</Quor_Books></Quor_Master>";
}

std::string keywordsFile(Chance& chance) {
  std::string text = "<Books>";
  for (unsigned count = chance.below(4); count > 0; --count) {
    constexpr std::array kBooks{"Alarms", "R&amp;D", "Trends"};
    text += "<Book Book_Name=\"" + chance.anyOf(kBooks) + "\">";
    for (unsigned lists = chance.oneIn(6) ? chance.below(3) : 1; lists > 0; --lists) {
      text += "<Keywords>";
      for (const std::string& keyword : chance.words(4)) {
        text += element("Keyword", keyword);
      }
      text += "</Keywords>";
    }
    text += "</Book>";
  }
  return text + "</Books>";
}

std::string linksFile(Chance& chance) {
  std::string text = "<LINKS><IBD>";
  for (const std::string& identifier : chance.words(4)) {
    text += "<ID>" + element("LinkID", identifier);
    if (!chance.oneIn(10)) {
      text += element("FullLink", chance.oneIn(3) ? " " : "BK@QUOR@x");
      text += element("LinkIDSourceFile", "Prod\\a") + element("BookAcro", "BK");
      text += chance.oneIn(8) ? "<More/>" : "";
    }
    text += "</ID>";
  }
  return text + "</IBD></LINKS>";
}

std::string exportFile(Chance& chance) {
  std::string text = "\"Node Level\"\r\n\r\n";
  std::int32_t level = 0;
  for (unsigned count = chance.below(9); count > 0; --count) {
    level = 1 + static_cast<std::int32_t>(chance.below(static_cast<unsigned>(level) + 1));
    level += chance.oneIn(40) ? 2 : 0;
    std::string link = chance.oneIn(5) ? "#NO_BOOKLINK#" : chance.word() + "@@@" + chance.word();
    link = chance.oneIn(60) ? "no separator" : link;
    const std::string name = chance.word();
    std::string line = text_form::lineOf({.level = level, .name = name, .bookLinkValue = link});
    for (char& c : line) {
      c = c == '\n' ? ' ' : c;
    }
    text += line + "\r\n";
  }
  return text;
}

/// One component with which an operation is run.
struct Stage {
  Stage() : xml(world.platform().xml, world.platform().files, "C:\\scratch.xml") {}

  World world;
  WatchedXml xml;
  ReadOnlyFiles readOnly{world.platform().files};

  [[nodiscard]] Platform platform(bool mayMakeFiles) {
    const Platform& p = world.platform();
    return {mayMakeFiles ? p.files : readOnly, xml, p.ui, p.toolset, p.locale, p.spreadsheets};
  }
};

using Operation = std::function<void(const Platform&, ProcessState&)>;

/// One round: what stands on the disk and what the process holds, and then the operation, done both
/// ways.
class Round {
 public:
  explicit Round(unsigned seed) : chance(seed) {}

  void putFile(const std::string& name, const std::optional<std::string>& content) {
    if (content) {
      files[name] = *content;
    }
  }

  /// Compares what the two leave and what they show.
  void compare(const Operation& once, const Operation& plain) {
    Stage ours;
    Stage published;
    const bool mayMakeFiles = !chance.oneIn(10);
    const bool productsAreUnknown = chance.oneIn(12);
    const bool hasTextRules = !chance.oneIn(12);
    const bool diskIsSmall = chance.oneIn(3);
    const std::size_t space = 100 + chance.below(3000);
    const bool diskGoesAway = chance.oneIn(6);
    for (Stage* stage : {&ours, &published}) {
      for (const auto& [name, content] : files) {
        stage->world.disk.write(name, content);
      }
      stage->world.state() = state;
      if (productsAreUnknown) {
        stage->world.toolset.breakProductServices();
      }
      if (!hasTextRules) {
        stage->world.toolset.breakTextRules();
      }
      if (diskIsSmall) {
        stage->xml.limitSavesTo(space);
      }
      if (diskGoesAway) {
        stage->xml.goAwayAtTheFirstSave();
      }
      const Platform platform = stage->platform(mayMakeFiles);
      (stage == &ours ? once : plain)(platform, stage->world.state());
    }
    EXPECT_EQ(ours.world.user.record(), published.world.user.record());
    EXPECT_EQ(ours.world.disk.contents(), published.world.disk.contents());
    EXPECT_EQ(ours.world.state().currentCategoriesPath,
              published.world.state().currentCategoriesPath);
  }

  Chance chance;
  std::map<std::string, std::string> files;
  ProcessState state;
};

void inManyRounds(const std::function<void(Round&)>& play) {
  constexpr unsigned kRounds = 60;
  for (unsigned seed = 0; seed < kRounds && !::testing::Test::HasFailure(); ++seed) {
    SCOPED_TRACE("round " + std::to_string(seed));
    Round round(seed);
    play(round);
  }
}

TEST(OneWriting, FilesABookUnderTheCategoriesOfARunLikeOneByOne) {
  inManyRounds([](Round& round) {
    round.putFile("cat.xml", round.chance.file(categoriesFile(round.chance)));
    round.state.currentCategoriesPath = kCategories;
    round.state.currentBookAcro = round.chance.word();
    const std::vector<std::string> names = round.chance.words(6);
    round.compare([&](const Platform& platform,
                      ProcessState& state) { AddCategoryNodes(platform, state, names); },
                  [&](const Platform& platform, ProcessState& state) {
                    for (const std::string& name : names) {
                      plain::addCategoryNode(platform, state, name, state.currentBookAcro);
                    }
                  });
  });
}

TEST(OneWriting, AddsAcronymsToACategoryAsPublished) {
  inManyRounds([](Round& round) {
    round.putFile("cat.xml", round.chance.file(categoriesFile(round.chance)));
    const std::string name = round.chance.word();
    const TextArray acronyms = round.chance.array(6);
    round.compare(
        [&](const Platform& platform, ProcessState& /*state*/) {
          AddBookAcro(platform, name, acronyms, kCategories);
        },
        [&](const Platform& platform, ProcessState& /*state*/) {
          plain::addBookAcro(platform, name, acronyms, kCategories);
        });
  });
}

TEST(OneWriting, AddsAcronymsToOtherCategoryAsPublished) {
  inManyRounds([](Round& round) {
    round.putFile("cat.xml", round.chance.file(categoriesFile(round.chance)));
    const std::string name = round.chance.oneIn(2) ? "A" : round.chance.word();
    const TextArray acronyms = round.chance.array(6);
    round.compare(
        [&](const Platform& platform, ProcessState& state) {
          Addothercategory(platform, state, name, acronyms, kCategories);
        },
        [&](const Platform& platform, ProcessState& /*state*/) {
          plain::addOtherCategory(platform, name, acronyms, kCategories);
        });
  });
}

TEST(OneWriting, RebuildsTheCategoriesLikeOneByOne) {
  inManyRounds([](Round& round) {
    round.putFile("cat.xml", round.chance.file(categoriesFile(round.chance)));
    round.putFile("Quor_TOC.xml", round.chance.file(catalogueFile(round.chance)));
    round.compare(
        [&](const Platform& platform, ProcessState& state) {
          GetBookAcroInfo(platform, state, kCategories, kCatalogue);
        },
        [&](const Platform& platform, ProcessState& state) {
          plain::getBookAcroInfo(platform, state, kCategories, kCatalogue);
        });
  });
}

TEST(OneWriting, AnswersTheAcronymsOfACategoryLikeBookByBook) {
  inManyRounds([](Round& round) {
    round.putFile("cat.xml", round.chance.file(categoriesFile(round.chance)));
    round.putFile("Quor_TOC.xml", round.chance.file(catalogueFile(round.chance)));
    round.state.currentCategoriesPath = kCategories;
    const std::string name = round.chance.word();
    TextArray ours;
    TextArray published;
    round.compare(
        [&](const Platform& platform, ProcessState& state) {
          ours = GetBookAcroValue(platform, state, name, kCatalogue);
        },
        [&](const Platform& platform, ProcessState& state) {
          published = plain::getBookAcroValue(platform, state, name, kCatalogue);
        });
    EXPECT_EQ(ours.texts, published.texts);
  });
}

TEST(OneWriting, AddsKeywordsLikeOneByOne) {
  inManyRounds([](Round& round) {
    round.putFile("kw.xml", round.chance.file(keywordsFile(round.chance)));
    constexpr std::array kBooks{"Alarms", "R&D", "O'Neil", ""};
    round.state.currentBookName = round.chance.anyOf(kBooks);
    TextArray keywords = round.chance.array(9);
    for (std::string& keyword : keywords.texts) {
      constexpr std::array kFaulty{"a##", "a b", "&lt;", "x&quote;y"};
      keyword = round.chance.oneIn(8) ? round.chance.anyOf(kFaulty) : keyword;
      keyword = keyword == "Other Category" ? "net" : keyword;
    }
    round.compare([&](const Platform& platform,
                      ProcessState& state) { AddKeywords(platform, state, keywords, kKeywords); },
                  [&](const Platform& platform, ProcessState& state) {
                    plain::addKeywords(platform, state, keywords, kKeywords);
                  });
  });
}

TEST(OneWriting, RecordsTheLinkIdentifiersOfABookLikeOneByOne) {
  inManyRounds([](Round& round) {
    constexpr std::array kProducts{"Prod", "PROD", "Third"};
    round.state.currentProductName = "Prod";
    round.putFile("Docs/Prod/Quor_LinkID.xml", round.chance.file(linksFile(round.chance)));
    round.putFile("Docs/Other/Quor_LinkID.xml", round.chance.file(linksFile(round.chance)));
    round.files["Docs/Prod/page.htm"] = "page";
    round.files["Docs/Quor_Selection.xml"] =
        "<Quor_Selection_List><Quors>"
        "<Quor><Quor_Name>Other</Quor_Name></Quor><Quor><Quor_Name>" +
        round.chance.anyOf(kProducts) + "</Quor_Name></Quor></Quors></Quor_Selection_List>";
    round.files["toc_Temp.txt"] = exportFile(round.chance);
    round.compare([&](const Platform& platform,
                      ProcessState& state) { GenerateBookLinkID(platform, state, "BK", kExport); },
                  [&](const Platform& platform, ProcessState& state) {
                    plain::generateBookLinkId(platform, state, "BK", kExport);
                  });
  });
}

}  // namespace
}  // namespace quorbind::testing
