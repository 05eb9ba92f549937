// What others put into a library's files stays there: elements, attributes and namespaces that are
// not ours, comments, instructions and texts. Documents are generated; each is changed by an
// operation, and compared, as a tree, with the one that differs from it by that change alone.

#include <gtest/gtest.h>

#include <functional>
#include <ostream>

#include "catalogue/book_deletion.h"
#include "catalogue/book_rename.h"
#include "platform/text.h"
#include "platform/xml_document.h"
#include "sidefiles/category_filing.h"
#include "sidefiles/category_list.h"
#include "sidefiles/keyword_file.h"
#include "sidefiles/link_file.h"
#include "tests/bad_input/whole_library.h"
#include "tests/support/damaged_xml.h"
#include "tests/support/random_xml.h"
#include "tests/support/temporary_folder.h"
#include "workflow/forms/module.h"

namespace quorbind::testing {
namespace {

/// Of all changes in all encodings together.
constexpr unsigned kDocuments = QUORBIND_GENERATED_DOCUMENTS;

constexpr const char* kFile = "foreign.xml";
constexpr const char* kPath = "C:\\foreign.xml";

/// A change of one document.
struct Change {
  const char* name;
  /// With the marks of withForeignContent, the same ones in both.
  std::string before;
  std::string after;
  std::function<void(Module&)> run;
};

void PrintTo(const Change& change, std::ostream* out) {
  *out << change.name;
}

struct Encoding {
  const char* name;
  std::function<std::string(const std::string& text)> bytesOf;
};

void PrintTo(const Encoding& encoding, std::ostream* out) {
  *out << encoding.name;
}

std::string entry(const std::string& name, const std::string& acronym) {
  return "<Book{own}>\n{content}<Book_Name{own}>" + name + "</Book_Name>{content}<Book_Acro>" +
         acronym +
         "</Book_Acro>\n<Book_Key id=\"\"{own}>Plant</Book_Key>{content}\n"
         "<Book_Folder>Manual</Book_Folder><Book_File>Book_A.xml</Book_File>\n"
         "<Book_Categories{own}>{content}<Book_Category>Safety</Book_Category>{content}"
         "</Book_Categories>{content}</Book>";
}

std::string catalogue(const std::string& books) {
  return "{aside}<Quor_Master{own}>{content}\n<Quor_Books{own}>{content}" + books +
         "{content}</Quor_Books>{content}</Quor_Master>{aside}";
}

std::string categories(const std::string& first,
                       const std::string& acronyms,
                       const std::string& added) {
  return "{aside}<BookSet_Categories{own}>{content}\n<Category{own}>{content}<CategoryName{own}>" +
         first + "</CategoryName>{content}<BookAcro{own}>ALM</BookAcro>{content}" + acronyms +
         "</Category>{content}" + added +
         "<Category{own}>{content}<CategoryName>Other Category</CategoryName>{content}</Category>"
         "{content}</BookSet_Categories>{aside}";
}

std::string keywords(const std::string& first, const std::string& added) {
  return "{aside}<Books{own}>{content}<Book Book_Name=\"Alarms\"{own}>{content}\n<Keywords{own}>"
         "{content}<Keyword{own}>" +
         first + "</Keyword>{content}" + added +
         "</Keywords>{content}</Book>{content}</Books>{aside}";
}

std::string links(const std::string& added) {
  return "{aside}<LINKS{own}>{content}<IBD{own}>\n{content}<ID{own}>{content}<LinkID{own}>X1"
         "</LinkID><FullLink>F</FullLink>{content}<LinkIDSourceFile>s</LinkIDSourceFile>"
         "<BookAcro>ALM</BookAcro>{content}</ID>{content}" +
         added + "</IBD>{content}</LINKS>{aside}";
}

std::string book(const std::string& name, const std::string& acronym) {
  return "{aside}<Book_Master{own}>{content}<Book{own}>{content}\n<Book_Name{own}>" + name +
         "</Book_Name>{content}<Book_Acro{own}>" + acronym +
         "</Book_Acro>{content}<Book_Categories>{content}</Book_Categories></Book>{content}"
         "<Book_Headings{own}>{content}<Heading{own} level=\"H1\">\n{content}<HName>H</HName>"
         "{content}</Heading>{content}</Book_Headings></Book_Master>{aside}";
}

void enterNewNaming(Module& module) {
  module.bookInfo.txtBookName().setText("Warnings");
  module.bookInfo.txtBookAcro().setText("WRN");
}

std::vector<Change> changes() {
  const std::string plainBook = "<Book><Book_Name>Old</Book_Name><Book_Acro>OLD</Book_Acro></Book>";
  return {
      {"DeleteQuorNode",
       catalogue(entry("Alarms", "ALM") + plainBook + entry("Trends", "TRD")),
       catalogue(entry("Alarms", "ALM") + entry("Trends", "TRD")),
       [](Module& m) { DeleteQuorNode(m.platform, kPath, "Old"); }},
      {"strBookAcroInfo",
       catalogue(entry("Alarms", "ALM") + entry("Trends", "TRD")),
       catalogue(entry("Warnings", "WRN") + entry("Trends", "TRD")),
       [](Module& m) {
         enterNewNaming(m);
         strBookAcroInfo(m, kPath, "Alarms");
       }},
      {"UpdateBookNameAcro",
       book("Alarms", "ALM"),
       book("Warnings", "WRN"),
       [](Module& m) {
         enterNewNaming(m);
         UpdateBookNameAcro(m, kPath, "Alarms", "ALM");
       }},
      {"AddBookCateToXMLFile",
       categories("Safety", "", ""),
       categories("Safety", "", "<Category><CategoryName>New</CategoryName></Category>"),
       [](Module& m) { AddBookCateToXMLFile(m.platform, m.state, kPath, "New"); }},
      {"EditBookCateToXMLFile",
       categories("Safety", "", ""),
       categories("New", "", ""),
       [](Module& m) { EditBookCateToXMLFile(m.platform, m.state, kPath, "New", "Safety"); }},
      {"AddCategoryNode",
       categories("Safety", "", ""),
       categories("Safety", "<BookAcro>NEW</BookAcro>", ""),
       [](Module& m) { AddCategoryNode(m.platform, m.state, "Safety", "NEW", kPath); }},
      {"AddBookAcro",
       categories("Safety", "", ""),
       categories("Safety", "<BookAcro>NEW</BookAcro>", ""),
       [](Module& m) {
         AddBookAcro(m.platform, "Safety", {{"", "NEW"}}, kPath);
       }},
      {"AddKeywordsToXmlFile",
       keywords("bell", ""),
       keywords("bell", "<Keyword>new</Keyword>"),
       [](Module& m) { AddKeywordsToXmlFile(m.platform, kPath, "Alarms", "new"); }},
      {"EditKeywordsToXmlFile",
       keywords("bell", ""),
       keywords("new", ""),
       [](Module& m) { EditKeywordsToXmlFile(m.platform, kPath, "Alarms", "new", "bell"); }},
      {"AddToLinkIDFile",
       links(""),
       links("<ID><LinkID>X2</LinkID><FullLink>F</FullLink><LinkIDSourceFile>P\\s"
             "</LinkIDSourceFile><BookAcro>ALM</BookAcro></ID>"),
       [](Module& m) { AddToLinkIDFile(m.platform, kPath, "X2", "F", "s", "P", "ALM"); }},
  };
}

std::vector<Encoding> encodings() {
  return {{"Utf8", [](const std::string& text) { return declarationOf("UTF-8") + text; }},
          {"Utf16LittleEndian",
           [](const std::string& text) { return utf16File(declarationOf("UTF-16") + text); }},
          {"Utf16BigEndian", [](const std::string& text) {
             return utf16BigEndianFile(declarationOf("UTF-16") + text);
           }}};
}

class ForeignContent : public ::testing::TestWithParam<std::tuple<Change, Encoding>> {
 protected:
  [[nodiscard]] std::string treeOf(const std::string& bytes) {
    library_.files.write(kFile, bytes);
    return tree();
  }
  [[nodiscard]] std::string tree() const {
    const auto document = library_.platform().xml.createDocument();
    const XmlLoadResult result = document->load(kPath);
    EXPECT_TRUE(result) << result.line << ": " << result.reason;
    return describeDocument(*document);
  }
  void saveAgain() const {
    const auto document = library_.platform().xml.createDocument();
    ASSERT_TRUE(document->load(kPath));
    document->save(kPath);
  }

