// Names in documents that lead out of their folder, onto the network or to a device, in every place
// where a document can name a file: they are judged by their text, and no disk is asked.

#include "tests/support/hostile_names.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <filesystem>
#include <functional>
#include <memory>
#include <set>
#include <string>

#include "catalogue/book_config.h"
#include "platform/text.h"
#include "sidefiles/link_check.h"
#include "tests/bad_input/library_operations.h"
#include "tests/support/book_run.h"
#include "tests/support/excel_sheets.h"
#include "tests/support/recording_files.h"
#include "toc/text_form.h"
#include "toc/toc_check.h"
#include "toolset/file_copy.h"
#include "toolset/reference_toolset.h"

namespace quorbind::testing {
namespace {

using namespace library_file;
using ::testing::Contains;
using ::testing::Each;
using ::testing::ElementsAre;
using ::testing::IsEmpty;
using ::testing::Not;
using Calls = std::vector<RecordingFiles::Call>;
using Leads = HostileName::Leads;

/// A name that leads nowhere, in the place of a hostile one.
constexpr const char* kHarmless = "harmless.htm";

/// The library of the other tests over files that write down what they are asked.
class RecordedLibrary {
 public:
  RecordedLibrary() { whole_.user.forget(); }

  [[nodiscard]] const Platform& platform() const { return platform_; }
  void write(const std::string& file, const std::string& bytes) { whole_.files.write(file, bytes); }
  void putWorkbook(std::string_view path, std::vector<PaperSheet> sheets) {
    spreadsheets_.put(path, std::move(sheets));
  }
  /// What `work` asks of the disk, when it begins with the library as it was made.
  Calls callsOf(const std::function<void(RecordedLibrary&)>& work) {
    whole_.reset();
    files_.forget();
    work(*this);
    return files_.calls();
  }
  [[nodiscard]] const std::vector<std::string>& record() const { return whole_.user.record(); }
  [[nodiscard]] std::vector<std::string> boxes() const {
    std::vector<std::string> boxes;
    for (const UserMessage& message : whole_.user.messages()) {
      boxes.push_back(message.text);
    }
    return boxes;
  }

