#include "cli/init_command.h"

#include <array>
#include <iostream>
#include <nlohmann/json.hpp>
#include <string>
#include <string_view>
#include <vector>

#include "catalogue/book_config.h"
#include "catalogue/names.h"
#include "cli/failure.h"
#include "cli/json_text.h"
#include "cli/kept_text.h"
#include "cli/paths.h"
#include "cli/point_of_need.h"
#include "cli/report.h"
#include "cli/required_document.h"
#include "cli/side_file_rules.h"
#include "cli/wiring.h"
#include "platform/paths.h"
#include "platform/portable/visible_text.h"
#include "platform/text_file.h"
#include "platform/xml_writer.h"
#include "sidefiles/names.h"

namespace quorbind {

namespace {

/// What a documentation library usually groups its books by.
constexpr std::array<std::string_view, 4> kDefaultCategories{
    "User Guides", "Reference Manuals", "Release Notes", "Training"};

class Initialisation {
 public:
  Initialisation(const InitArguments& arguments, Wiring& wiring)
      : library_(arguments.place.library),
        json_(arguments.json),
        paths_(arguments.place.server, arguments.place.library),
        wiring_(wiring) {}

  void run() {
    requireKeptText(library_);
    const auto selection = loadSelection();
    const bool isListed = selection && isInSelection(*selection);
    requireUsableDefaults();
    makeFolder(paths_.folder);
    makeFile(paths_.catalogue, [](XmlWriter& writer) {
      writer.startElement(catalogue_names::kMaster);
      writer.textElement(catalogue_names::kBooks, "");
    });
    makeFile(paths_.defaultCategories, [](XmlWriter& writer) {
      using namespace default_category_names;
      writer.startElement(kDefaults);
      writeDefaultCategories(writer, kDeveloperPro);
      writeDefaultCategories(writer, kDeveloper);
      writer.endElement();
    });
    makeCategoriesFile();
    if (selection && !isListed) {
      addToSelection(*selection);
    } else if (!selection) {
      makeFile(paths_.selection, [this](XmlWriter& writer) { writeSelection(writer); });
    }
    if (written_.empty() && !json_) {
      std::cout << "Nothing to do: " << visibleText(library_) << " is complete.\n";
    }
  }

  /// How it ended, as one object.
  void printAsJson(ExitStatus status) const {
    Json object = {{"status", static_cast<int>(status)},
                   {"library", library_},
                   {"written", written_},
                   {"messages", toJson(wiring_.ui.shown())}};
    if (status != ExitStatus::kDone) {
      object["note"] = written_.empty() ? kNothingWritten : "only a part was written";
    }
    printJson(object);
  }

 private:
  static void writeDefaultCategories(XmlWriter& writer, std::string_view list) {
    writer.startElement(list);
    for (const std::string_view category : kDefaultCategories) {
      writer.textElement(default_category_names::kName, category);
    }
    writer.endElement();
  }

  void writeSelection(XmlWriter& writer) const {
    using namespace selection_names;
    writer.startElement(kList);
    writer.startElement(kQuors);
    writer.startElement(kQuor);
    writer.textElement(kName, library_);
    writer.textElement(kLocation, paths_.location);
  }

  /// The server's list of libraries, if there is one. It is looked at before anything is made.
  std::unique_ptr<XmlDocument> loadSelection() {
    if (!wiring_.files.fileExists(paths_.selection)) {
      return nullptr;
    }
    requireReadable(wiring_.files, paths_.selection, nativeName(paths_.selection));
    auto document = wiring_.xml.createDocument();
    if (const XmlLoadResult result = document->load(paths_.selection); !result) {
      throw loadFailure(wiring_.module.platform, paths_.selection, result);
    }
    if (!listOf(*document)) {
      throw missingElement(paths_.selection, selection_names::kQuors);
    }
    return document;
  }

  static XmlNode listOf(const XmlDocument& selection) {
    return selection.select(
        std::string(selection_names::kList).append("/").append(selection_names::kQuors));
  }

