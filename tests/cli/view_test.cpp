#include <chrono>
#include <fstream>
#include <sstream>

#include "cli/view_page.h"
#include "tests/cli/library_test.h"
#include "tests/support/hostile_names.h"

namespace quorbind::testing {
namespace {

namespace fs = std::filesystem;

class View : public LibraryTest {
 protected:
  [[nodiscard]] Outcome view(const Words& more = {}) const {
    return inPlant(joined({"view"}, more));
  }
  /// The page that `view` writes.
  [[nodiscard]] std::string page() const {
    const Outcome outcome = view({"-o", "-"});
    EXPECT_EQ(outcome.status, 0) << outcome.err;
    EXPECT_EQ(outcome.err, "");
    return outcome.out;
  }
  /// A page without its style, its script and their hashes, which differ from version to version.
  static std::string withoutAssets(std::string page) {
    for (const auto& [begin, end] : {std::pair{"<style>", "</style>"},
                                     {"<script>", "</script>"},
                                     {"style-src '", "'"},
                                     {"script-src '", "'"}}) {
      const std::size_t from = page.find(begin) + std::string_view(begin).size();
      page.erase(from, page.find(end, from) - from);
    }
    return page;
  }
  /// How often a text stands in a page.
  static std::size_t count(const std::string& page, std::string_view text) {
    return countPieces(page, text) - 1;
  }
  void expectIn(const std::string& page, const std::string& text) const {
    EXPECT_NE(page.find(text), std::string::npos) << text << "\n is not in\n"
                                                  << withoutAssets(page);
  }

