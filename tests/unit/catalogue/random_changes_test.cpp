// Changes of a library in random order, each against a plain list of the books and of their files.

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <cstddef>
#include <map>
#include <string>
#include <vector>

#include "catalogue/book_config.h"
#include "platform/text.h"
#include "tests/support/book_text.h"
#include "tests/support/random_choices.h"
#include "tests/support/world.h"

namespace quorbind::testing {
namespace {

using Texts = std::vector<std::string>;

constexpr const char* kCatalogue = "C:\\Lib\\Quor_TOC.xml";
constexpr const char* kOtherCatalogue = "C:\\Other\\Quor_TOC.xml";

std::string fileOf(const std::string& acronym) {
  return "Book_" + acronym + ".xml";
}

/// An entry of the catalogue, and the file that it names.
struct Entry {
  BookCase book;
  std::string file;
};

std::string textOf(const Entry& entry) {
  return replaceAll(entryOf(entry.book), fileOf(entry.book.acronym), entry.file);
}

std::string catalogueOf(const std::vector<Entry>& entries) {
  std::string text;
  for (const Entry& entry : entries) {
    text += textOf(entry);
  }
  return catalogueWith(text);
}

/// A library as a list, whose operations tell what a user is told.
class PlainLibrary {
 public:
  std::vector<Entry> entries;
  /// The books' files by their names, which outlive their entries.
  std::map<std::string, BookCase> files;

  Texts rename(const std::string& current, const std::string& name, const std::string& acronym) {
    const auto entry = named(current);
    if (entry == entries.end()) {
      return {};
    }
    if (name.empty() || acronym.empty()) {
      return {"Enter a valid string for Book Name and Book Acro"};
    }
    BookCase& book = entry->book;
    for (const Entry& other : entries) {
      if (equalIgnoringAsciiCase(other.book.name, name) &&
          !equalIgnoringAsciiCase(other.book.name, book.name)) {
        return {"Error:Book Name " + name + " already Exists"};
      }
    }
    for (const Entry& other : entries) {
      if (equalIgnoringAsciiCase(other.book.acronym, acronym) &&
          !equalIgnoringAsciiCase(other.book.acronym, book.acronym)) {
        return {"Error:Book Acro " + acronym + " already Exists"};
      }
    }
    return renameFile(*entry, name, acronym);
  }

  void remove(const std::string& name) {
    if (const auto entry = named(name); entry != entries.end()) {
      entries.erase(entry);
    }
  }

  /// Of a book that is there.
  void setProperties(const std::string& name, const Texts& categories, const std::string& link) {
    const auto entry = named(name);
    entry->book.categories = filled(categories);
    change(entry->file, link, entry->book.categories);
  }

  void merge(const std::vector<Entry>& others) {
    for (Entry& entry : entries) {
      const auto other = std::find_if(others.begin(), others.end(), [&](const Entry& candidate) {
        return candidate.book.name == entry.book.name &&
               candidate.book.acronym == entry.book.acronym;
      });
      if (other != others.end()) {
        entry.book.link = other->book.link;
        entry.book.categories = other->book.categories;
        change(entry.file, other->book.link, other->book.categories);
      }
    }
  }

 private:
  std::vector<Entry>::iterator named(const std::string& name) {
    return std::find_if(entries.begin(), entries.end(), [&](const Entry& entry) {
      return entry.book.name == name;
    });
  }

  Texts renameFile(Entry& entry, const std::string& name, const std::string& acronym) {
    BookCase& book = entry.book;
    const std::string newFile = fileOf(acronym);
    if (const auto file = files.find(fileOf(book.acronym)); file != files.end()) {
      if (newFile != file->first && files.count(newFile) > 0) {
        return {"Please close file " + fileOf(book.acronym)};
      }
      const BookCase content = file->second;
      files.erase(file);
      files[newFile] = content;
      entry.file = newFile;
    }
    const Texts told = renameInside(newFile, book, name, acronym);
    book.name = name;
    book.acronym = acronym;
    return told;
  }

  Texts renameInside(const std::string& file,
                     const BookCase& current,
                     const std::string& name,
                     const std::string& acronym) {
    const auto content = files.find(file);
    if (content == files.end()) {
      return {};
    }
    BookCase& inside = content->second;
    if (inside.name != current.name || inside.acronym != current.acronym) {
      return {
          "Error(91): Object variable or With block variable not set\r"
          "Quorbind:Book_Config::UpdateBookNameAcro"};
    }
    inside.name = name;
    inside.acronym = acronym;
    return {};
  }

  void change(const std::string& file, const std::string& link, const Texts& categories) {
    if (const auto content = files.find(file); content != files.end()) {
      content->second.link = link;
      content->second.categories = categories;
    }
  }