  /// A listed library whose name differs in letter case alone has the same folder, and so refuses
  /// this one.
  [[nodiscard]] bool isInSelection(const XmlDocument& selection) const {
    std::string namesake;
    for (const XmlNode& library : listOf(selection).children()) {
      const XmlNode element = library.child(selection_names::kName);
      const std::string name = element ? element.text() : std::string();
      if (name == library_) {
        return true;
      }
      if (wiring_.locale.upperCase(name) == wiring_.locale.upperCase(library_)) {
        namesake = name;
      }
    }
    if (!namesake.empty()) {
      throw brokenRule(RuleText::kFolderOfOtherLibrary,
                       {{"LIBRARY", library_}, {"OTHER", namesake}});
    }
    return false;
  }

  void addToSelection(XmlDocument& selection) {
    using namespace selection_names;
    const XmlNode library = selection.createElement(kQuor);
    listOf(selection).append(library);
    appendText(selection, library, kName, library_);
    appendText(selection, library, kLocation, paths_.location);
    written(paths_.selection, [&] { selection.save(paths_.selection); });
  }

  static void appendText(XmlDocument& document,
                         const XmlNode& parent,
                         std::string_view name,
                         std::string_view text) {
    const XmlNode element = document.createElement(name);
    element.setText(text);
    parent.append(element);
  }

  /// From default categories that can't be read no categories file is to be made.
  void requireUsableDefaults() {
    if (wiring_.files.fileExists(paths_.bookCategories) ||
        !wiring_.files.fileExists(paths_.defaultCategories)) {
      return;
    }
    requireDefaultCategories(wiring_.module.platform, paths_);
  }

  /// By the component, which tells its failures in a box.
  void makeCategoriesFile() {
    if (wiring_.files.fileExists(paths_.bookCategories)) {
      return;
    }
    constexpr std::int32_t kOrdinaryInstallation = 0;
    written(paths_.bookCategories, [&] {
      const std::size_t boxes = wiring_.ui.shown().size();
      Book_Config(wiring_.module)
          .CreateBookCateXmlFile(paths_.docsFolder, paths_.bookCategories, kOrdinaryInstallation);
      if (wiring_.ui.shown().size() > boxes) {
        throw CommandFailure(ExitStatus::kWriteFailed,
                             nativeName(paths_.bookCategories) + " could not be made");
      }
    });
  }

  /// Makes a folder with all those above it that are missing.
  void makeFolder(const std::string& folder) {
    if (folder.empty() || wiring_.files.folderExists(folder)) {
      return;
    }
    makeFolder(std::string(folderOf(folder)));
    written(folder, [&] { wiring_.files.createFolder(folder); });
  }

  template <typename Content>
  void makeFile(const std::string& path, Content&& writeContent) {
    if (wiring_.files.fileExists(path)) {
      return;
    }
    written(path, [&] {
      TextWriter file(wiring_.files, path);
      file.writeLine(kUnicodeDeclaration);
      XmlWriter writer([&file](std::string_view text) { file.write(text); });
      writeContent(writer);
      writer.endDocument();
      file.close();
    });
  }

  /// Runs one step that writes, and tells what it wrote.
  template <typename Step>
  void written(const std::string& path, Step&& step) {
    writingOutput(nativeName(path), step);
    written_.push_back(nativeName(path));
    if (!json_) {
      std::cout << "wrote " << visibleText(written_.back()) << '\n';
    }
  }

  std::string library_;
  bool json_ = false;
  LibraryPaths paths_;
  Wiring& wiring_;
  /// Files and folders, in the order in which they were made.
  std::vector<std::string> written_;
};

}  // namespace

ExitStatus runInit(const InitArguments& arguments) {
  Wiring wiring(LibraryPaths(arguments.place.server, arguments.place.library).serverRoot,
                processTerminal(/*mayAsk=*/false));
  Initialisation initialisation(arguments, wiring);
  const ExitStatus status = reportingFailures(wiring.ui, [&] {
    initialisation.run();
    return ExitStatus::kDone;
  });
  tellAccepted(status, wiring.ui.shown());
  if (arguments.json) {
    initialisation.printAsJson(status);
  }
  return status;
}

}  // namespace quorbind
