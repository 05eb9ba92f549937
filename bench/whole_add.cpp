// One addition in a process of its own, for whoever wants to know what it takes: adds a book of the
// given number of entries on a disk of its own, and prints the size of its table of contents.

#include <cstdlib>
#include <iostream>
#include <string>

#include "bench/sample.h"

int main(int argc, char** argv) {
  using namespace quorbind::bench;
  if (argc != 2) {
    std::cerr << "usage: quorbind_bench_add ENTRIES\n";
    return 2;
  }
  Sample sample(std::stoul(argv[1]), Documents::kMissing);
  if (!addBook(sample)) {
    std::cerr << "the book was not added\n";
    return 1;
  }
  std::cout << sample.tocSize() << '\n';
  return 0;
}
