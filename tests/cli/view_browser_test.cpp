// Library pages in a browser: what its search shows, and that nothing comes into it from elsewhere.
// Where there is no Chromium, each test says so and is skipped.

#include <algorithm>
#include <cstdlib>

#include "tests/cli/command_test.h"

namespace quorbind::testing {
namespace {

namespace fs = std::filesystem;

enum class Scheme { kDark, kLight };

class ViewInABrowser : public CommandTest {
 protected:
  void SetUp() override {
    if (runHere({"sh", "-c", "command -v chromium"}).status != 0) {
      GTEST_SKIP() << "there is no Chromium here; script/setup installs it";
    }
    makeLibrary();
    EXPECT_EQ(inPlant({"view"}).status, 0);
  }

  /// Opens a page, with what its address says behind a `#`, and answers it as it is then.
  [[nodiscard]] std::string opened(const std::string& page,
                                   const std::string& fragment = "") const {
    const Outcome outcome = runHere(browser({"--dump-dom", address(page, fragment)}));
    EXPECT_EQ(outcome.status, 0) << outcome.err;
    return outcome.out;
  }
  /// Opens a page in which a script does what a person would do, and answers it as it is when all
  /// that this brings about is over.
  [[nodiscard]] std::string used(const std::string& script,
                                 const std::string& fragment = "") const {
    const std::string page = withoutPolicy(disk.read("library.html"));
    disk.write("used.html", replaceAll(page, "</body>", "<script>" + script + "</script></body>"));
    const Outcome outcome = runHere(
        browser({"--virtual-time-budget=3000", "--dump-dom", address("used.html", fragment)}));
    EXPECT_EQ(outcome.status, 0) << outcome.err;
    return outcome.out;
  }
  /// A page whose policy doesn't keep a test's script out.
  static std::string withoutPolicy(const std::string& page) {
    const std::size_t policy = page.find("<meta http-equiv");
    return page.substr(0, policy) + page.substr(page.find('\n', policy));
  }
  /// What a script left for the test as the title of the page's body.
  static std::string saidBy(const std::string& page) {
    return piecesOf(page, "<body title=\"", "\"").front();
  }
  /// The places of the books whose headings are open.
  static Words openBooks(const std::string& page) {
    Words places;
    for (const std::string& book : piecesOf(page, "<article ", "</article>")) {
      if (book.find("<details open") != std::string::npos) {
        places.push_back(piecesOf(book, "id=\"", "\"").front());
      }
    }
    return places;
  }
  [[nodiscard]] std::string searchedFor(const std::string& words) const {
    return opened("library.html", "q=" + words);
  }

  /// The acronyms of the books that a page shows, in its order.
  static Words shownBooks(const std::string& page) {
    Words acronyms;
    for (const std::string& book : piecesOf(page, "<article ", "</article>")) {
      if (!isHidden(book)) {
        acronyms.push_back(textOf(book, "class=\"acronym own\""));
      }
    }
    return acronyms;
  }
  /// The headings that a page marks as found.
  static Words markedHeadings(const std::string& page) {
    Words titles;
    for (const std::string& title : piecesOf(page, "class=\"heading hit\"", "</bdi>")) {
      titles.push_back(title.substr(title.rfind('>') + 1));
    }
    return titles;
  }
  /// The headings that a book has on the screen.
  static std::size_t shownHeadings(const std::string& page) {
    const Words items = piecesOf(page, "<li", ">");
    return static_cast<std::size_t>(std::count(items.begin(), items.end(), ""));
  }
  static std::string status(const std::string& page) {
    return piecesOf(page, "role=\"status\">", "<").front();
  }

  void photograph(const std::string& fragment, Scheme scheme, const std::string& file) const {
    const std::string number = scheme == Scheme::kDark ? "0" : "1";
    const Outcome outcome = runHere(browser({"--blink-settings=preferredColorScheme=" + number,
                                             "--window-size=1100,760",
                                             "--hide-scrollbars",
                                             "--screenshot=" + file,
                                             address("library.html", fragment)}));
    EXPECT_EQ(outcome.status, 0) << outcome.err;
  }

