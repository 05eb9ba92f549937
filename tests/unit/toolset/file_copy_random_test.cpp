// Which files come with a book file and with pages, against a plain list of what they name: copying
// looks at folders once and keeps note of what it has seen to.

#include <gtest/gtest.h>

#include <cstddef>
#include <map>
#include <optional>
#include <string>
#include <vector>

#include "platform/text.h"
#include "tests/contract/adapters.h"
#include "tests/support/random_choices.h"
#include "tests/support/temporary_folder.h"
#include "toolset/file_copy.h"

namespace quorbind::testing {
namespace {

using Texts = std::vector<std::string>;
/// Files by their names below a folder, in upper case with `/`.
using Tree = std::map<std::string, std::string>;

/// How something is named, and the file that this leads to; nothing where it leads out of the
/// folder, or to a device.
struct Naming {
  std::string text;
  std::optional<std::string> file;
};

struct Page {
  std::string name;
  std::vector<Naming> links;
};

const Texts& allNames() {
  static const Texts names{"a.htm",
                           "b.htm",
                           "c.html",
                           "d.png",
                           "e.xml",
                           "sub/a.htm",
                           "sub/b.htm",
                           "sub/d.png",
                           "sub/f.css",
                           "sub/deep/a.htm",
                           "sub/deep/g.png",
                           "sub/deep/\xC3\xA4.png",
                           "other/h.htm",
                           "other/d.png",
                           "none/i.htm"};
  return names;
}

bool isPage(const std::string& name) {
  return name.ends_with(".htm") || name.ends_with(".html");
}

std::string folderPart(const std::string& name) {
  return name.substr(0, name.rfind('/') + 1);
}

std::string upper(const std::string& name) {
  return upperCaseAscii(name);
}

std::string link(const std::string& text) {
  return "<a href=\"" + text + "\">x</a>\n";
}

class RandomDocuments : public ::testing::Test {
 protected:
  /// What lies beside the book, and what lies in the library already.
  void makeFiles() {
    pages_.clear();
    standing_.clear();
    library_.clear();
    disk_.remove("in");
    disk_.remove("lib");
    disk_.makeFolder("in");
    disk_.makeFolder("lib");
    for (const std::string& name : allNames()) {
      if (!random_.oneIn(4)) {
        const std::string text = isPage(name) ? page(name) : "new " + name;
        standing_[upper(name)] = text;
        disk_.write("in/" + name, text);
      }
      if (random_.oneIn(4)) {
        library_[upper(name)] = "old " + name;
        disk_.write("lib/" + name, "old " + name);
      }
    }
  }

  /// A book file with headings that name documents. Answers its text.
  std::string bookFile(std::vector<Naming>& named) {
    std::string text = "<Book_Master>";
    for (std::size_t count = random_.below(12); count > 0; --count) {
      named.push_back(naming(random_.oneOf(allNames())));
      text += "<HFile>" + named.back().text + random_.oneOf<std::string>({"", "", "#mark", "#"}) +
              "</HFile>";
    }
    return text + "</Book_Master>";
  }

  /// Puts a document where it belongs, if it stands. Answers whether it does.
  bool bring(const std::optional<std::string>& file) {
    const auto found = file ? standing_.find(upper(*file)) : standing_.end();
    if (found == standing_.end()) {
      return false;
    }
    library_[found->first] = found->second;
    return true;
  }

  /// Some other program copies a page.
  void putInPlace(const std::string& page) {
    bring(page);
    disk_.write("lib/" + page, library_.at(upper(page)));
  }

  /// What a page links to goes where nothing stands, or anywhere.
  void bringLinksOf(const std::string& name, bool keepsWhatStands) {
    for (const Page& page : pages_) {
      if (upper(page.name) != upper(name)) {
        continue;
      }
      for (const Naming& each : page.links) {
        if (each.file && !(keepsWhatStands && library_.count(upper(*each.file)) > 0)) {
          bring(each.file);
        }
      }
    }
  }

  [[nodiscard]] Tree libraryOnDisk() const {
    constexpr std::string_view kFolder = "lib/";
    Tree tree;
    for (const auto& [name, bytes] : disk_.contents()) {
      if (name.starts_with(kFolder) && bytes != "(folder)") {
        tree[upper(name.substr(kFolder.size()))] = bytes;
      }
    }
    return tree;
  }

