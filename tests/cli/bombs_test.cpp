// Files that are made to fill a memory or to take for ever end quickly, and within bounds that
// every machine has.

#include <sys/resource.h>

#include <functional>

#include "tests/cli/command_test.h"
#include "tests/support/hostile_workbooks.h"
#include "tests/support/packed_file.h"

namespace quorbind::testing {
namespace {

#if defined(__SANITIZE_ADDRESS__)
// The sanitizer takes terabytes of addresses for itself, and several times as long.
const Words kWithinMemory{};
constexpr double kSecondsOfProcessor = 10;
#else
/// All that the process maps, its libraries included: 256 MiB.
const Words kWithinMemory{"prlimit", "--as=268435456"};
constexpr double kSecondsOfProcessor = 2;
#endif

std::string repeated(std::size_t count, const std::function<std::string(std::size_t)>& piece) {
  std::string text;
  for (std::size_t i = 0; i < count; ++i) {
    text += piece(i);
  }
  return text;
}

std::string repeated(std::size_t count, const std::string& piece) {
  return repeated(count, [&](std::size_t) { return piece; });
}

/// The processor time of all processes that ended so far.
double secondsOfChildren() {
  rusage usage{};
  getrusage(RUSAGE_CHILDREN, &usage);
  const auto seconds = [](const timeval& time) {
    return static_cast<double>(time.tv_sec) + static_cast<double>(time.tv_usec) / 1e6;
  };
  return seconds(usage.ru_utime) + seconds(usage.ru_stime);
}

struct Bomb {
  std::string name;
  std::function<std::string()> bytes;
};

void PrintTo(const Bomb& bomb, std::ostream* out) {
  *out << bomb.name;
}

constexpr auto kNameOf = [](const ::testing::TestParamInfo<Bomb>& info) { return info.param.name; };

class BombTest : public CommandTest, public ::testing::WithParamInterface<Bomb> {
 protected:
  void SetUp() override { initLibrary(); }

