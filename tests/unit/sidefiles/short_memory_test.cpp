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

class CategoryFileInShortMemory : public SideFileTest {
 protected:
  /// Files the book B, first with too little memory: nothing of that is there, and then it is
  /// filed.
  void expectAllOrNothing(const std::string& name, const std::string& after) {
    const std::string before = categoriesWith(category("Old", {"A"}));
    std::optional<CategoryFile> file;
    const auto refusals = refusingEachAllocation(
        [&] {
          world_.disk.write("categories.xml", before);
          file.emplace(platform(), "C:\\categories.xml");
          ASSERT_TRUE(file->load());
        },
        [&] { file->fileBook(name, "B"); },
        [&] {
          file->save();
          ASSERT_EQ(textOf("categories.xml"), before);
          EXPECT_TRUE(file->fileBook(name, "B"));
          file->save();
          ASSERT_EQ(textOf("categories.xml"), after);
        });
    EXPECT_GT(refusals, 5U);
  }
};

TEST_F(CategoryFileInShortMemory, HasNothingOfACategoryThatCouldNotBeMade) {
  expectAllOrNothing("New", categoriesWith(category("Old", {"A"}) + category("New", {"B"})));
}

TEST_F(CategoryFileInShortMemory, HasNothingOfABookThatCouldNotBeFiled) {
  expectAllOrNothing("Old", categoriesWith(category("Old", {"A", "B"})));
}

class KeywordFileInShortMemory : public SideFileTest {
 protected:
  /// Adds a keyword behind another, first with too little memory: nothing of that is there, and
  /// then it is added once.
  void expectAllOrNothing(const std::string& book, const std::string& after) {
    const std::string before = keywordsWith(keywordsOf("Alarms", {"bell"}));
    std::optional<KeywordFile> file;
    const auto refusals = refusingEachAllocation(
        [&] {
          world_.disk.write("keywords.xml", before);
          file.emplace(platform(), "C:\\keywords.xml", book);
          ASSERT_TRUE(file->load());
          if (book == "Alarms") {
            ASSERT_FALSE(file->add("bell"));
          }
        },
        [&] { file->add("horn"); },
        [&] {
          file->save();
          ASSERT_EQ(textOf("keywords.xml"), before);
          EXPECT_TRUE(file->add("horn"));
          EXPECT_FALSE(file->add("horn"));
          file->save();
          ASSERT_EQ(textOf("keywords.xml"), after);
        });
    EXPECT_GT(refusals, 5U);
  }
};

TEST_F(KeywordFileInShortMemory, HasNothingOfABookThatCouldNotBeEntered) {
  expectAllOrNothing("Pumps",
                     keywordsWith(keywordsOf("Alarms", {"bell"}) + keywordsOf("Pumps", {"horn"})));
}

TEST_F(KeywordFileInShortMemory, HasNothingOfAKeywordThatCouldNotBeAdded) {
  expectAllOrNothing("Alarms", keywordsWith(keywordsOf("Alarms", {"bell", "horn"})));
}

}  // namespace
}  // namespace quorbind::testing
