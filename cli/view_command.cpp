#include "cli/view_command.h"

#include <filesystem>
#include <iostream>
#include <nlohmann/json.hpp>
#include <vector>

#include "cli/failure.h"
#include "cli/json_text.h"
#include "cli/library_model.h"
#include "cli/library_names.h"
#include "cli/link_base.h"
#include "cli/listing.h"
#include "cli/paths.h"
#include "cli/text_list.h"
#include "cli/view_page.h"
#include "cli/wiring.h"
#include "platform/file_system.h"
#include "platform/portable/visible_text.h"

namespace quorbind {

namespace {

class Viewing {
 public:
  Viewing(const ViewArguments& arguments, const LibraryPaths& server, Wiring& wiring)
      : arguments_(arguments), server_(server), wiring_(wiring) {}

  void run() {
    const bool isPrinted = arguments_.output == kStandardOutput;
    if (!isPrinted) {
      requireOwnPage();
    }
    readLibraries();
    if (isPrinted) {
      std::cout << page();
      return;
    }
    write(page());
    if (arguments_.json) {
      printAsJson();
    } else {
      printAsText();
    }
  }

 private:
  [[nodiscard]] bool showsServer() const { return arguments_.place.library.empty(); }

  /// A documentation server is full of HTML files, and a slip of the pen must not cost one of them.
  void requireOwnPage() const {
    const std::string path = componentFile(arguments_.output);
    if (!wiring_.files.fileExists(path)) {
      return;
    }
    std::string beginning(kPageBeginning.size(), '\0');
    readingInput(arguments_.output, [&] {
      const auto file = wiring_.files.open(path);
      std::size_t length = 0;
      while (const std::size_t count =
                 file->read(beginning.data() + length, beginning.size() - length)) {
        length += count;
      }
    });
    if (beginning != kPageBeginning) {
      throw brokenRule(RuleText::kPageOfOthers, {{"FILE", arguments_.output}});
    }
  }

  void readLibraries() {
    if (showsServer()) {
      for (const std::string& name : libraryNames(wiring_, server_)) {
        read(LibraryPaths(arguments_.place.server, name), name);
      }
      return;
    }
    // Where there is no catalogue, there is no library.
    requireCatalogue(wiring_.module.platform, server_.catalogue);
    read(server_, arguments_.place.library);
  }

  void read(const LibraryPaths& paths, const std::string& name) {
    libraries_.push_back(readLibrary(wiring_.module.platform, paths, name));
  }

  /// A page that is printed lies, as far as can be told, in the current folder.
  [[nodiscard]] std::string page() const {
    const std::filesystem::path folder = std::filesystem::path(arguments_.output).parent_path();
    const ViewPage page(LinkBase(folder.empty() ? "." : folder.string(), arguments_.place.server));
    return showsServer() ? page.ofServer(libraries_) : page.ofLibrary(libraries_.front());
  }

  void write(const std::string& text) const {
    writingOutput(arguments_.output, [&] {
      const auto file = wiring_.files.replace(componentFile(arguments_.output));
      file->write(text);
      file->commit();
    });
  }

  [[nodiscard]] LibraryCounts counts() const {
    LibraryCounts all;
    for (const LibraryModel& library : libraries_) {
      all += countsOf(library);
    }
    return all;
  }

  void printAsText() const {
    const LibraryCounts all = counts();
    std::cout << "Wrote " << visibleText(arguments_.output) << ": "
              << counted(all.books, "book", "books") << ", "
              << counted(all.headings, "heading", "headings") << ".\n";
    printFault("missing documents", all.missing);
    printFault("files that can't be read", all.unreadable);
    printFault("link identifiers that lead nowhere", all.dangling);
  }

  static void printFault(std::string_view what, std::size_t count) {
    if (count > 0) {
      std::cout << what << ": " << count << '\n';
    }
  }

  void printAsJson() const {
    Json list = Json::array();
    for (const LibraryModel& library : libraries_) {
      const LibraryCounts has = countsOf(library);
      list.push_back({{"library", library.name},
                      {"books", has.books},
                      {"headings", has.headings},
                      {"missing", has.missing},
                      {"unreadable", has.unreadable},
                      {"dangling", has.dangling}});
    }
    printJson({{"file", arguments_.output}, {"libraries", list}});
  }

  const ViewArguments& arguments_;
  const LibraryPaths& server_;
  Wiring& wiring_;
  std::vector<LibraryModel> libraries_;
};

}  // namespace

ExitStatus runView(const ViewArguments& arguments) {
  const LibraryPaths server(arguments.place.server, arguments.place.library);
  Wiring wiring(server.serverRoot, processTerminal(/*mayAsk=*/false));
  return runListing(wiring, arguments.json, [&] { Viewing(arguments, server, wiring).run(); });
}

}  // namespace quorbind