  WholeLibrary library_;
};

TEST_P(ForeignContent, SurvivesAChangeAndTheSecondSaveIsTheFirst) {
  const auto& [change, encoding] = GetParam();
  Module module(library_.platform());
  for (unsigned seed = 0; seed <= kDocuments / (changes().size() * encodings().size()); ++seed) {
    const std::string bytes = encoding.bytesOf(withForeignContent(change.before, seed));
    SCOPED_TRACE("seed " + std::to_string(seed) + "\n" + withForeignContent(change.before, seed));
    const std::string expected = treeOf(encoding.bytesOf(withForeignContent(change.after, seed)));

    library_.files.write(kFile, bytes);
    change.run(module);
    const std::string saved = library_.files.read(kFile);
    ASSERT_EQ(library_.user.record(), std::vector<std::string>());
    ASSERT_EQ(saved.starts_with("\xFF\xFE"), !bytes.starts_with("<"));
    ASSERT_EQ(tree(), expected);

    saveAgain();
    ASSERT_TRUE(library_.files.read(kFile) == saved);
  }
}

INSTANTIATE_TEST_SUITE_P(Of,
                         ForeignContent,
                         ::testing::Combine(::testing::ValuesIn(changes()),
                                            ::testing::ValuesIn(encodings())),
                         [](const auto& parameter) {
                           return std::string(std::get<0>(parameter.param).name) +
                                  std::get<1>(parameter.param).name;
                         });

}  // namespace
}  // namespace quorbind::testing