 private:
  WholeLibrary whole_;
  RecordingFiles files_{whole_.files};
  std::unique_ptr<Adapters> adapters_ = makeAdapters(std::filesystem::temp_directory_path());
  std::unique_ptr<XmlLibrary> xml_ = adapters_->makeXml(files_);
  std::unique_ptr<Toolset> toolset_ = std::make_unique<ReferenceToolset>(
      ToolsetPorts{files_, *xml_, whole_.user, whole_.platform().locale}, "C:\\");
  PaperSpreadsheets spreadsheets_;
  Platform platform_{
      files_, *xml_, whole_.user, *toolset_, whole_.platform().locale, spreadsheets_};
};

/// The names, or under Wine, where each costs many times as much, every so many of them.
std::vector<HostileName> triedNames() {
  std::vector<HostileName> names;
  for (std::size_t i = 0; i < hostileNames().size(); i += QUORBIND_DAMAGE_STEP) {
    names.push_back(hostileNames()[i]);
  }
  return names;
}

/// Something that is done with a document that names a file.
struct NameSource {
  std::string place;
  /// Whether `%2e` stands for a character there.
  bool isDecoded;
  std::function<void(RecordedLibrary&, const std::string& name)> read;
};

void PrintTo(const NameSource& source, std::ostream* out) {
  *out << source.place;
}

std::string inXml(const std::string& text) {
  return replaceAll(replaceAll(text, "&", "&amp;"), "<", "&lt;");
}

/// The text of a library's file with something in it replaced by a name.
void writeWith(RecordedLibrary& library,
               const char* file,
               const std::string& from,
               const std::string& to) {
  const std::string text = replaceAll(soundText(file), from, to);
  ASSERT_NE(text, soundText(file)) << from;
  library.write(file, text);
}

void validate(RecordedLibrary& library, const std::string& toc, TocCheck::Kind kind) {
  Module module(library.platform());
  module.state.currentCataloguePath = componentPath(kCatalogue);
  module.state.currentBookName = "Pumps";
  module.state.currentBookAcro = "PMP";
  module.state.rememberedBookFolder = "Manual";
  TocCheck check(module);
  std::string export_;
  if (kind == TocCheck::kHtml) {
    check.mbValidateHTMLToc("C:\\in\\" + toc, export_);
  } else if (kind == TocCheck::kXml) {
    check.mbValidateXMLToc("C:\\in\\" + toc);
  } else {
    check.excel().mbValidateXLToc("C:\\in\\" + toc, kind, nullptr);
  }
}

void copy(RecordedLibrary& library, const std::string& file) {
  library.write(std::string("in/") + kHarmless, "<p>harmless</p>");
  library.platform().toolset.createFileCopy()->mbCopyFiles(
      "C:\\Docs\\Plant\\New", "C:\\in\\" + file, 0, 0);
}

std::string bookFileWith(const std::string& document) {
  return "<Book_Master><Book><Book_Path>Plant\\Manual</Book_Path></Book><Book_Headings><Heading>"
         "<HName>A</HName><HFile>" +
         inXml(document) + "</HFile></Heading></Book_Headings></Book_Master>";
}

void rename(RecordedLibrary& library) {
  Module module(library.platform());
  module.bookInfo.txtBookName().setText("Warnings");
  module.bookInfo.txtBookAcro().setText("WRN");
  Book_Config(module).strBookAcroInfo(componentPath(kCatalogue), "Alarms");
}

void setProperties(RecordedLibrary& library, const std::string& folder) {
  Module module(library.platform());
  Book_Config(module).mbsetQuorBookProperties(
      componentPath(kCatalogue), "Alarms", {{"Maps"}}, folder, "link");
}

void merge(RecordedLibrary& library) {
  Module module(library.platform());
  Book_Config(module).strMatchingBooksInfo(componentPath(kCatalogue),
                                           componentPath(kOtherCatalogue));
}

constexpr const char* kFolderOfAlarms =
    "<Book_Acro>ALM</Book_Acro>\r\n\t\t\t<Book_Key id=\"\">Plant</Book_Key>\r\n"
    "\t\t\t<Book_Folder>Manual<";
constexpr const char* kFileOfAlarms = ">Book_ALM.xml<";

void writeFolder(RecordedLibrary& library, const std::string& name) {
  writeWith(
      library, kCatalogue, kFolderOfAlarms, replaceAll(kFolderOfAlarms, "Manual", inXml(name)));
}

void writeFile(RecordedLibrary& library, const std::string& name) {
  writeWith(library, kCatalogue, kFileOfAlarms, ">" + inXml(name) + "<");
}

// Where a name is looked up by itself

std::vector<NameSource> sources() {
  return {
      {"TheHeadingOfAPage",
       false,
       [](RecordedLibrary& library, const std::string& name) {
         library.write("in/toc.htm", "<K1>HREF=\"" + name + "\"t</K1>");
         validate(library, "toc.htm", TocCheck::kHtml);
       }},
      {"TheTitleOfAPage",
       false,
       [](RecordedLibrary& library, const std::string& name) {
         library.write("in/toc.htm",
                       "<HT>HREF=\"" + name + "\"t</HT><K1>HREF=\"heading.htm\"t</K1>");
         validate(library, "toc.htm", TocCheck::kHtml);
       }},
      {"TheHeadingOfABookFile",
       false,
       [](RecordedLibrary& library, const std::string& name) {
         library.write("in/toc.xml", bookFileWith(name));
         validate(library, "toc.xml", TocCheck::kXml);
       }},
      {"TheCellOfAWorkbook",
       false,
       [](RecordedLibrary& library, const std::string& name) {
         library.putWorkbook("C:\\in\\toc.xls",
                             {headingSheet({{"1", "A", "Manual\\a.htm"}, {"2", "B", name}}),
                              bookSheet({{"A", "AAA"}})});
         validate(library, "toc.xls", TocCheck::kExcel);
       }},
      {"TheHeadingOfABookFileThatIsCopied",
       false,
       [](RecordedLibrary& library, const std::string& name) {
         library.write("in/book.xml", bookFileWith(name));
         copy(library, "book.xml");
       }},
      {"ThePictureOfAPage",
       true,
       [](RecordedLibrary& library, const std::string& name) {
         library.write("in/page.htm", "<img src=\"" + name + "\">");
         copy(library, "page.htm");
       }},
      {"TheLinkOfAPage",
       true,
       [](RecordedLibrary& library, const std::string& name) {
         library.write("in/page.htm", "<a href='" + name + "'>");
         copy(library, "page.htm");
       }},
      {"TheFolderOfABookThatIsRenamed",
       false,
       [](RecordedLibrary& library, const std::string& name) {
         writeFolder(library, name);
         rename(library);
       }},
      {"TheFolderOfABookThatIsGivenProperties",
       false,
       [](RecordedLibrary& library, const std::string& name) {
         writeFolder(library, name);
         setProperties(library, name);
       }},
      {"TheFolderOfABookThatIsMoved",
       false,
       [](RecordedLibrary& library, const std::string& name) {
         writeFolder(library, name);
         setProperties(library, "New");
       }},
      {"TheFileOfABookThatIsGivenProperties",
       false,
       [](RecordedLibrary& library, const std::string& name) {
         writeFile(library, name);
         setProperties(library, "Manual");
       }},
      {"TheFileOfABookThatIsMoved",
       false,
       [](RecordedLibrary& library, const std::string& name) {
         writeFile(library, name);
         setProperties(library, "New");
       }},
      {"TheFolderOfABookThatIsMerged",
       false,
       [](RecordedLibrary& library, const std::string& name) {
         writeFolder(library, name);
         merge(library);
       }},
      {"TheFileOfABookThatIsMerged",
       false,
       [](RecordedLibrary& library, const std::string& name) {
         writeFile(library, name);
         merge(library);
       }},
      {"TheNameOfALibraryOfTheServer",
       false,
       [](RecordedLibrary& library, const std::string& name) {
         writeWith(library, kSelection, ">Tools<", ">" + inXml(name) + "<");
         CheckDuplicateLinkID(library.platform(), "X9");
       }},
  };
}

bool leadsAway(const HostileName& name, const NameSource& source) {
  return name.leads == Leads::kOutOfFolder || name.leads == Leads::kToNetworkOrDevice ||
         (source.isDecoded && name.leads == Leads::kOutOnceDecoded);
}

class HostileNames : public ::testing::TestWithParam<NameSource> {
 protected:
  Calls callsWith(const std::string& name) {
    return library_.callsOf([&](RecordedLibrary& library) { GetParam().read(library, name); });
  }