  static Texts filled(const Texts& categories) {
    Texts kept;
    std::copy_if(categories.begin(),
                 categories.end(),
                 std::back_inserter(kept),
                 [](const std::string& category) { return !category.empty(); });
    return kept;
  }
};

class RandomChanges : public ::testing::Test {
 protected:
  /// A library of so many books, most of them with a file.
  void begin(std::size_t books) {
    for (std::size_t number = 0; number < books; ++number) {
      const std::string text = std::to_string(number);
      const BookCase book{"Book " + text, "B" + text, link(), categories()};
      plain_.entries.push_back({book, fileOf(book.acronym)});
      if (!random_.oneIn(4)) {
        plain_.files[fileOf(book.acronym)] = book;
        write(fileOf(book.acronym), bookXmlOf(book));
      }
    }
    world_.disk.write("Lib/Quor_TOC.xml", asSaved(catalogueOf(plain_.entries)));
  }

  /// Does one thing to both. Answers what the plain one tells.
  Texts changeBoth() {
    switch (random_.below(8)) {
      case 0:
        return removeFromBoth();
      case 1:
      case 2:
        return mergeIntoBoth();
      case 3:
      case 4:
        return setPropertiesOfBoth();
      default:
        return renameBoth();
    }
  }

  static std::string asSaved(const std::string& text) { return replaceAll(text, "\n", "\r\n"); }

  [[nodiscard]] Texts told() const {
    Texts texts;
    for (const UserMessage& message : world_.user.messages()) {
      texts.push_back(message.text);
    }
    return texts;
  }

  void expectSame() {
    EXPECT_EQ(world_.disk.read("Lib/Quor_TOC.xml"), asSaved(catalogueOf(plain_.entries)));
    std::size_t count = 1;
    for (const auto& [name, book] : plain_.files) {
      EXPECT_EQ(world_.disk.read("Lib/Manual/" + name), asSaved(bookXmlOf(book))) << name;
      ++count;
    }
    EXPECT_EQ(filesOfLibrary(), count);
  }

  World world_;
  RandomChoices random_{20260104};
  PlainLibrary plain_;

 private:
  Texts renameBoth() {
    const std::string current = name();
    const std::string newName = name();
    const std::string acronym = random_.oneIn(12) ? "" : "B" + number();
    world_.module.bookInfo.txtBookName().setText(newName);
    world_.module.bookInfo.txtBookAcro().setText(acronym);
    config_.strBookAcroInfo(kCatalogue, current);
    return plain_.rename(current, newName, acronym);
  }

  Texts removeFromBoth() {
    const std::string gone = name();
    config_.DeleteQuorNode(kCatalogue, gone);
    plain_.remove(gone);
    return {};
  }

  Texts mergeIntoBoth() {
    std::vector<Entry> others;
    for (std::size_t count = random_.below(12); count > 0; --count) {
      const std::string acronym = "B" + number();
      others.push_back({{name(), acronym, link(), categories()}, fileOf(acronym)});
    }
    if (!plain_.entries.empty()) {
      Entry same = random_.oneOf(plain_.entries);
      same.book.link = link();
      same.book.categories = categories();
      others.push_back(same);
    }
    world_.disk.write("Other/Quor_TOC.xml", catalogueOf(others));
    config_.strMatchingBooksInfo(kCatalogue, kOtherCatalogue);
    plain_.merge(others);
    return {};
  }

  Texts setPropertiesOfBoth() {
    if (plain_.entries.empty()) {
      return {};
    }
    const std::string changed = random_.oneOf(plain_.entries).book.name;
    TextArray array{categories(), 0};
    array.texts.emplace_back();
    const std::string newLink = link();
    EXPECT_TRUE(config_.mbsetQuorBookProperties(kCatalogue, changed, array, "Manual", newLink));
    plain_.setProperties(changed, array.texts, newLink);
    return {};
  }

  std::string number() { return std::to_string(random_.below(16)); }
  /// One that may be a book's, in one letter case or the other.
  std::string name() {
    return random_.oneIn(20) ? ""
                             : random_.oneOf<std::string>({"Book ", "Book ", "BOOK "}) + number();
  }
  std::string link() { return random_.oneOf<std::string>({"", "B1@QUOR@1", "\xC3\x9C", "a b"}); }
  Texts categories() {
    Texts list;
    for (std::size_t count = random_.below(4); count > 0; --count) {
      list.push_back(random_.oneOf<std::string>({"General", "\xC3\x84", "a b", "2"}));
    }
    return list;
  }

  void write(const std::string& name, const std::string& text) {
    world_.disk.write("Lib/Manual/" + name, asSaved(text));
  }
  [[nodiscard]] std::size_t filesOfLibrary() const {
    const auto files = world_.disk.contents();
    return static_cast<std::size_t>(std::count_if(files.begin(), files.end(), [](const auto& each) {
      return each.first.starts_with("Lib/") && each.second != "(folder)";
    }));
  }

  Book_Config config_{world_.module};
};

TEST_F(RandomChanges, LeaveWhatAPlainListOfTheBooksLeaves) {
  begin(12);
  std::size_t refusals = 0;
  for (int change = 0; change < 400 && !HasFailure(); ++change) {
    world_.user.forget();
    const Texts expected = changeBoth();
    EXPECT_EQ(told(), expected);
    expectSame();
    refusals += expected.size();
    if (plain_.entries.size() < 4) {
      plain_ = {};
      world_.disk.remove("Lib");
      begin(12);
    }
  }
  EXPECT_GT(refusals, 20U);
}

}  // namespace
}  // namespace quorbind::testing