  /// The pages that stand, in any order, some of them more than once.
  std::vector<std::string> somePages() {
    std::vector<std::string> names;
    for (std::size_t count = pages_.empty() ? 0 : random_.below(8); count > 0; --count) {
      names.push_back(random_.oneOf(pages_).name);
    }
    return names;
  }

  static std::string path(const std::string& folder, const std::string& name) {
    return "C:\\" + folder + "\\" + replaceAll(name, "/", "\\");
  }

  TemporaryFolder disk_;
  std::unique_ptr<Adapters> adapters_ = makeAdapters(disk_.path());
  RandomChoices random_{20260105};
  /// What the library is to hold.
  Tree library_;

 private:
  std::string page(const std::string& name) {
    Page page{name, {}};
    std::string text;
    for (std::size_t count = random_.below(5); count > 0; --count) {
      page.links.push_back(linkFrom(folderPart(name)));
      text += link(page.links.back().text);
    }
    pages_.push_back(page);
    return text;
  }

  Naming linkFrom(const std::string& folder) {
    const std::string target = random_.oneOf(allNames());
    if (!target.starts_with(folder)) {
      // The way there leads out of the page's folder.
      return {"../" + target, std::nullopt};
    }
    Naming below = naming(target.substr(folder.size()));
    if (below.file) {
      below.file = folder + *below.file;
    }
    return below;
  }

  Naming naming(const std::string& name) {
    switch (random_.below(9)) {
      case 0:
        return {upper(name), name};
      case 1:
        return {"./" + name, name};
      case 2:
        return {"sub/../" + name, name};
      case 3:
        return {replaceAll(name, "/", "\\"), name};
      case 4:
        return {replaceAll(name, "/", "//"), name};
      case 5:
        return random_.oneOf<Naming>({{"../in/" + name, std::nullopt},
                                      {"/" + name, std::nullopt},
                                      {"C:\\in\\" + name, std::nullopt},
                                      {"\\\\server\\share\\" + name, std::nullopt},
                                      {"con.htm", std::nullopt},
                                      {name + ":stream", std::nullopt},
                                      {"", std::nullopt}});
      default:
        return {name, name};
    }
  }

  std::vector<Page> pages_;
  Tree standing_;
};

constexpr int kRounds = 60;

TEST_F(RandomDocuments, OfABookFileBringWhatItsHeadingsAndTheirPagesName) {
  for (int round = 0; round < kRounds && !HasFailure(); ++round) {
    makeFiles();
    std::vector<Naming> named;
    const std::string book = bookFile(named);
    disk_.write("in/Book_B.xml", book);
    ReferenceFileCopy copy(adapters_->files(), adapters_->xml(), adapters_->locale());
    EXPECT_TRUE(copy.mbCopyFiles("C:\\lib", "C:\\in\\Book_B.xml", 0, 0));
    copy.flush();

    library_["BOOK_B.XML"] = book;
    for (const Naming& each : named) {
      if (bring(each.file)) {
        bringLinksOf(*each.file, /*keepsWhatStands=*/false);
      }
    }
    EXPECT_EQ(libraryOnDisk(), library_) << book;
  }
}

TEST_F(RandomDocuments, OfPagesOneByOneBringWhatTheyName) {
  for (int round = 0; round < kRounds && !HasFailure(); ++round) {
    makeFiles();
    ReferenceFileCopy copy(adapters_->files(), adapters_->xml(), adapters_->locale());
    for (const std::string& page : somePages()) {
      EXPECT_TRUE(copy.mbCopyFiles(path("lib", folderPart(page)), path("in", page), 0, 0)) << page;
      bring(page);
      bringLinksOf(page, /*keepsWhatStands=*/false);
    }
    copy.flush();
    EXPECT_EQ(libraryOnDisk(), library_);
  }
}

TEST_F(RandomDocuments, OfWhatPagesInPlaceNameKeepWhatStands) {
  for (int round = 0; round < kRounds && !HasFailure(); ++round) {
    makeFiles();
    ReferenceFileCopy copy(adapters_->files(), adapters_->xml(), adapters_->locale());
    for (const std::string& page : somePages()) {
      putInPlace(page);
      copy.copyLinkedFiles(path("lib", folderPart(page)), path("in", page));
      bringLinksOf(page, /*keepsWhatStands=*/true);
    }
    copy.flush();
    EXPECT_EQ(libraryOnDisk(), library_);
  }
}

}  // namespace
}  // namespace quorbind::testing
