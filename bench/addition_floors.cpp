// The floors under the stages of an addition.

#include <algorithm>
#include <array>
#include <cstddef>
#include <iterator>
#include <map>
#include <memory>
#include <stdexcept>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "bench/benchmarks.h"
#include "bench/floor.h"
#include "bench/sample.h"
#include "bench/store.h"

namespace quorbind::bench {

namespace {

constexpr const char* kFloorBook = "in/Book_FLOOR.xml";
constexpr const char* kFloorCopy = "library/Manual/Book_FLOOR.xml";
constexpr const char* kFloorExport = "in/floor_export.txt";
constexpr const char* kExport = "in/TOC_Temp.txt";
constexpr const char* kTocFolder = "in";

/// The documents of all entries in one folder of the disk, as the floor is told them.
class DocumentPaths {
 public:
  DocumentPaths(const Sample& sample, const std::string& folder) {
    for (std::size_t index = 0; index < sample.entries(); ++index) {
      paths_.push_back(sample.systemPath(folder + "/" + documentOf(index)));
    }
    std::ranges::transform(paths_, std::back_inserter(pointers_), &std::string::c_str);
  }

  [[nodiscard]] bool areAll(bool standing, std::size_t skipped = 0) const {
    const std::size_t count = pointers_.size() - skipped;
    return counted(floorLookUps(pointers_.data() + skipped, count), standing ? count : 0);
  }

 private:
  std::vector<std::string> paths_;
  std::vector<const char*> pointers_;
};

/// A sample on which both sides have been seen to do the same.
class Case {
 public:
  explicit Case(Sample& data)
      : sample(data),
        documentsAtRoot(sample, kBookFolder),
        documentsBesideToc(sample, std::string(kTocFolder) + "/" + kBookFolder) {
    sample.resetLibrary();
    const bool isGenerated = generateBook(sample);
    beginning = beginningOf(sample.world.disk.read(kGeneratedFile));
    require(isGenerated && writeBook() && isSame(kFloorBook, kGeneratedFile));
    if (sample.documents() == Documents::kMissing) {
      require(exportPage(sample, kPage, sample.headings()) &&
              writeExport(kPageFile, sample.headings()) && isSame(kFloorExport, kExport));
    }
  }

  [[nodiscard]] std::string path(const char* name) const { return sample.systemPath(name); }
  [[nodiscard]] bool writeBook() const {
    return counted(
        floorBookXml(path(kTocFile).c_str(), path(kFloorBook).c_str(), beginning.c_str()),
        sample.headings());
  }
  [[nodiscard]] bool writeExport(const char* page, std::size_t headings) const {
    return counted(
        floorPage(path(page).c_str(), path(kFloorExport).c_str(), path(kTocFolder).c_str()),
        headings);
  }

  Sample& sample;
  DocumentPaths documentsAtRoot;
  DocumentPaths documentsBesideToc;
  /// The book file up to where the headings begin.
  std::string beginning;

 private:
  static std::string beginningOf(const std::string& book) {
    constexpr std::string_view kHeadings = "<Book_Headings>";
    const std::string text = testing::fromUtf16File(book);
    return text.substr(0, text.find(kHeadings) + kHeadings.size());
  }
  [[nodiscard]] bool isSame(const char* left, const char* right) const {
    return sample.world.disk.read(left) == sample.world.disk.read(right);
  }
  static void require(bool isSame) {
    if (!isSame) {
      throw std::runtime_error("the floor does not write what the component writes");
    }
  }
};

bool floorOfRules(Case& data) {
  return counted(floorCheck(data.path(kTocFile).c_str(), nullptr), data.sample.entries());
}

bool floorOfLookUps(Case& data) {
  return data.documentsAtRoot.areAll(data.sample.documents() == Documents::kStanding);
}

bool floorOfPage(Case& data) {
  return data.writeExport(kPageFile, data.sample.headings());
}

bool floorOfPageOfLikeEnds(Case& data) {
  return data.writeExport(kPageOfLikeEndsFile, data.sample.headings());
}

bool floorOfBookFile(Case& data) {
  return counted(floorBookFile(data.path(kBookTocFile).c_str(), data.path(kTocFolder).c_str()),
                 data.sample.headings());
}

bool floorOfBookXml(Case& data) {
  return data.writeBook();
}

bool floorOfCopy(Case& data) {
  return counted(floorCopy(data.path(kFloorBook).c_str(), data.path(kFloorCopy).c_str()), 0);
}

bool floorOfScan(Case& data) {
  return counted(floorScan(data.path(kFloorBook).c_str(), nullptr), data.sample.headings());
}

bool floorOfHeadingLookUps(Case& data) {
  const std::size_t bookEntry = 1;
  return data.documentsBesideToc.areAll(/*standing=*/false, bookEntry);
}

bool floorOfCatalogue(Case& data) {
  const std::size_t otherAndNewBook = 2;
  return counted(floorCatalogue(data.path(kCatalogueFile).c_str()), otherAndNewBook);
}

struct Part {
  const char* name;
  Documents documents;
  bool (*run)(Case&);
};

constexpr std::array kParts{
    Part{"floor/rules", Documents::kMissing, floorOfRules},
    Part{"floor/look-ups/missing", Documents::kMissing, floorOfLookUps},
    Part{"floor/look-ups/standing", Documents::kStanding, floorOfLookUps},
    Part{"floor/page", Documents::kMissing, floorOfPage},
    Part{"floor/page-of-like-ends", Documents::kMissing, floorOfPageOfLikeEnds},
    Part{"floor/book-file", Documents::kMissing, floorOfBookFile},
    Part{"floor/book-xml", Documents::kMissing, floorOfBookXml},
    Part{"floor/copy", Documents::kMissing, floorOfCopy},
    Part{"floor/scan", Documents::kMissing, floorOfScan},
    Part{"floor/heading-look-ups", Documents::kMissing, floorOfHeadingLookUps},
    Part{"floor/catalogue", Documents::kMissing, floorOfCatalogue},
};

/// The cases that were asked for; each is made once and stays until the end.
class Cases {
 public:
  Case& of(Sample& sample) {
    auto& data = cases_[&sample];
    if (!data) {
      data = std::make_unique<Case>(sample);
    }
    return *data;
  }

 private:
  std::map<const Sample*, std::unique_ptr<Case>> cases_;
};

}  // namespace

void registerAdditionFloors(const Store& store) {
  const auto samples = store.samples;
  const auto cases = std::make_shared<Cases>();
  for (const Part& part : kParts) {
    for (const std::size_t entries : kSizes) {
      const auto data = [samples, cases, &part, entries]() -> Case& {
        return cases->of(samples->at(entries, part.documents));
      };
      registerWork(part.name,
                   entries,
                   {.reset = [data] { data().sample.resetLibrary(); },
                    .run = [data, &part] { return part.run(data()); }});
    }
  }
}

}  // namespace quorbind::bench
