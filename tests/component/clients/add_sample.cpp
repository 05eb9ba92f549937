// A host of any table of contents: asks its user, who enters NAME and ACRONYM, unless they are
// empty, and adds the book.
//
//   add_sample WAY TOC SERVER LIBRARY KIND NAME ACRONYM
//
// WAY is one of waysOfCalling. Says what was shown and what the run answered.

#include <cstdio>
#include <string>
#include <vector>

#include "platform/windows/com_types.h"
#include "tests/operations/component_host.h"

namespace {

using namespace quorbind;
using namespace quorbind::testing;

enum Word { kWay, kToc, kServer, kLibrary, kKind, kName, kAcronym, kWordCount };

void say(const std::string& line) {
  std::puts(line.c_str());
}

void addBook(ComponentHost& host, const std::vector<std::string>& words) {
  const std::string docs = words[kServer] + "\\Docs\\";
  const std::string folder = docs + words[kLibrary] + "\\";
  const std::string catalogue = folder + "Quor_TOC.xml";
  const std::int32_t kind = std::stoi(words[kKind]);
  if (!words[kName].empty()) {
    host.willEnter(words[kName], words[kAcronym]);
    host.call("mbGetFormInput", {catalogue, kind});
  }
  const std::string answer = host.call("Book_Valuator",
                                       {words[kToc],
                                        catalogue,
                                        kind,
                                        words[kLibrary],
                                        "",
                                        "",
                                        "Operation",
                                        "",
                                        folder + "Quor_BookCategories.xml",
                                        "mast;wind",
                                        "Operation;Repair",
                                        folder + "Quor_SearchKeywords.xml",
                                        0,
                                        false,
                                        docs});
  for (const std::string& line : host.takeShown()) {
    say(line);
  }
  say(answer);
}

}  // namespace

int wmain(int count, wchar_t** arguments) {
  std::vector<std::string> words;
  for (int place = 1; place < count; ++place) {
    words.push_back(toUtf8(arguments[place]));
  }
  if (words.size() != kWordCount) {
    std::fputs("add_sample WAY TOC SERVER LIBRARY KIND NAME ACRONYM\n", stderr);
    return 2;
  }
  const auto host = makeHost(words[kWay]);
  ::SetEnvironmentVariableW(L"QUOR_SERVER", toWide(words[kServer]).c_str());
  addBook(*host, words);
  return 0;
}
