// What is kept of a side file when memory runs short while it is put together, and is asked or
// changed again afterwards.

#include "tests/support/short_memory.h"

#include "sidefiles/acronym_list.h"
#include "sidefiles/category_file.h"
#include "sidefiles/keyword_file.h"
#include "sidefiles/link_file.h"
#include "tests/support/keyword_text.h"
#include "tests/unit/sidefiles/link_text.h"
#include "tests/unit/sidefiles/side_file_test.h"

namespace quorbind::testing {
namespace {

TEST(AcronymListInShortMemory, HasAllItsAcronymsAfterwards) {
  std::optional<AcronymList> list;
  const auto make = [&] {
    list.emplace();
    for (const char* acronym : {"A", "B", "C"}) {
      list->add(acronym);
    }
  };
  const std::string last = "C";
  const auto refusals = refusingEachAllocation(
      make, [&] { (void)list->has(last); }, [&] { EXPECT_TRUE(list->has(last)); });
  EXPECT_GT(refusals, 1U);
}

class LinkFileInShortMemory : public SideFileTest {
 protected:
  static constexpr int kLinks = 20;

  /// Every other one leads somewhere.
  static std::string entry(int number) {
    return link(identifier(number), number % 2 == 0 ? "BK@QUOR@Intro" : "", "Prod\\a.htm", "BK");
  }
  static std::string identifier(int number) { return std::to_string(number); }

  void load() {
    file_.emplace(platform(), "C:\\links.xml");
    ASSERT_TRUE(file_->load());
  }
  void writeLinks() {
    std::string entries;
    for (int number = 0; number < kLinks; ++number) {
      entries += entry(number);
    }
    world_.disk.write("links.xml", linksWith(entries));
  }

  std::optional<LinkFile> file_;
};

TEST_F(LinkFileInShortMemory, AnswersOfEachIdentifierWhatIsItsOwnAfterwards) {
  writeLinks();
  const std::string asked = identifier(0);
  const auto refusals = refusingEachAllocation(
      [&] { load(); },
      [&] { (void)file_->leadsSomewhere(asked); },
      [&] {
        for (int number = 0; number < kLinks; ++number) {
          ASSERT_EQ(file_->leadsSomewhere(identifier(number)), number % 2 == 0) << number;
        }
      });
  EXPECT_GT(refusals, static_cast<std::size_t>(kLinks));
}

TEST_F(LinkFileInShortMemory, HasNothingOfAnEntryThatCouldNotBeMade) {
  const std::string before = linksWith(link("X1", "BK@QUOR@Intro", "Prod\\a.htm", "BK"));
  const std::string after = linksWith(link("X1", "BK@QUOR@Intro", "Prod\\a.htm", "BK") +
                                      link("  X2", "BK@QUOR@Bells", "Prod\\b.htm", "BK"));
  const LinkIdentifier added{.identifier = "  X2",
                             .fullLink = "BK@QUOR@Bells",
                             .sourceFilePath = "b.htm",
                             .projectName = "Prod",
                             .bookAcro = "BK"};
  const auto refusals = refusingEachAllocation(
      [&] {
        world_.disk.write("links.xml", before);
        load();
        ASSERT_TRUE(file_->leadsSomewhere("X1"));
      },
      [&] { file_->record(added); },
      [&] {
        EXPECT_FALSE(file_->hasTrimmed("X2"));
        EXPECT_FALSE(file_->leadsSomewhere("  X2"));
        file_->record(added);
        file_->save();
        ASSERT_EQ(textOf("links.xml"), after);
      });
  EXPECT_GT(refusals, 5U);
}

class SideFileInShortMemory : public SideFileTest {
 protected:
  /// Changes the file, first with too little memory: nothing of that is there, and then it is done.
  template <typename Load, typename Change>
  void expectAllOrNothing(const std::string& before,
                          const std::string& after,
                          Load&& load,
                          Change&& change) {
    const auto textAfterSave = [&](auto& file) {
      file.save();
      return textOf("side.xml");
    };
    decltype(load()) file;
    const auto refusals = refusingEachAllocation(
        [&] {
          world_.disk.write("side.xml", before);
          file = load();
        },
        [&] { change(*file); },
        [&] {
          ASSERT_EQ(textAfterSave(*file), before);
          EXPECT_TRUE(change(*file));
          ASSERT_EQ(textAfterSave(*file), after);
        });
    EXPECT_GT(refusals, 5U);
  }

  void expectFiledOrNot(const std::string& name, const std::string& after) {
    expectAllOrNothing(
        categoriesWith(category("Old", {"A"})),
        after,
        [this] {
          auto file = std::make_unique<CategoryFile>(platform(), "C:\\side.xml");
          EXPECT_TRUE(file->load());
          return file;
        },
        [&](CategoryFile& file) { return file.fileBook(name, "B"); });
  }

  /// The first keyword that is looked for makes no index of the others; this one would be the
  /// second, where the book is there.
  void expectAddedOrNot(const std::string& book, const std::string& after) {
    expectAllOrNothing(
        keywordsWith(keywordsOf("Alarms", {"bell"})),
        after,
        [&] {
          auto file = std::make_unique<KeywordFile>(platform(), "C:\\side.xml", book);
          EXPECT_TRUE(file->load());
          EXPECT_FALSE(book == "Alarms" && file->add("bell"));
          return file;
        },
        [](KeywordFile& file) { return file.add("horn"); });
  }
};

TEST_F(SideFileInShortMemory, HasNothingOfACategoryThatCouldNotBeMade) {
  expectFiledOrNot("New", categoriesWith(category("Old", {"A"}) + category("New", {"B"})));
}

TEST_F(SideFileInShortMemory, HasNothingOfABookThatCouldNotBeFiled) {
  expectFiledOrNot("Old", categoriesWith(category("Old", {"A", "B"})));
}

TEST_F(SideFileInShortMemory, HasNothingOfABookThatCouldNotBeEntered) {
  expectAddedOrNot("Pumps",
                   keywordsWith(keywordsOf("Alarms", {"bell"}) + keywordsOf("Pumps", {"horn"})));
}

TEST_F(SideFileInShortMemory, HasNothingOfAKeywordThatCouldNotBeAdded) {
  expectAddedOrNot("Alarms", keywordsWith(keywordsOf("Alarms", {"bell", "horn"})));
}

}  // namespace
}  // namespace quorbind::testing
