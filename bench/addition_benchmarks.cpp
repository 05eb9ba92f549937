// The stages of an addition.

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
#include "bookxml/toc_to_xml.h"
#include "toc/toc_check.h"

namespace quorbind::bench {

namespace {

constexpr std::array<std::size_t, 3> kSizes{1'000, 10'000, 100'000};

constexpr const char* kFloorBook = "in/Book_FLOOR.xml";
constexpr const char* kFloorCopy = "library/Manual/Book_FLOOR.xml";

/// The documents of all entries in one folder of the disk, as the floor is told them.
class DocumentPaths {
 public:
  DocumentPaths(const Sample& sample, const std::string& folder) {
    for (std::size_t index = 0; index < sample.entries(); ++index) {
      paths_.push_back(sample.systemPath(folder + "/" + Sample::documentOf(index)));
    }
    std::transform(paths_.begin(), paths_.end(), std::back_inserter(pointers_), [](auto& path) {
      return path.c_str();
    });
  }

  [[nodiscard]] bool areAll(bool standing, std::size_t skipped = 0) const {
    const std::size_t count = pointers_.size() - skipped;
    return counted(floorLookUps(pointers_.data() + skipped, count), standing ? count : 0);
  }

 private:
  std::vector<std::string> paths_;
  std::vector<const char*> pointers_;
};

bool generate(Sample& sample) {
  CTOCToXML generator(sample.world.module);
  const std::string folder =
      generator.mstrGenerateXMLFromTOC(kToc, kCatalogue, kBookName, kBookAcro, "", kProduct);
  return folder == kBookFolder && sample.world.user.messages().empty();
}

/// A sample on which both sides have been seen to do the same.
class Case {
 public:
  Case(std::size_t entries, Documents documents)
      : sample(entries, documents),
        documentsAtRoot(sample, kBookFolder),
        documentsBesideToc(sample, std::string("in/") + kBookFolder) {
    const bool generated = generate(sample);
    const std::string book = sample.world.disk.read(kGeneratedFile);
    beginning = beginningOf(book);
    sample.writePage();
    sample.writePageOfLikeEnds();
    sample.writePageOfTags();
    if (!generated || !writeFloorBook() || sample.world.disk.read(kFloorBook) != book) {
      throw std::runtime_error("the floor does not write the book file that the component writes");
    }
  }

  [[nodiscard]] bool writeFloorBook() const {
    return counted(floorBookXml(sample.systemPath(kTocFile).c_str(),
                                sample.systemPath(kFloorBook).c_str(),
                                beginning.c_str()),
                   sample.headings());
  }

  Sample sample;
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
};

// The component's side

bool check(Case& data) {
  Sample& sample = data.sample;
  TocCheck check(sample.world.module);
  std::string toc = kToc;
  const std::size_t missing =
      sample.documents() == Documents::kMissing ? sample.entries() : std::size_t{0};
  return check.mbValidateTocFile(toc, TocCheck::kText) &&
         check.marrsMissingFiles().size() == missing;
}

/// The documents of a page are missing: they would stand beside it.
bool checkHeadingsOf(std::string page, std::size_t headings, Sample& sample) {
  TocCheck check(sample.world.module);
  return check.mbValidateTocFile(page, TocCheck::kHtml) &&
         check.marrsMissingFiles().size() == headings;
}

bool checkPage(Case& data) {
  return checkHeadingsOf(kPage, data.sample.headings(), data.sample);
}

bool checkPageOfLikeEnds(Case& data) {
  return checkHeadingsOf(kPageOfLikeEnds, data.sample.headings(), data.sample);
}

bool checkPageOfTags(Case& data) {
  return checkHeadingsOf(kPageOfTags, /*headings=*/1, data.sample);
}

bool convert(Case& data) {
  return generate(data.sample);
}

bool add(Case& data) {
  return addBook(data.sample);
}

// The floor's side

bool floorOfRules(Case& data) {
  return counted(floorCheck(data.sample.systemPath(kTocFile).c_str()), data.sample.entries());
}

bool floorOfLookUps(Case& data) {
  return data.documentsAtRoot.areAll(data.sample.documents() == Documents::kStanding);
}

bool floorOfBookXml(Case& data) {
  return data.writeFloorBook();
}

bool floorOfCopy(Case& data) {
  const Sample& sample = data.sample;
  return counted(
      floorCopy(sample.systemPath(kFloorBook).c_str(), sample.systemPath(kFloorCopy).c_str()), 0);
}

bool floorOfScan(Case& data) {
  return counted(floorScan(data.sample.systemPath(kFloorBook).c_str()), data.sample.headings());
}

bool floorOfHeadingLookUps(Case& data) {
  const std::size_t bookEntry = 1;
  return data.documentsBesideToc.areAll(/*standing=*/false, bookEntry);
}

bool floorOfCatalogue(Case& data) {
  const std::size_t otherAndNewBook = 2;
  return counted(floorCatalogue(data.sample.systemPath(kCatalogueFile).c_str()), otherAndNewBook);
}

struct Stage {
  const char* name;
  Documents documents;
  bool (*run)(Case&);
};

constexpr std::array kStages{
    Stage{"component/check/missing", Documents::kMissing, check},
    Stage{"component/check/standing", Documents::kStanding, check},
    Stage{"component/page", Documents::kMissing, checkPage},
    Stage{"component/page-of-like-ends", Documents::kMissing, checkPageOfLikeEnds},
    Stage{"component/page-of-tags", Documents::kMissing, checkPageOfTags},
    Stage{"component/generate", Documents::kMissing, convert},
    Stage{"component/add/missing", Documents::kMissing, add},
    Stage{"component/add/standing", Documents::kStanding, add},
    Stage{"floor/rules", Documents::kMissing, floorOfRules},
    Stage{"floor/look-ups/missing", Documents::kMissing, floorOfLookUps},
    Stage{"floor/look-ups/standing", Documents::kStanding, floorOfLookUps},
    Stage{"floor/book-xml", Documents::kMissing, floorOfBookXml},
    Stage{"floor/copy", Documents::kMissing, floorOfCopy},
    Stage{"floor/scan", Documents::kMissing, floorOfScan},
    Stage{"floor/heading-look-ups", Documents::kMissing, floorOfHeadingLookUps},
    Stage{"floor/catalogue", Documents::kMissing, floorOfCatalogue},
};

/// The cases that were asked for; each is made once and stays until the end.
class Cases {
 public:
  Case& at(std::size_t entries, Documents documents) {
    auto& data = cases_[{entries, documents}];
    if (!data) {
      data = std::make_unique<Case>(entries, documents);
    }
    return *data;
  }

 private:
  std::map<std::pair<std::size_t, Documents>, std::unique_ptr<Case>> cases_;
};

}  // namespace

void registerAdditions() {
  const auto cases = std::make_shared<Cases>();
  for (const Stage& stage : kStages) {
    for (const std::size_t entries : kSizes) {
      const auto data = [cases, &stage, entries]() -> Case& {
        return cases->at(entries, stage.documents);
      };
      registerWork(stage.name,
                   entries,
                   {.reset = [data] { data().sample.resetLibrary(); },
                    .run = [data, &stage] { return stage.run(data()); }});
    }
  }
}

}  // namespace quorbind::bench
