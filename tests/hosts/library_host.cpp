// One of many hosts that work on one library at the same time, with the adapters of this build:
//
//   library_host write FOLDER WRITER SAVES    loads the shared file, changes it and saves it, SAVES
//                                             times
//   library_host read FOLDER                  loads it again and again until it has been enough,
//   with
//                                             a short pause, as every host has other work to do too
//
// Each load has to find the whole file of one save, and never an older one of some writer than
// before. What goes wrong is said, and ends the host with 1; a reader that came too late to read is
// wrong, too. A reader says how often it has read.

#include <chrono>
#include <cstdio>
#include <exception>
#include <map>
#include <stdexcept>
#include <string>
#include <thread>
#include <vector>

#include "tests/contract/adapters.h"
#include "tests/hosts/shelf.h"

namespace {

using namespace quorbind;
using namespace quorbind::testing;

constexpr std::chrono::milliseconds kOtherWork{20};

class Host {
 public:
  explicit Host(const std::string& folder) : adapters_(makeAdapters(folder)) {}

  void write(int writer, int saves) {
    for (int number = 1; number <= saves; ++number) {
      load();
      putOnShelf(*document_, {writer, number});
      document_->save(kShelf);
    }
  }

  int read() {
    int count = 0;
    for (; !adapters_->files().fileExists(kEnough); ++count) {
      load();
      std::this_thread::sleep_for(kOtherWork);
    }
    if (count == 0) {
      throw std::runtime_error("nothing was read");
    }
    return count;
  }

 private:
  void load() {
    document_ = adapters_->xml().createDocument();
    const XmlLoadResult loaded = document_->load(kShelf);
    if (!loaded) {
      throw std::runtime_error("a file that does not load: " + loaded.reason);
    }
    const Save save = saveOf(*document_);
    int& newest = newestOf_[save.writer];
    if (save.number < newest) {
      throw std::runtime_error("save " + std::to_string(save.number) + " after save " +
                               std::to_string(newest));
    }
    newest = save.number;
  }

  std::unique_ptr<Adapters> adapters_;
  std::unique_ptr<XmlDocument> document_;
  std::map<int, int> newestOf_;
};

void work(const std::vector<std::string>& words) {
  Host host(words.at(1));
  if (words.front() == "write") {
    host.write(std::stoi(words.at(2)), std::stoi(words.at(3)));
  } else {
    std::printf("a reader has read %d times\n", host.read());
  }
}

}  // namespace

int main(int count, char** arguments) {
  try {
    work({arguments + 1, arguments + count});
    return 0;
  } catch (const std::exception& error) {
    std::fprintf(stderr, "%s: %s\n", arguments[1], error.what());
    return 1;
  }
}