  RecordedLibrary library_;
};

TEST_P(HostileNames, AreNotLookedUp) {
  const Calls usual = callsWith(kHarmless);
  std::set<RecordingFiles::Call> withoutName(usual.begin(), usual.end());
  std::erase_if(withoutName, [](const auto& call) { return contains(call.path, kHarmless); });
  ASSERT_LT(withoutName.size(), std::set(usual.begin(), usual.end()).size());

  for (const HostileName& name : triedNames()) {
    if (leadsAway(name, GetParam())) {
      for (const RecordingFiles::Call& call : callsWith(name.name)) {
        EXPECT_TRUE(withoutName.contains(call))
            << name.name << ": " << call.operation << " " << call.path;
      }
    }
  }
}

INSTANTIATE_TEST_SUITE_P(In,
                         HostileNames,
                         ::testing::ValuesIn(sources()),
                         [](const auto& parameter) { return parameter.param.place; });

// Where a name decides on the place of a book

/// Why a path that the disk was asked for is none of a file below `C:\in` or `C:\Docs`; empty when
/// it is one. Written for this test, and without the code under test.
std::string escapeOf(const std::string& path) {
  const std::string all = upperCaseAscii(replaceAll(path, "/", "\\"));
  if (!all.starts_with("C:\\")) {
    return "not on the drive";
  }
  std::vector<std::string> parts;
  for (const std::string_view piece : Pieces(std::string_view(all).substr(3), "\\")) {
    const std::string_view part = trimAnyOf(piece, " ");
    if (part.find(':') != std::string_view::npos) {
      return "a drive or a stream";
    }
    if (part == "..") {
      if (parts.size() < 2) {
        return "out of its folder";
      }
      parts.pop_back();
    } else if (!part.empty() && part != ".") {
      if (part.find_first_not_of(". ") == std::string_view::npos) {
        return "dots";
      }
      const std::string_view stem = trimAnyOf(part.substr(0, part.find('.')), " ");
      for (const std::string_view device : {"CON", "PRN", "AUX", "NUL", "COM1", "LPT9", "CONIN$"}) {
        if (stem == device) {
          return "a device";
        }
      }
      parts.emplace_back(part);
    }
  }
  return !parts.empty() && (parts[0] == "IN" || parts[0] == "DOCS") ? "" : "another folder";
}

bool isWriting(const RecordingFiles::Call& call) {
  constexpr std::array kReading{"fileExists", "folderExists", "sameFile", "namesIn", "open"};
  return std::none_of(kReading.begin(), kReading.end(), [&](const char* operation) {
    return call.operation == operation;
  });
}

void add(RecordedLibrary& library, const std::string& toc, TocCheck::Kind kind) {
  Module module(library.platform());
  module.state.rememberedBookFolder = "Manual";
  Quor_Book book(module);
  runBook(book, additionOf("C:\\in\\" + toc, kind));
}

std::string bookFileOf(const std::string& acronym, const std::string& path) {
  return "<Book_Master><Book><Book_Name>Pumps</Book_Name><Book_Acro>" + inXml(acronym) +
         "</Book_Acro><Book_Key id=\"\">Tools</Book_Key><Book_Path>" + inXml(path) +
         "</Book_Path></Book><Book_Headings><Heading><HName>A</HName><HFile>a.htm</HFile></Heading>"
         "</Book_Headings></Book_Master>";
}

std::vector<NameSource> placeSources() {
  return {
      {"TheFirstHeadingOfAPage",
       false,
       [](RecordedLibrary& library, const std::string& name) {
         library.write("in/toc.htm", "<K1>HREF=\"" + name + "\"t</K1><K1>HREF=\"b.htm\"u</K1>");
         add(library, "toc.htm", TocCheck::kHtml);
       }},
      {"ThePathOfABookFile",
       false,
       [](RecordedLibrary& library, const std::string& name) {
         library.write("in/toc.xml", bookFileOf("PMP", "Tools\\" + name));
         add(library, "toc.xml", TocCheck::kXml);
       }},
      {"TheWholePathOfABookFile",
       false,
       [](RecordedLibrary& library, const std::string& name) {
         library.write("in/toc.xml", bookFileOf("PMP", name));
         add(library, "toc.xml", TocCheck::kXml);
       }},
      {"TheAcronymOfABookFile",
       false,
       [](RecordedLibrary& library, const std::string& name) {
         library.write("in/toc.xml", bookFileOf(name, "Tools\\Manual"));
         add(library, "toc.xml", TocCheck::kXml);
       }},
      {"TheFirstRowOfAWorkbook",
       false,
       [](RecordedLibrary& library, const std::string& name) {
         library.write("in/toc.xls", "");
         library.putWorkbook(
             "C:\\in\\toc.xls",
             {headingSheet({{"1", "A", name}, {"2", "B", "b.htm"}}), bookSheet({{"A", "AAA"}})});
         add(library, "toc.xls", TocCheck::kExcel);
       }},
      {"TheAcronymInAWorkbook",
       false,
       [](RecordedLibrary& library, const std::string& name) {
         library.write("in/toc.xls", "");
         library.putWorkbook("C:\\in\\toc.xls",
                             {headingSheet({{"1", "A", "Manual\\a.htm"}, {"2", "B", "b.htm"}}),
                              bookSheet({{"A", name}})});
         add(library, "toc.xls", TocCheck::kExcel);
       }},
      {"TheAcronymOfABookThatIsRenamed",
       false,
       [](RecordedLibrary& library, const std::string& name) {
         writeWith(library, kCatalogue, ">ALM<", ">" + inXml(name) + "<");
         rename(library);
       }},
  };
}

class HostilePlaces : public HostileNames {};

TEST_P(HostilePlaces, LeadToNothingOutsideOfTheInputAndTheServer) {
  bool isLibraryWritten = false;
  for (const HostileName& name : triedNames()) {
    for (const RecordingFiles::Call& call : callsWith(name.name)) {
      EXPECT_EQ(escapeOf(call.path), "") << name.name << ": " << call.operation << " " << call.path;
      isLibraryWritten |= isWriting(call) && contains(upperCaseAscii(call.path), "\\DOCS\\PLANT\\");
    }
  }
  EXPECT_TRUE(isLibraryWritten) << "no name at all was accepted";
}

INSTANTIATE_TEST_SUITE_P(Of,
                         HostilePlaces,
                         ::testing::ValuesIn(placeSources()),
                         [](const auto& parameter) { return parameter.param.place; });

// Text tables of contents, whose documents are looked up from the root of the drive

/// XML can't hold them, so they come in texts and pages alone.
std::vector<std::string> namesWithNul() {
  return {std::string("b\0.htm", 6), std::string("Manual\\a.htm\0", 13), std::string("\0", 1)};
}

class HostileTextToc : public ::testing::Test {
 protected:
  static std::string tableWith(const std::string& first, const std::string& second) {
    std::string text = "\"Node Level\" \"Node Name\" \"File Name\" \"Sub Link\"\r\n\r\n";
    for (const auto& [level, file] : {std::pair{1, first}, std::pair{2, second}}) {
      text += "\"" + std::to_string(level) + "\" \"A\" \"" + file + "\" \"\" " +
              text_form::lineOf(
                  {.level = static_cast<std::int16_t>(level), .name = "A", .file = file}) +
              "\r\n";
    }
    return text;
  }
  Calls callsOfCheck(const std::string& name) {
    return library_.callsOf([&](RecordedLibrary& library) {
      library.write("in/toc.txt", tableWith("Manual\\a.htm", name));
      Module module(library.platform());
      TocCheck(module).mbValidateTextToc("C:\\in\\toc.txt");
    });
  }
  Calls callsOfAddition(const std::string& name) {
    return library_.callsOf([&](RecordedLibrary& library) {
      library.write("in/toc.txt", tableWith(name, "Manual\\a.htm"));
      add(library, "toc.txt", TocCheck::kText);
    });
  }

