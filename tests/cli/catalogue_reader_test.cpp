#include "cli/catalogue_reader.h"

#include <gtest/gtest.h>

#include "cli/failure.h"
#include "cli/wiring.h"
#include "tests/support/temporary_folder.h"

namespace quorbind::testing {
namespace {

/// What requiring a catalogue and reading it fail with; empty where they don't.
class CatalogueReader : public ::testing::Test {
 protected:
  std::string failureOf(void (*use)(const Platform& platform, const std::string& path),
                        const std::string& catalogue) {
    disk_.write("Quor_TOC.xml", catalogue);
    try {
      use(wiring_.module.platform, componentFile((disk_.path() / "Quor_TOC.xml").string()));
    } catch (const CommandFailure& failure) {
      return failure.what();
    }
    return {};
  }

  void expectList(const std::string& catalogue, bool isThere) {
    const std::string failure = failureOf(requireCatalogue, catalogue);
    EXPECT_EQ(failure.empty(), isThere) << catalogue << failure;
    EXPECT_EQ(
        failure,
        failureOf([](const Platform& platform,
                     const std::string& path) { static_cast<void>(readCatalogue(platform, path)); },
                  catalogue));
  }

 private:
  TemporaryFolder disk_;
  Wiring wiring_{"", processTerminal(false)};
};

TEST_F(CatalogueReader, FindsTheListWhereverItStandsInTheRoot) {
  expectList("<Quor_Master><Quor_Books/></Quor_Master>", true);
  expectList("<Quor_Master><A><B/></A><Quor_Books><Quor_Book/></Quor_Books></Quor_Master>", true);
}

TEST_F(CatalogueReader, TakesNoOtherElementForTheList) {
  expectList("<Quor_Master/>", false);
  expectList("<Quor_Books/>", false);
  expectList("<Quor_Master><A><Quor_Books/></A></Quor_Master>", false);
  expectList("<A><Quor_Master><Quor_Books/></Quor_Master></A>", false);
  expectList("<Quor_Master><A/><A><Quor_Master><Quor_Books/></Quor_Master></A></Quor_Master>",
             false);
}

TEST_F(CatalogueReader, TellsWhereACatalogueDoesNotParse) {
  expectList("<Quor_Master><Quor_Books/>\n</Quor_Mast>", false);
}

}  // namespace
}  // namespace quorbind::testing
