#include "tests/samples/workshop_books.h"

namespace quorbind::testing {

namespace {

/// A row of the table of contents: every other column is empty, for the author's own notes would
/// come into the book. The first row of a book names its document with the book's folder, the
/// others by the name that they have in it.
std::vector<std::string> heading(std::string level,
                                 std::string name,
                                 std::string file,
                                 std::string subLink = {},
                                 std::string linkId = {}) {
  return {std::move(level),
          "",
          std::move(name),
          "",
          std::move(file),
          "",
          std::move(subLink),
          std::move(linkId)};
}

}  // namespace

SampleSheet workshopToc() {
  return {{"Node Level", "", "Node Name", "", "File Name", "", "Sub Link", "Book Link"},
          {},
          heading("1", "The Lathe", "Lathe\\cover.htm"),
          heading("2", "Before you switch on", "safety.htm"),
          heading("3", "Clothes", "safety.htm", "#clothes"),
          heading("3", "The stop bar", "safety.htm", "#stop", "StopBar"),
          heading("2", "The chuck", "chuck.htm"),
          heading("3", "Changing the jaws", "chuck.htm", "#jaws", "Jaws"),
          heading("3", "Checking the run-out", "chuck.htm", "#run-out"),
          heading("2", "Turning", "turning.htm"),
          heading("3", "Speed", "turning.htm", "#speed"),
          heading("3", "Height of the tool", "turning.htm", "#tool"),
          heading("1", "The Drill Press", "Drill\\cover.htm"),
          heading("2", "Bits", "bits.htm"),
          heading("3", "Sizes", "bits.htm", "#sizes"),
          heading("3", "Worn bits", "bits.htm", "#worn"),
          heading("2", "Clamping & drilling", "clamping.htm", "", "Clamping"),
          heading("1", "The Band Saw", "Saw\\cover.htm"),
          heading("2", "The blade", "blade.htm"),
          heading("3", "Changing it", "blade.htm", "#change"),
          heading("3", "Tension, ½ turn at a time", "blade.htm", "#tension"),
          heading("2", "Cutting", "cutting.htm")};
}

SampleSheet workshopBookList() {
  return {{"Book Name", "Book Acro", "Keywords", "Categories"},
          {},
          {"The Lathe", "LTH", "turning;chuck;R&D", "Machines;Metal"},
          {"The Drill Press", "DRL", "drilling", "Machines"},
          {"The Band Saw", "SAW", "sawing,wood", "Machines,Wood"}};
}

}  // namespace quorbind::testing
