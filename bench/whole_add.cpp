// One addition in a process of its own, for whoever wants to know what it takes: adds a book of the
// given number of entries on a disk of its own, and prints the size of its table of contents.

#include <cstddef>
#include <cstdlib>
#include <iostream>

#include "bench/sample.h"

int main(int argc, char** argv) {
  using namespace quorbind::bench;
  const std::size_t entries = argc == 2 ? std::strtoul(argv[1], nullptr, 10) : 0;
  if (entries == 0) {
    std::cerr << "usage: quorbind_bench_add ENTRIES\n";
    return 2;
  }
  Sample sample(entries, Documents::kMissing);
  if (!addBook(sample)) {
    std::cerr << "the book was not added\n";
    return 1;
  }
  std::cout << sample.tocSize() << '\n';
  return 0;
}