  static std::string bookFileWith(std::string_view headings) {
    return "<Book_Master><Book/><Book_Headings>" + std::string(headings) +
           "</Book_Headings></Book_Master>";
  }
  static std::string heading(std::string_view title,
                             std::string_view document,
                             std::string_view inside = "") {
    return "<Heading><HName>" + std::string(title) + "</HName><HFile>" + std::string(document) +
           "</HFile>" + std::string(inside) + "</Heading>";
  }
};

/// A library in which there is one of everything.
class CompleteView : public View {
 protected:
  void SetUp() override {
    View::SetUp();
    disk.write(kCatalogue,
               catalogueWith(bookEntry("Alarms", "ALM") + bookEntry(kMarkupInXml, "MRK") +
                             replaceAll(bookEntry("Trends", "TRD"),
                                        "<Book_Categories/>",
                                        "<Book_Categories><Book_Category>R&amp;D</Book_Category>"
                                        "<Book_Category>Safety</Book_Category></Book_Categories>") +
                             replaceAll(bookEntry("Site plan", "PLN"),
                                        "<Book_File>Book_PLN.xml",
                                        "<Book_File type=\"map\">PLAN.pdf")));
    disk.write(kBookFile,
               bookFileWith(heading("Alarms",
                                    "ALARMS.htm",
                                    heading("Reset", "alarms.htm#reset") + heading("", "lost.htm") +
                                        heading("Lamps", "", heading("Red", "lost.htm#red"))) +
                            heading("A &amp;lt;b&amp;gt;", "..\\..\\secret.htm")));
    disk.write("server/Docs/Plant/Manual/Book_TRD.xml", bookFileWith(""));
    disk.write("server/Docs/Plant/Manual/plan.PDF", "");
    disk.write(kCategories,
               categoriesFile(category("Safety", "ALM") + category("Maps", "GONE") +
                              category("Training") + category("Other Category", "ALM")));
    disk.write(kKeywords, keywordsFile(keywordsOf("Alarms", {"bell", "R&amp;amp;D"})));
    disk.write(
        kLinks,
        linksFile(
            link("X1", "ALM@QUOR@Alarms@QUOR@Reset", "Plant\\Manual\\alarms.htm#reset", "ALM") +
            link("X2", "ALM@quor@@quor@Alarms", "Old\\Elsewhere\\alarms.htm", "ALM") +
            link("Whole", "ALM@QUOR@Alarms", "Plant\\\\home\\anna\\toc.htm", "ALM") +
            link("Y1", "ALM@QUOR@Lost", "Plant\\Manual\\lost.htm", "ALM") +
            link("Y2", "OLD@QUOR@Then", "Plant\\Manual\\alarms.htm", "OLD")));
  }
};

TEST_F(CompleteView, IsOnePageWithTheWholeLibrary) {
  std::ifstream kept(QUORBIND_VIEW_PAGE);
  std::ostringstream expected;
  expected << kept.rdbuf();
  EXPECT_EQ(withoutAssets(page()), expected.str());
}

TEST_F(CompleteView, TellsWhatWasWrittenAndWhatIsWrong) {
  const Outcome outcome = view();
  EXPECT_EQ(outcome.status, 0);
  EXPECT_EQ(outcome.err, "");
  EXPECT_EQ(outcome.out,
            "Wrote library.html: 4 books, 6 headings.\n"
            "missing documents: 2\n"
            "files that can't be read: 1\n"
            "link identifiers that lead nowhere: 2\n");
}

TEST_F(CompleteView, TellsItAsAnObject) {
  EXPECT_EQ(view({"--json", "-o", "page.htm"}).out,
            "{\n"
            "  \"format\": 1,\n"
            "  \"file\": \"page.htm\",\n"
            "  \"libraries\": [\n"
            "    {\n"
            "      \"library\": \"Plant\",\n"
            "      \"books\": 4,\n"
            "      \"headings\": 6,\n"
            "      \"missing\": 2,\n"
            "      \"unreadable\": 1,\n"
            "      \"dangling\": 2\n"
            "    }\n"
            "  ]\n"
            "}\n");
  EXPECT_EQ(disk.read("page.htm"), page());
}

TEST_F(CompleteView, OfTheSameLibraryHasTheSameBytesWhereverItLies) {
  const std::string before = page();
  EXPECT_EQ(page(), before);
  disk.makeFolder("moved");
  fs::rename(disk.path() / "server", disk.path() / "moved/server");
  const Outcome outcome = runHere(
      {"sh",
       "-c",
       "cd moved && exec " + quorbindExecutable() + " view --server server --library Plant -o -"});
  EXPECT_EQ(outcome.out, before);
}

TEST_F(CompleteView, ChangesNothingButThePage) {
  const Tree before = disk.contents();
  EXPECT_EQ(view().status, 0);
  Tree after = disk.contents();
  EXPECT_EQ(after.erase("library.html"), 1U);
  EXPECT_EQ(after, before);
}

TEST_F(CompleteView, IsMadeAnewOverAnEarlierPage) {
  EXPECT_EQ(view().status, 0);
  const std::string first = disk.read("library.html");
  disk.write(kCatalogue, catalogueWith(""));
  EXPECT_EQ(view().status, 0);
  EXPECT_NE(disk.read("library.html"), first);
}

TEST_F(View, NeverReplacesAFileThatItHasNotMade) {
  for (const std::string name : {"library.html", "server/Docs/Plant/Manual/alarms.htm"}) {
    disk.write(name, "<!DOCTYPE html>\n<p>mine</p>");
    expectRefusal({"view", "-o", name},
                  1,
                  "critical: " + name +
                      ": the file is not one that 'view' has made; move it, or name another with "
                      "-o\n");
  }
}

TEST_F(View, ThatCanNotBeWrittenIsNamed) {
  disk.makeFolder("library.html");
  expectRefusal({"view"}, 5, "critical: library.html: Path/File access error\n");
  expectRefusal({"view", "-o", "none/page.htm"}, 5, "critical: none/page.htm: Path not found\n");
}

TEST_F(View, OnTheStandardOutputIsThePageAlone) {
  EXPECT_TRUE(page().starts_with(kPageBeginning));
  EXPECT_TRUE(page().ends_with("</html>\n"));
  EXPECT_FALSE(disk.has("library.html"));
  EXPECT_EQ(view({"-o", "-", "--json"}).status, 2);
}

TEST_F(View, LeadsFromWhereItLiesToTheDocuments) {
  disk.makeFolder("pages/new");
  EXPECT_EQ(view({"-o", "pages/new/plant.htm"}).status, 0);
  expectIn(disk.read("pages/new/plant.htm"),
           "<a href=\"../../server/Docs/Plant/Manual/alarms.htm\" class=\"heading\">");
  EXPECT_EQ(view({"-o", "server/Docs/Plant/index.htm"}).status, 0);
  expectIn(disk.read("server/Docs/Plant/index.htm"),
           "<a href=\"Manual/alarms.htm\" class=\"heading\">");
  EXPECT_EQ(view({"-o", "server/all.htm"}).status, 0);
  expectIn(disk.read("server/all.htm"),
           "<a href=\"./Docs/Plant/Manual/alarms.htm\" class=\"heading\">");
}

TEST_F(View, LeadsToTheDocumentsWhateverLetterCaseTheServerIsTypedIn) {
  const Outcome outcome = quorbind({"view", "--server", "SERVER", "--library", "PLANT", "-o", "-"});
  expectIn(outcome.out, "<a href=\"server/Docs/Plant/Manual/alarms.htm\" class=\"heading\">");
}

TEST_F(View, TellsOfADocumentThatIsNamedInTwoLetterCasesOnce) {
  disk.write(kBookFile,
             bookFileWith(heading("A", "lost.htm") + heading("B", "LOST.htm#b") +
                          heading("C", ".\\Lost.HTM") + heading("D", "pages/a.htm") +
                          heading("E", "pages\\a.htm")));
  EXPECT_EQ(view().out,
            "Wrote library.html: 2 books, 5 headings.\n"
            "missing documents: 2\n"
            "files that can't be read: 1\n");
}

TEST_F(View, OfALibraryWithoutBooksSaysSo) {
  disk.write(kCatalogue, catalogueWith(""));
  expectIn(page(), "<p>0 books, 0 headings</p>");
  expectIn(page(), "<p class=\"empty aside\">There is no book here.</p>");
}

TEST_F(View, TellsOfSideFilesThatCanNotBeRead) {
  for (const char* file : {kCategories, kKeywords, kLinks}) {
    disk.write(file, "<Damaged>");
  }
  const std::string html = page();
  for (const char* name :
       {"Quor_BookCategories.xml", "Quor_SearchKeywords.xml", "Quor_LinkID.xml"}) {
    expectIn(html, "<p class=\"fault\">This can't be read: <bdi>" + std::string(name) + ":1:10: ");
  }
  expectIn(html, "<bdi>Alarms</bdi>");
  EXPECT_EQ(html.find("DISK"), std::string::npos);
}

TEST_F(View, OfABookFileThatDoesNotParseTellsTheLine) {
  disk.write(kBookFile, "<Book_Master>\n<Book>\n");
  expectIn(page(), "<p class=\"fault\">The headings can't be read: <bdi>Manual/Book_ALM.xml:");
}

TEST_F(View, NeverLeadsOutOfTheLibrary) {
  disk.write("secret.htm", "");
  std::string headings;
  for (const HostileName& name : hostileNames()) {
    headings += heading("t", replaceAll(replaceAll(name.name, "&", "&amp;"), "<", "&lt;"));
  }
  disk.write(kBookFile, bookFileWith(headings + heading("t", "..\\..\\..\\..\\secret.htm")));
  const std::string html = page();
  EXPECT_EQ(count(html, "class=\"heading\""), hostileNames().size() + 1);
  EXPECT_EQ(count(html, "<a href=\"server/"), 0U);
  EXPECT_EQ(count(html, "<a href=\"file:"), 0U);
}

TEST_F(View, LetsNoTextOutOfItsPlace) {
  const std::string hostile =
      "&amp;lt;/script&amp;gt;&amp;lt;script&amp;gt;x()&amp;lt;/script&amp;gt;&amp;quot; "
      "onload=&amp;apos;x&#x2069;&#x202E;&lt;img src=x&gt;";
  disk.write(kCatalogue,
             replaceAll(catalogueWith(bookEntry(hostile, "ALM")),
                        "<Book_Categories/>",
                        "<Book_Categories><C>" + hostile + "</C></Book_Categories>"));
  disk.write(kBookFile, bookFileWith(heading(hostile, hostile)));
  disk.write(kKeywords, keywordsFile(keywordsOf("x", {"y"})));
  disk.write(kCategories, categoriesFile(category(hostile, hostile)));
  disk.write(kLinks, linksFile(link(hostile, hostile, hostile, hostile)));
  const std::string html = page();
  EXPECT_EQ(count(html, "<script>"), 1U);
  EXPECT_EQ(count(html, "</script>"), 1U);
  EXPECT_EQ(count(html, "<img"), 0U);
  EXPECT_EQ(count(html, "<bdi>"), count(html, "</bdi>"));
  // Each stands apart, and changes no direction.
  EXPECT_EQ(count(html, "\xE2\x80\xAE"), 0U);
  EXPECT_EQ(count(html, "\xE2\x81\xA9"), 0U);
  EXPECT_GE(count(html, "x\\u{2069}\\u{202E}&lt;img src=x&gt;</bdi>"), 7U);
}

TEST_F(View, NestsHeadingsAsDeepAsTheyComeAndClosesWhatItOpens) {
  std::string deep = heading("last", "");
  for (int depth = 0; depth < 200; ++depth) {
    deep = "<Heading><HName>t</HName><HFile/>" + deep + "</Heading>";
  }
  disk.write(kBookFile,
             bookFileWith("<Heading>" + deep + "</Heading>" + heading("first again", "")));
  const std::string html = page();
  for (const char* element : {"ul", "li", "section", "article", "details"}) {
    EXPECT_EQ(count(html, "<" + std::string(element)), count(html, "</" + std::string(element)))
        << element;
  }
  expectIn(html, "202 headings");
}

TEST_F(View, PutsHeadingsThatStandTooDeepForABrowserBesideThoseAboveAndTellsTheirLevel) {
  std::string deep = heading("last", "");
  for (int depth = 0; depth < 202; ++depth) {
    deep = "<Heading><HName>t</HName><HFile/>" + deep + "</Heading>";
  }
  disk.write(kBookFile, bookFileWith(deep));
  const std::string html = page();
  EXPECT_EQ(count(html, "<ul>\n<li><span class=\"heading\">"), 200U);
  expectIn(html,
           "<bdi>t</bdi></span></li>\n"
           "<li><span class=\"heading\"><bdi>t</bdi></span> <span class=\"count\">level "
           "202</span></li>\n"
           "<li><span class=\"heading\"><bdi>last</bdi></span> <span class=\"count\">level "
           "203</span></li>\n");
}

/// A server with more than one library.
class ServerView : public View {
 protected:
  void SetUp() override {
    View::SetUp();
    ASSERT_EQ(quorbind({"init", "--server", "server", "--library", "Archive"}).status, 0);
  }
  [[nodiscard]] Outcome viewServer(const Words& more = {}) const {
    return quorbind(joined({"view", "--server", "server"}, more));
  }
};

TEST_F(ServerView, HasAllLibrariesInTheOrderOfTheServersList) {
  const Outcome outcome = viewServer({"-o", "-"});
  EXPECT_EQ(outcome.status, 0);
  expectIn(outcome.out, "<h1>Documentation libraries</h1>\n<p>2 books, 1 heading</p>");
  expectIn(outcome.out, "<h2 id=\"l1-title\"><bdi>Plant</bdi></h2>");
  expectIn(outcome.out, "<h3 id=\"l1-other-title\">Books</h3>");
  expectIn(outcome.out, "<h4 class=\"title\" id=\"l1-b1-title\">");
  expectIn(outcome.out, "<h2 id=\"l2-title\"><bdi>Archive</bdi></h2>");
  EXPECT_LT(outcome.out.find("<bdi>Plant</bdi></h2>"), outcome.out.find("<bdi>Archive</bdi></h2>"));
}

TEST_F(ServerView, TellsOfALibraryWhoseCatalogueCanNotBeRead) {
  disk.remove("server/Docs/Archive/Quor_TOC.xml");
  const Outcome outcome = viewServer();
  EXPECT_EQ(outcome.status, 0);
  EXPECT_EQ(outcome.out,
            "Wrote library.html: 2 books, 1 heading.\n"
            "files that can't be read: 2\n");
  expectIn(disk.read("library.html"),
           "<h2 id=\"l2-title\"><bdi>Archive</bdi></h2>\n"
           "<p class=\"fault\">This can't be read: <bdi>Quor_TOC.xml: File not found</bdi></p>\n"
           "<p class=\"empty aside\">Categories without books: ");
}

TEST_F(ServerView, OfAServerThatIsNotThereIsMissingInput) {
  EXPECT_EQ(quorbind({"view", "--server", "nowhere"}).status, 3);
  EXPECT_FALSE(disk.has("library.html"));
}

TEST_F(ServerView, OfAListThatDoesNotParseIsNamed) {
  disk.write("server/Docs/Quor_Selection.xml", "<Quor_Selection_List>");
  const Outcome outcome = viewServer();
  EXPECT_EQ(outcome.status, 4);
  EXPECT_TRUE(outcome.err.starts_with("critical: DISK/server/Docs/Quor_Selection.xml:"))
      << outcome.err;
}

TEST_F(View, OfAThousandBooksIsThereInSeconds) {
  constexpr std::size_t kBooks = 1'000;
  std::string headings;
  for (int number = 0; number < 100; ++number) {
    headings += heading("Heading " + std::to_string(number),
                        number % 2 == 0 ? "alarms.htm" : "page" + std::to_string(number) + ".htm");
  }
  std::string entries;
  for (std::size_t book = 0; book < kBooks; ++book) {
    const std::string acronym = "B" + std::to_string(book);
    entries += bookEntry("Manual " + std::to_string(book), acronym);
    disk.write("server/Docs/Plant/Manual/Book_" + acronym + ".xml", bookFileWith(headings));
  }
  disk.write(kCatalogue, catalogueWith(entries));
  const auto start = std::chrono::steady_clock::now();
  const Outcome outcome = view();
  EXPECT_LT(std::chrono::steady_clock::now() - start, std::chrono::seconds(30));
  EXPECT_EQ(outcome.out,
            "Wrote library.html: 1000 books, 100000 headings.\n"
            "missing documents: 50000\n");
  const std::string html = disk.read("library.html");
  EXPECT_EQ(count(html, "class=\"heading\""), 100'000U);
  expectIn(html, "<bdi>Manual 4</bdi></a> and 995 more</li>\n");
}

}  // namespace
}  // namespace quorbind::testing