  [[nodiscard]] Outcome inPlant(const Words& words) const {
    return quorbind(joined(words, {"--server", "server", "--library", "Plant"}));
  }

 private:
  void makeLibrary() const {
    initLibrary();
    fs::copy(QUORBIND_SAMPLES, disk.path() / "samples", fs::copy_options::recursive);
    const auto addSample = [this](const std::string& toc, const Words& more) {
      EXPECT_EQ(addFile("samples/" + toc, more).status, 0) << toc;
    };
    addSample("pump-station/toc.txt",
              {"--name",
               "Pump Station",
               "--acro",
               "PST",
               "--keywords",
               "water;filter;chlorine",
               "--categories",
               "Reference Manuals"});
    addSample("weather-mast/toc.htm",
              {"--name",
               "Weather Mast Handbook",
               "--acro",
               "WMH",
               "--keywords",
               "wind;rain",
               "--categories",
               "User Guides;Reference Manuals"});
    addSample("site-safety/Book_SAF.xml", {"--categories", "Safety"});
    disk.remove("server/Docs/Plant/Manual/glossary.htm");
  }

  [[nodiscard]] Words browser(const Words& more) const {
    return joined({"chromium",
                   "--headless=new",
                   "--no-sandbox",
                   "--disable-gpu",
                   "--disable-dev-shm-usage",
                   "--no-first-run",
                   "--user-data-dir=" + (disk.path() / "profile").string()},
                  more);
  }
  [[nodiscard]] std::string address(const std::string& page, const std::string& fragment) const {
    return "file://" + (disk.path() / page).string() + (fragment.empty() ? "" : "#" + fragment);
  }