  /// Runs the command within the bounds. It ends as one that a file is refused by.
  void expectRefused(const Words& arguments) {
    const Tree before = disk.contents();
    const double begin = secondsOfChildren();
    const Outcome outcome =
        runHere(joined(joined(kWithinMemory, {quorbindExecutable()}), arguments));
    EXPECT_LT(secondsOfChildren() - begin, kSecondsOfProcessor);
    EXPECT_EQ(outcome.status, 4) << outcome.signal << outcome.err.substr(0, 1000);
    EXPECT_NE(outcome.err, "");
    EXPECT_TRUE(disk.contents() == before);
  }
};

TEST_F(BombTest, AnOrdinaryFileIsReadWithinTheBounds) {
  EXPECT_EQ(
      runHere(joined(kWithinMemory,
                     {quorbindExecutable(), "show", "--server", "server", "--library", "Plant"}))
          .status,
      0);
}

// XML

std::string laughter(const std::string& kind) {
  return "<!DOCTYPE a [<!ENTITY " + kind + "e0 'ha'>" + repeated(60, [&](std::size_t i) {
           const std::string former =
               (kind.empty() ? "&" : "%") + std::string("e") + std::to_string(i) + ";";
           return "<!ENTITY " + kind + "e" + std::to_string(i + 1) + " '" + repeated(10, former) +
                  "'>";
         });
}

std::vector<Bomb> xmlBombs() {
  return {
      {"EntitiesThatMultiply", [] { return laughter("") + "]><a>&e60;</a>"; }},
      {"EntitiesOfTheDocumentType", [] { return laughter("% ") + "%e60;]><a/>"; }},
      {"AnEntityThatNamesItself",
       [] { return std::string("<!DOCTYPE a [<!ENTITY e '&e;&e;'>]><a>&e;</a>"); }},
      {"ALongEntityNamedOften",
       [] {
         return "<!DOCTYPE a [<!ENTITY e '" + std::string(1'000'000, 'x') + "'>]><a>" +
                repeated(100'000, "&e;") + "</a>";
       }},
      {"EntitiesInAnAttribute", [] { return laughter("") + "]><a b='&e60;'/>"; }},
      {"ElementsInsideEachOther", [] { return repeated(2'000'000, "<a>"); }},
      {"ElementsInsideEachOtherThatEnd",
       [] { return repeated(1'000'000, "<a>") + repeated(1'000'000, "</a>"); }},
      {"AttributesOfOneElement",
       [] {
         return "<a" +
                repeated(500'000, [](std::size_t i) { return " a" + std::to_string(i) + "=''"; }) +
                "/>";
       }},
      {"AttributesOfManyElements",
       [] {
         const std::string attributes =
             repeated(250, [](std::size_t i) { return " a" + std::to_string(i) + "=''"; });
         return "<a>" + repeated(8'000, "<a" + attributes + "/>") + "</a>";
       }},
      {"ElementsBesideEachOther", [] { return "<a>" + repeated(3'000'000, "<a/>") + "</a>"; }},
      {"ElementsWithTextBetween", [] { return "<a>" + repeated(3'000'000, "<a/>x") + "</a>"; }},
      {"Comments", [] { return "<a>" + repeated(3'000'000, "<!---->") + "</a>"; }},
      {"Instructions", [] { return "<a>" + repeated(3'000'000, "<?a?>") + "</a>"; }},
      {"NamespacesOfOneElement",
       [] {
         return "<a" +
                repeated(300'000,
                         [](std::size_t i) { return " xmlns:a" + std::to_string(i) + "='u'"; }) +
                "/>";
       }},
      {"NamespacesOfManyElements",
       [] {
         return repeated(250, [](std::size_t i) {
           return "<a" +
                  repeated(900,
                           [i](std::size_t j) {
                             return " xmlns:a" + std::to_string(i) + "-" + std::to_string(j) +
                                    "='u'";
                           }) +
                  ">";
         });
       }},
      {"ANameWithoutEnd", [] { return "<" + std::string(20'000'000, 'a') + "/>"; }},
      {"AnAttributesNameWithoutEnd", [] { return "<a " + std::string(20'000'000, 'a') + "=''/>"; }},
      {"ADeclarationWithoutEnd", [] { return "<?xml " + std::string(20'000'000, ' '); }},
      {"MarksThatNothingFollows", [] { return "<a>" + repeated(10'000'000, "<"); }},
      {"ReferencesThatNothingEnds", [] { return "<a>" + repeated(10'000'000, "&"); }},
      {"AnElementThatIsNoRoot", [] { return "<a/>" + repeated(5'000'000, "<a/>"); }},
  };
}

class XmlBombs : public BombTest {};

TEST_P(XmlBombs, EndQuicklyAsACatalogue) {
  disk.write("server/Docs/Plant/Quor_TOC.xml", GetParam().bytes());
  expectRefused({"show", "--server", "server", "--library", "Plant"});
}

TEST_P(XmlBombs, EndQuicklyAsABookFile) {
  disk.write("book.xml", GetParam().bytes());
  expectRefused({"add", "book.xml", "--server", "server", "--library", "Plant", "--no-input"});
}

INSTANTIATE_TEST_SUITE_P(Of, XmlBombs, ::testing::ValuesIn(xmlBombs()), kNameOf);

// Job files

std::vector<Bomb> jobFileBombs() {
  return {{"KeyOfManyParts", [] { return repeated(50'000, "a.") + "a = 1"; }},
          {"TableOfManyParts", [] { return "[" + repeated(50'000, "a.") + "a]"; }},
          {"NestedLists", [] { return "a = " + repeated(50'000, "[") + repeated(50'000, "]"); }},
          {"LongList", [] { return "a = [" + repeated(1'000'000, "1,") + "]"; }}};
}

class JobFileBombs : public BombTest {};

TEST_P(JobFileBombs, EndQuickly) {
  disk.write("job.toml", GetParam().bytes());
  expectRefused({"add", "--job", "job.toml"});
}

INSTANTIATE_TEST_SUITE_P(Of, JobFileBombs, ::testing::ValuesIn(jobFileBombs()), kNameOf);

// A page, which is in memory as a whole

TEST_F(BombTest, APageThatThereIsNotEnoughMemoryForEndsQuickly) {
#if defined(__SANITIZE_ADDRESS__)
  GTEST_SKIP() << "here is memory enough for it";
#endif
  disk.write("toc.htm", std::string(100'000'000, ' '));
  expectRefused({"check", "toc.htm"});
  expectRefused(addFileWords("toc.htm", asAlarms()));
  const Outcome outcome =
      runHere(joined(kWithinMemory, {quorbindExecutable(), "check", "toc.htm"}));
  EXPECT_EQ(outcome.err, "critical: Out of memory\nquorbind: toc.htm: not accepted\n");
}

TEST_F(BombTest, ALineThatThereIsNotEnoughMemoryForEndsQuickly) {
#if defined(__SANITIZE_ADDRESS__)
  GTEST_SKIP() << "here is memory enough for it";
#endif
  writeToc("\"1\" \"" + std::string(60'000'000, 'x') + "\" \"Manual\\a.htm\" \"\"\n");
  expectRefused(addWords(asAlarms()));
}

// Packed workbooks

constexpr std::string_view kMain = "xl/workbook.xml";
constexpr std::string_view kSheet = "xl/sheet.xml";

std::string sheetOf(const std::string& rows) {
  return "<worksheet><sheetData>" + rows + "</sheetData></worksheet>";
}

/// Many entries for the bytes of one part.
std::string overlappingParts() {
  PackedFile file = smallWorkbookWith(kSheet, sheetOf(std::string(50'000'000, ' ')));
  PackedFile::Entry entry = file.add("big", std::string(1'000'000, 'x'));
  for (int i = 0; i < 900; ++i) {
    entry.name = "big" + std::to_string(i);
    file.addEntry(entry);
  }
  return file.bytes();
}

std::string tooManyParts() {
  PackedFile file = smallWorkbookWith("", "");
  const PackedFile::Entry entry = file.add("part", "x");
  for (int i = 0; i < 60'000; ++i) {
    PackedFile::Entry next = entry;
    next.name += std::to_string(i);
    file.addEntry(next);
  }
  return file.bytes();
}

/// A part whose list entry says that it is small.
std::string lyingPart() {
  PackedFile file;
  PackedFile::Entry& entry = file.add("_rels/.rels", std::string(50'000'000, ' '));
  entry.size = 10;
  return file.bytes();
}

std::vector<Bomb> workbookBombs() {
  return {
      {"APartOfBlanks",
       [] { return smallWorkbookWith(kSheet, sheetOf(std::string(100'000'000, ' '))).bytes(); }},
      {"AListOfPartsOfBlanks",
       [] {
         return smallWorkbookWith("xl/_rels/workbook.xml.rels", std::string(100'000'000, ' '))
             .bytes();
       }},
      {"ASheetOfEmptyRows",
       [] { return smallWorkbookWith(kSheet, sheetOf(repeated(8'000'000, "<row/>"))).bytes(); }},
      {"OneTextInEveryCell", [] { return bombOfSharedTexts(WorkbookKind::kXlsx); }},
      {"OneTextWithoutEnd",
       [] {
         return smallWorkbookWith("xl/texts.xml",
                                  "<sst><si><t>" + std::string(30'000'000, 'x') + "</t></si></sst>")
             .bytes();
       }},
      {"EntitiesThatMultiply",
       [] { return smallWorkbookWith(kMain, laughter("") + "]><a>&e60;</a>").bytes(); }},
      {"ElementsInsideEachOther",
       [] { return smallWorkbookWith(kSheet, repeated(2'000'000, "<a>")).bytes(); }},
      {"AttributesOfOneElement",
       [] {
         return smallWorkbookWith(
                    kSheet,
                    "<a" +
                        repeated(500'000,
                                 [](std::size_t i) { return " a" + std::to_string(i) + "=''"; }) +
                        "/>")
             .bytes();
       }},
      {"PartsThatShareTheirBytes", overlappingParts},
      {"PartsWithoutNumber", tooManyParts},
      {"APartThatIsLargerThanItSays", lyingPart},
  };
}

class WorkbookBombs : public BombTest {};

TEST_P(WorkbookBombs, EndQuickly) {
  disk.write("books.xlsx", GetParam().bytes());
  expectRefused({"check", "books.xlsx"});
}

INSTANTIATE_TEST_SUITE_P(Of, WorkbookBombs, ::testing::ValuesIn(workbookBombs()), kNameOf);

TEST_F(BombTest, OneTextInEveryCellOfABinaryWorkbookEndsQuickly) {
  disk.write("books.xls", bombOfSharedTexts(WorkbookKind::kXls));
  expectRefused({"check", "books.xls"});
}

}  // namespace
}  // namespace quorbind::testing