  RecordedLibrary library_;
};

TEST_F(HostileTextToc, LooksNothingUpOnTheNetworkOrAtADevice) {
  const Calls usual = callsOfCheck(kHarmless);
  ASSERT_THAT(usual, Contains(RecordingFiles::Call{"fileExists", "C:\\harmless.htm"}));
  for (const HostileName& name : triedNames()) {
    const Calls calls = callsOfCheck(name.name);
    if (name.leads == Leads::kToNetworkOrDevice) {
      EXPECT_EQ(calls.size(), usual.size() - 1) << name.name;
    }
    for (const RecordingFiles::Call& call : calls) {
      EXPECT_TRUE(call.path.starts_with("C:\\")) << name.name << ": " << call.path;
    }
  }
}

TEST_F(HostileTextToc, LooksNothingUpUnderANameWithANulWhichIsMissing) {
  const Calls usual = callsOfCheck(kHarmless);
  for (const std::string& name : namesWithNul()) {
    EXPECT_EQ(callsOfCheck(name).size(), usual.size() - 1);
    EXPECT_THAT(library_.boxes(), IsEmpty());
  }
}

TEST(HostilePage, LooksNothingUpUnderANameWithANulWhichIsMissing) {
  RecordedLibrary library;
  const auto callsOfCheck = [&](const std::string& name) {
    return library.callsOf([&](RecordedLibrary& recorded) {
      recorded.write("in/toc.htm", "<K1>HREF=\"" + name + "\"t</K1>");
      validate(recorded, "toc.htm", TocCheck::kHtml);
    });
  };
  const Calls usual = callsOfCheck(kHarmless);
  for (const std::string& name : namesWithNul()) {
    EXPECT_EQ(callsOfCheck(name).size(), usual.size() - 1);
    EXPECT_THAT(library.boxes(), IsEmpty());
  }
}

TEST_F(HostileTextToc, WritesNothingOutsideOfItsFolderAndTheLibrary) {
  for (const HostileName& name : triedNames()) {
    for (const RecordingFiles::Call& call : callsOfAddition(name.name)) {
      if (isWriting(call)) {
        EXPECT_EQ(escapeOf(call.path), "") << name.name << ": " << call.path;
      }
    }
  }
}

TEST_F(HostileTextToc, WhoseBookWouldLieElsewhereIsRefusedBeforeAnythingIsWritten) {
  for (const char* name : {"..\\secret.htm",
                           "C:\\secret.htm",
                           "nul\\secret.htm",
                           "\\\\server\\share\\secret.htm",
                           "Manual:stream\\secret.htm"}) {
    for (const RecordingFiles::Call& call : callsOfAddition(name)) {
      EXPECT_FALSE(isWriting(call)) << name << ": " << call.operation << " " << call.path;
    }
    EXPECT_EQ(library_.boxes().size(), 1U) << name;
  }
}

TEST(TheHostileNames, AreMoreThanTwoHundredAndFiftyAndAllDifferent) {
  std::set<std::string> different;
  for (const HostileName& name : hostileNames()) {
    EXPECT_TRUE(different.insert(name.name).second) << name.name;
  }
  EXPECT_GE(different.size(), 250U);
}

}  // namespace
}  // namespace quorbind::testing