  /// What stands between each `begin` and the `end` that follows it.
  static Words piecesOf(const std::string& text, std::string_view begin, std::string_view end) {
    Words pieces;
    for (std::size_t at = text.find(begin); at != std::string::npos; at = text.find(begin, at)) {
      at += begin.size();
      pieces.push_back(text.substr(at, text.find(end, at) - at));
    }
    return pieces;
  }
  static bool isHidden(const std::string& element) {
    return element.substr(0, element.find('>')).find(" hidden") != std::string::npos;
  }
  static std::string textOf(const std::string& element, std::string_view attribute) {
    const std::size_t begin = element.find("<bdi>", element.find(attribute)) + 5;
    return element.substr(begin, element.find('<', begin) - begin);
  }
};

TEST_F(ViewInABrowser, ShowsEverythingUntilSomethingIsSearched) {
  const std::string page = opened("library.html");
  EXPECT_EQ(shownBooks(page), (Words{"WMH", "PST", "SAF"}));
  EXPECT_EQ(markedHeadings(page), Words());
  EXPECT_EQ(status(page), "");
}

TEST_F(ViewInABrowser, OffersTheSearchOnlyWhereItsScriptRuns) {
  EXPECT_NE(disk.read("library.html").find("<form role=\"search\" hidden>"), std::string::npos);
  EXPECT_NE(opened("library.html").find("<form role=\"search\">"), std::string::npos);
}

TEST_F(ViewInABrowser, FindsHeadingsInAnyLetterCaseAndWithoutAccents) {
  const std::string page = searchedFor("S%C3%89TTING");
  EXPECT_EQ(shownBooks(page), (Words{"PST"}));
  EXPECT_EQ(markedHeadings(page),
            (Words{"Setting the dose", "Settings", "Backing up the settings"}));
  EXPECT_EQ(status(page), "Found 1 book, 3 headings");
}

TEST_F(ViewInABrowser, FindsBooksByNameAcronymAndKeyword) {
  for (const auto& [words, acronym] :
       {std::pair{"mast%20hand", "WMH"}, {"saf", "SAF"}, {"chlori", "PST"}}) {
    const Words books = shownBooks(searchedFor(words));
    EXPECT_NE(std::find(books.begin(), books.end(), acronym), books.end()) << words;
  }
  const std::string page = searchedFor("wmh");
  EXPECT_EQ(shownBooks(page), (Words{"WMH"}));
  EXPECT_EQ(status(page), "Found 1 book, 0 headings");
}

TEST_F(ViewInABrowser, WantsEveryWordInAHeadingOrInItsBook) {
  const std::string page = searchedFor("water%20backwash%20hand");
  EXPECT_EQ(shownBooks(page), (Words{"PST"}));
  EXPECT_EQ(markedHeadings(page), (Words{"Starting a backwash by hand"}));
}

TEST_F(ViewInABrowser, OpensABookAtWhatWasFoundAndHidesTheRestOfItsHeadings) {
  const std::string page = searchedFor("antenna");
  EXPECT_EQ(shownBooks(page), (Words{"WMH"}));
  EXPECT_NE(page.find("<details open=\"\">"), std::string::npos);
  // Faults, No contact with the mast, The antenna.
  EXPECT_EQ(shownHeadings(page.substr(page.find("id=\"b2\""),
                                      page.find("</article>") - page.find("id=\"b2\""))),
            3U);
}

TEST_F(ViewInABrowser, OpensTheBookThatItsAddressAsksFor) {
  const std::string page = opened("library.html", "b2");
  EXPECT_EQ(shownBooks(page), (Words{"WMH", "PST", "SAF"}));
  const std::size_t tree = page.find("<details open=\"\">");
  EXPECT_GT(tree, page.find("id=\"b2\""));
  EXPECT_EQ(page.find("<details open=\"\">", tree + 1), std::string::npos);
}

TEST_F(ViewInABrowser, SaysThatNothingWasFound) {
  const std::string page = searchedFor("zzz");
  EXPECT_EQ(shownBooks(page), Words());
  EXPECT_EQ(status(page), "Nothing found");
}

TEST_F(ViewInABrowser, TakesNoMarkupFromItsAddress) {
  const std::string page = searchedFor("%3Cb%20id=x%3E");
  EXPECT_EQ(shownBooks(page), Words());
  EXPECT_EQ(page.find("id=x"), std::string::npos);
  EXPECT_EQ(page.find("id=\"x\""), std::string::npos);
}

TEST_F(ViewInABrowser, GoesToTheSearchAtASlashThatIsNotTypedThere) {
  const std::string press =
      "const press = (target) => target.dispatchEvent("
      "new KeyboardEvent('keydown', {key: '/', bubbles: true, cancelable: true}));";
  EXPECT_EQ(
      saidBy(used(press + "const isTyped = press(document.body);"
                          "document.body.title = document.activeElement.id + ' ' + isTyped;")),
      "q false");
  EXPECT_EQ(saidBy(used(press +
                        "document.body.title = 'typed: ' + press(document.getElementById('q'));")),
            "typed: true");
}

TEST_F(ViewInABrowser, SearchesForWhatIsTypedAndKeepsItInItsAddress) {
  const std::string page = used(
      "const field = document.getElementById('q');"
      "field.value = 'the antenna';"
      "field.dispatchEvent(new Event('input', {bubbles: true}));"
      "setTimeout(() => { document.body.title = location.hash; }, 1000);");
  EXPECT_EQ(shownBooks(page), (Words{"WMH"}));
  EXPECT_EQ(markedHeadings(page), (Words{"The antenna"}));
  EXPECT_EQ(status(page), "Found 1 book, 1 heading");
  EXPECT_EQ(saidBy(page), "#q=the%20antenna");
}

TEST_F(ViewInABrowser, ForgetsItsSearchAtEscape) {
  const std::string page = used(
      "const field = document.getElementById('q');"
      "field.dispatchEvent(new KeyboardEvent('keydown', {key: 'Escape', bubbles: true}));"
      "document.body.title = `value '${field.value}', address '${location.hash}'`;",
      "q=antenna");
  EXPECT_EQ(saidBy(page), "value '', address ''");
  EXPECT_EQ(shownBooks(page), (Words{"WMH", "PST", "SAF"}));
  EXPECT_EQ(markedHeadings(page), Words());
  EXPECT_EQ(openBooks(page), Words());
  EXPECT_EQ(status(page), "");
}

TEST_F(ViewInABrowser, OpensAndClosesTheHeadingsOfAllBooks) {
  const std::string click = "const click = (id) => document.getElementById(id).click();";
  EXPECT_EQ(openBooks(used(click + "click('open');")), (Words{"b2", "b1", "b3"}));
  EXPECT_EQ(openBooks(used(click + "click('open'); click('close');")), Words());
  EXPECT_EQ(openBooks(used(click + "click('open');", "q=saf%20xyz")), Words())
      << "a book that is not shown";
}

TEST_F(ViewInABrowser, ShowsThePlaceThatALinkOfItsLeadsToWhateverWasSearched) {
  const std::string page = used("location.hash = '#b1';", "q=zzz");
  EXPECT_EQ(shownBooks(page), (Words{"WMH", "PST", "SAF"}));
  EXPECT_EQ(openBooks(page), (Words{"b1"}));
  EXPECT_EQ(status(page), "");
}

TEST_F(ViewInABrowser, SearchesABookWhoseHeadingsStandTooDeepForLists) {
  std::string toc = "\"Node Level\" \"Node Name\" \"File Name\" \"Sub Link\"\n\n";
  for (int level = 1; level <= 254; ++level) {
    const std::string number = std::to_string(level);
    toc += "\"" + number + "\" \"Step " + number + "\" \"Deep\\a.htm\" \"\"\n";
  }
  disk.write("deep.txt", toc);
  EXPECT_EQ(addFile("deep.txt", {"--name", "Deep", "--acro", "DEE"}).status, 0);
  EXPECT_EQ(inPlant({"view"}).status, 0);
  EXPECT_EQ(markedHeadings(searchedFor("step%20254")), (Words{"Step 254"}));
  EXPECT_EQ(markedHeadings(searchedFor("antenna")), (Words{"The antenna"}));
}

TEST_F(ViewInABrowser, SearchesAlsoWhereABrowserLeftAListWithoutAHeading) {
  const std::string page = replaceAll(
      disk.read("library.html"), "<ul class=\"tree\">\n", "<ul class=\"tree\">\n<li></li>\n");
  disk.write("gaps.html", page);
  EXPECT_EQ(markedHeadings(opened("gaps.html", "q=antenna")), (Words{"The antenna"}));
}

TEST_F(ViewInABrowser, RunsNoScriptButItsOwn) {
  disk.write("other.js", "document.body.id = 'another-file';");
  const std::string intruders =
      "<script>document.body.lang = 'inline'</script><script src=\"other.js\"></script>"
      "<img src=\"none.png\" onerror=\"document.body.title = 'handler'\"></main>";
  const std::string page = replaceAll(disk.read("library.html"), "</main>", intruders);
  disk.write("intruded.html", page);
  EXPECT_NE(opened("intruded.html", "q=saf").find("<body>"), std::string::npos);

  disk.write("unprotected.html", withoutPolicy(page));
  const std::string changed = opened("unprotected.html");
  for (const char* trace : {"another-file", "inline", "handler"}) {
    EXPECT_NE(changed.substr(changed.find("<body")).substr(0, 100).find(trace), std::string::npos)
        << "without its policy the page would not have stopped it either";
  }
}

TEST_F(ViewInABrowser, ComesInLightAndDark) {
  const char* album = std::getenv("QUORBIND_PHOTOGRAPHS");
  const fs::path folder = album == nullptr ? disk.path() : fs::path(album);
  photograph("", Scheme::kLight, folder / "library-light.png");
  photograph("q=wind", Scheme::kDark, folder / "library-dark.png");
  if (album == nullptr) {
    photograph("", Scheme::kDark, folder / "same-dark.png");
    EXPECT_GT(disk.read("library-light.png").size(), 10'000U);
    EXPECT_NE(disk.read("library-light.png"), disk.read("same-dark.png"));
  }
}

}  // namespace
}  // namespace quorbind::testing
