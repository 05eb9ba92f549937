// Books whose names hold everything that a name can hold: what was entered is listed, found,
// renamed and deleted again.

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "catalogue/book_config.h"
#include "platform/toolset.h"
#include "platform/xml_writer.h"
#include "tests/bad_input/whole_library.h"
#include "tests/support/hard_texts.h"

namespace quorbind::testing {
namespace {

using namespace library_file;
using ::testing::ElementsAre;
using ::testing::IsEmpty;

class HardName : public ::testing::TestWithParam<std::string> {
 protected:
  /// How the catalogue holds a name.
  [[nodiscard]] std::string stored(const std::string& name) const {
    return xmlCharactersOnly(
        library_.platform().toolset.createXmlTextRules()->mstrCheckSpecialCharecters(name));
  }
  void install(const std::string& name) {
    config_.CreateQuorBookNodeForSEntry("C:\\in\\plan.htm",
                                        "plan.htm",
                                        "",
                                        "t",
                                        "Plant",
                                        0,
                                        false,
                                        {{name, "HRD", "", "Safety;Maps"}});
  }
  void rename(const std::string& old, const std::string& name) {
    module_.bookInfo.txtBookName().setText(name);
    module_.bookInfo.txtBookAcro().setText("HRN");
    config_.strBookAcroInfo(path_, old);
  }

  WholeLibrary library_;
  Module module_{library_.platform()};
  Book_Config config_{module_};
  const std::string path_ = componentPath(kCatalogue);
};

TEST_P(HardName, IsListedFoundRenamedAndDeleted) {
  const std::string& name = GetParam();
  install(name);
  EXPECT_THAT(config_.BookInfo(path_), ElementsAre("Alarms", "Trends", stored(name), ""));
  EXPECT_THAT(config_.CategorieInfo(path_, name), ElementsAre("Safety", "Maps", ""));
  EXPECT_EQ(config_.GetBookAcro(path_, stored(name)), "HRD");

  rename(name, "new " + name);
  EXPECT_THAT(config_.BookInfo(path_), ElementsAre("Alarms", "Trends", stored("new " + name), ""));
  EXPECT_EQ(config_.GetBookAcro(path_, stored("new " + name)), "HRN");

  config_.DeleteQuorNode(path_, stored("new " + name));
  EXPECT_EQ(library_.files.read(kCatalogue), soundText(kCatalogue));
  EXPECT_THAT(library_.user.record(), IsEmpty());
}

/// Those that a query can hold: a name with what XML has no character for is stored, with another
/// character in its place, and never found by itself.
std::vector<std::string> namesForQueries() {
  std::vector<std::string> names{"it's"};
  for (const std::string& text : hardTexts()) {
    if (xmlCharactersOnly(text) == text) {
      names.push_back(text);
    }
  }
  return names;
}

INSTANTIATE_TEST_SUITE_P(Of, HardName, ::testing::ValuesIn(namesForQueries()));

class NameThatXmlCanNotHold : public HardName {
 protected:
  static std::string unfit(const std::string& source) {
    return "critical: Error(-2147467259): A query can't look for a value with a character that XML "
           "can't hold.\r" +
           source;
  }
};

TEST_P(NameThatXmlCanNotHold, IsStoredWithAnotherCharacterAndReportedWhereverItIsLookedUp) {
  install(GetParam());
  EXPECT_THAT(config_.BookInfo(path_), ElementsAre("Alarms", "Trends", stored(GetParam()), ""));

  const auto before = library_.files.contents();
  EXPECT_THAT(config_.CategorieInfo(path_, GetParam()), IsEmpty());
  EXPECT_EQ(config_.GetBookAcro(path_, GetParam()), "");
  rename(GetParam(), "new");
  config_.DeleteQuorNode(path_, GetParam());
  EXPECT_EQ(library_.files.contents(), before);
  EXPECT_THAT(library_.user.record(),
              ElementsAre(unfit("Quorbind: Quor_Book::mbcheckQuorTocForBook"),
                          unfit("Quorbind:Book_Config::CategorieInfo"),
                          unfit("Quorbind:Book_Config::DeleteNode")));
}

INSTANTIATE_TEST_SUITE_P(Of,
                         NameThatXmlCanNotHold,
                         ::testing::Values("a\x01\x02", "\xFF\xFE", "cut \xE7\x9B"));

}  // namespace
}  // namespace quorbind::testing
