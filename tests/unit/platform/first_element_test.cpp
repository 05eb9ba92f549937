#include "platform/first_element.h"

#include <gtest/gtest.h>

#include <memory>
#include <string>

#include "platform/xpath_query.h"
#include "tests/contract/adapters.h"
#include "tests/support/one_file.h"
#include "tests/support/raised_error.h"
#include "tests/support/temporary_folder.h"

namespace quorbind::testing {
namespace {

constexpr const char* kPath = "C:\\list.xml";
constexpr std::int32_t kDiskFull = 61;

/// Looks for the first name in a list.
class FirstElementTest : public ::testing::Test {
 protected:
  void put(const std::string& bytes) { file_.put(bytes); }
  bool lookFor(const std::string& query) {
    return first_.lookFor(*xml_, kPath, [&] { return query; });
  }
  bool lookForName() { return lookFor("List/Name"); }
  /// Of a thing whose value has the quotation mark that would end it.
  bool lookForQuoted() {
    return first_.lookFor(*xml_, kPath, [] { return elementsWith("List", "Name", "a\"b", '"'); });
  }
  [[nodiscard]] std::int32_t errorOfFinding() const {
    return errorRaisedBy([this] { (void)first_.isFound(); });
  }

  /// The text of the last element that was read.
  std::string name_;
  /// An element with this text can't be read.
  std::string refused_ = "refused";
  FirstElement first_{[this](const XmlNode& element) {
    name_ = element.text();
    if (name_ == refused_) {
      raise(ErrorNumber::kDiskFull);
    }
  }};

 private:
  TemporaryFolder disk_;
  std::unique_ptr<Adapters> adapters_ = makeAdapters(disk_.path());
  OneFile file_;
  std::unique_ptr<XmlLibrary> xml_ = adapters_->makeXml(file_);
};

TEST_F(FirstElementTest, IsReadOnceItsFileHasBeen) {
  put("<List><Name>one</Name><Name>refused</Name></List>");
  EXPECT_TRUE(lookForName());
  EXPECT_TRUE(first_.isFound());
  EXPECT_EQ(name_, "one");
}

TEST_F(FirstElementTest, OfAValueThatFitsNoQueryInAFileThatDoesNotLoadIsToldOfTheFileAlone) {
  put("<List>");
  EXPECT_FALSE(lookForQuoted());
}

TEST_F(FirstElementTest, OfAValueThatFitsNoQueryInAGoodFileIsToldOfWhenItIsAskedFor) {
  put("<List><Name>one</Name></List>");
  EXPECT_TRUE(lookForQuoted());
  EXPECT_EQ(errorOfFinding(), kInvalidQueryError);
}

TEST_F(FirstElementTest, ThatCanNotBeReadIsToldOfWhenItIsAskedForAndOnlyThen) {
  put("<List><Name>refused</Name><Name>two</Name></List>");
  EXPECT_TRUE(lookForName());
  EXPECT_EQ(errorOfFinding(), kDiskFull);
  put("<List><Name>refused</Name>");
  EXPECT_FALSE(lookForName());
}

// Text that comes late makes white space in front of it content: what was read until then is void.
TEST_F(FirstElementTest, IsTheOneOfTheWholeDocumentWhereTextBehindItHasASay) {
  refused_ = "one";
  put("<List><Name> <First>one</First></Name>text</List>");
  EXPECT_TRUE(lookForName());
  EXPECT_TRUE(first_.isFound());
  EXPECT_EQ(name_, " one");
}

TEST_F(FirstElementTest, ThatTheWholeDocumentDoesNotHaveIsNotFoundWhateverReadingItRaised) {
  put("<List><Thing><Name> <First>refused</First></Name></Thing>text</List>");
  EXPECT_TRUE(lookFor("List/Thing[Name='refused']"));
  EXPECT_FALSE(first_.isFound());
}

TEST_F(FirstElementTest, OfAnEarlierLookIsForgotten) {
  put("<List><Name>refused</Name></List>");
  EXPECT_TRUE(lookForName());
  put("<List/>");
  EXPECT_TRUE(lookForName());
  EXPECT_FALSE(first_.isFound());
}

}  // namespace
}  // namespace quorbind::testing
