// The stages of an addition.

#include <array>
#include <cstddef>

#include "bench/benchmarks.h"
#include "bench/sample.h"
#include "bench/store.h"

namespace quorbind::bench {

namespace {

bool readPage(Sample& sample) {
  return exportPage(sample, kPage, sample.headings());
}

bool readPageOfLikeEnds(Sample& sample) {
  return exportPage(sample, kPageOfLikeEnds, sample.headings());
}

bool readPageOfTags(Sample& sample) {
  return exportPage(sample, kPageOfTags, /*headings=*/1);
}

struct Stage {
  const char* name;
  Documents documents;
  bool (*run)(Sample&);
};

constexpr std::array kStages{
    Stage{"component/check/missing", Documents::kMissing, checkText},
    Stage{"component/check/standing", Documents::kStanding, checkText},
    Stage{"component/page", Documents::kMissing, readPage},
    Stage{"component/page-of-like-ends", Documents::kMissing, readPageOfLikeEnds},
    Stage{"component/page-of-tags", Documents::kMissing, readPageOfTags},
    Stage{"component/book-file", Documents::kMissing, checkBookFile},
    Stage{"component/generate", Documents::kMissing, generateBook},
    Stage{"component/add/missing", Documents::kMissing, addBook},
    Stage{"component/add/standing", Documents::kStanding, addBook},
};

}  // namespace

void registerAdditions(const Store& store) {
  const auto samples = store.samples;
  for (const Stage& stage : kStages) {
    for (const std::size_t entries : kSizes) {
      const auto sample = [samples, &stage, entries]() -> Sample& {
        return samples->at(entries, stage.documents);
      };
      registerWork(stage.name,
                   entries,
                   {.reset = [sample] { sample().resetLibrary(); },
                    .run = [sample, &stage] { return stage.run(sample()); }});
    }
  }
}

}  // namespace quorbind::bench
