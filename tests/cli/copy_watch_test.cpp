// What is remembered of the book files that the tool set copies.

#include "cli/copy_watch.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "cli/paths.h"
#include "cli/wiring.h"
#include "tests/support/temporary_folder.h"

namespace quorbind::testing {
namespace {

class BookCopies : public ::testing::Test {
 protected:
  /// Copies a book file that names one document from one folder to another.
  bool copy(const std::string& from, const std::string& document, const std::string& to) {
    disk_.write(from + "/Book_A.xml",
                "<Book_Master><Book><Book_File>main.htm</Book_File></Book><Book_Headings><Heading>"
                "<HFile>" +
                    document + "</HFile></Heading></Book_Headings></Book_Master>");
    return copies_->mbCopyFiles(place(to), place(from) + "\\Book_A.xml", 0, 0);
  }

  Wiring wiring_{"", processTerminal(false)};

 private:
  std::string place(const std::string& folder) {
    return componentFolder(disk_.path().string()) + "\\" + folder;
  }

  TemporaryFolder disk_;
  std::unique_ptr<FileCopy> copies_ = wiring_.toolset.createFileCopy();
};

TEST_F(BookCopies, LeaveWhatTheyNameToTheFirstWhoAsks) {
  ASSERT_TRUE(copy("from", "a.htm#top", "to"));
  EXPECT_TRUE(wiring_.toolset.hasArrived("Book_A.xml"));
  const auto named = wiring_.toolset.takeNamedFiles("Book_A.xml");
  ASSERT_TRUE(named.has_value());
  EXPECT_EQ(named->mainFiles.texts(), std::vector<std::string>{"main.htm"});
  EXPECT_EQ(named->headingFiles.texts(), std::vector<std::string>{"a.htm#top"});
  EXPECT_FALSE(wiring_.toolset.takeNamedFiles("Book_A.xml").has_value());
}

TEST_F(BookCopies, OfOneNameAreNotTakenForEachOther) {
  ASSERT_TRUE(copy("from", "a.htm", "to"));
  ASSERT_TRUE(copy("from2", "b.htm", "to2"));
  EXPECT_FALSE(wiring_.toolset.takeNamedFiles("Book_A.xml").has_value());
}

TEST_F(BookCopies, ThatWereNotWalkedThroughNameNothing) {
  ASSERT_TRUE(copy("same", "a.htm", "same"));
  EXPECT_FALSE(wiring_.toolset.takeNamedFiles("Book_A.xml").has_value());
}

}  // namespace
}  // namespace quorbind::testing
