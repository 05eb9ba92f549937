#include "cli/link_commands.h"

#include <algorithm>
#include <iostream>
#include <nlohmann/json.hpp>
#include <vector>

#include "cli/catalogue_reader.h"
#include "cli/component_call.h"
#include "cli/failure.h"
#include "cli/json_text.h"
#include "cli/kept_text.h"
#include "cli/library_names.h"
#include "cli/link_places.h"
#include "cli/listing.h"
#include "cli/paths.h"
#include "cli/required_document.h"
#include "cli/side_file_reader.h"
#include "cli/text_list.h"
#include "cli/text_table.h"
#include "platform/file_system.h"
#include "platform/locale.h"
#include "platform/portable/visible_text.h"
#include "platform/text.h"
#include "platform/toolset.h"
#include "workflow/driver/quor_book.h"

namespace quorbind {

namespace {

using Links = std::vector<ListedLink>;

void printLinks(const Links& links) {
  std::vector<TableRow> rows{{"IDENTIFIER", "BOOK", "SOURCE", "FULL LINK"}};
  for (const ListedLink& link : links) {
    rows.push_back({readableName(link.identifier), link.acronym, link.sourceFile, link.fullLink});
  }
  printTable(rows);
}

void printLinksAsJson(const Links& links) {
  Json list = Json::array();
  for (const ListedLink& link : links) {
    list.push_back({{"identifier", readableName(link.identifier)},
                    {"book", link.acronym},
                    {"source", link.sourceFile},
                    {"fullLink", link.fullLink}});
  }
  printJson({{"links", list}});
}

/// The entry of an identifier as it is stored; null when there is none.
const ListedLink* find(const Links& links, const std::string& identifier) {
  const auto found = std::find_if(links.begin(), links.end(), [&](const ListedLink& link) {
    return link.identifier == identifier;
  });
  return found == links.end() ? nullptr : &*found;
}

/// The component fills such an entry in only where it has more than its usual fields.
void requireFilledIn(const Links& links, const std::string& identifier) {
  const ListedLink* link = find(links, identifier);
  if (link != nullptr && trimBlanks(link->fullLink).empty()) {
    throw brokenRule(RuleText::kLinkNotFilledIn, {{"IDENTIFIER", readableName(identifier)}});
  }
}

std::string addLink(LibraryChange& change, const AddLinkArguments& arguments) {
  const std::string& path = change.paths().linkIds;
  const auto books = readCatalogue(change.platform(), change.paths().catalogue);
  const ListedBook& book = requireBookWithAcronym(books, arguments.acronym, change.library());
  requireKeptText(arguments.identifier);
  requireKeptText(arguments.fullLink);
  requireKeptText(arguments.source);
  // It is looked up as it is handed over, and stored with its markup characters replaced.
  const std::string identifier =
      change.platform().toolset.createXmlTextRules()->ReplaceSpecCharToXMLChar(
          arguments.identifier);
  change.wiring().ui.showPathAs(identifier, arguments.identifier);
  requireFilledIn(readLinks(change.platform(), path), identifier);
  requireWritable(change.platform().files, path);
  callComponent(change.wiring(), [&] {
    Quor_Book(change.module())
        .AddToLinkIDFile(
            path, identifier, arguments.fullLink, arguments.source, change.library(), book.acronym);
  });
  if (find(readLinks(change.platform(), path), identifier) == nullptr) {
    throw CommandFailure(ExitStatus::kInternal, "the identifier is not in the file");
  }
  return std::string(change.said("Recorded", "Would record")) + " the identifier " +
         arguments.identifier + " of " + titleOf(book) + " in " + change.library() + ".";
}

/// The names of the server's libraries but this one.
std::vector<std::string> otherLibraries(Wiring& wiring,
                                        const LibraryPaths& paths,
                                        const std::string& library) {
  std::vector<std::string> names = libraryNames(wiring, paths);
  std::erase_if(names, [&](const std::string& name) {
    return wiring.locale.compareText(name, library) == 0;
  });
  return names;
}

/// The identifiers of the library that stand more than once on the server.
LinkPlaces findDuplicates(Wiring& wiring,
                          const LibraryArguments& place,
                          const LibraryPaths& paths) {
  const Platform& platform = wiring.module.platform;
  LinkPlaces places;
  for (const ListedLink& link : readLinks(platform, paths.linkIds)) {
    places[linkKeyOf(link)].push_back({place.library, link.acronym});
  }
  for (const std::string& other : otherLibraries(wiring, paths, place.library)) {
    for (const ListedLink& link : readLinks(platform, LibraryPaths(place.server, other).linkIds)) {
      if (const auto known = places.find(linkKeyOf(link)); known != places.end()) {
        known->second.push_back({other, link.acronym});
      }
    }
  }
  std::erase_if(places, [](const auto& entry) { return entry.second.size() == 1; });
  return places;
}

void printDuplicates(const LinkPlaces& duplicates, const std::string& library) {
  if (duplicates.empty()) {
    std::cout << visibleText(library) << ": no identifier stands more than once.\n";
  }
  for (const auto& [identifier, places] : duplicates) {
    std::cout << visibleText(readableName(identifier) + ": " + textOf(places)) << '\n';
  }
}

Json toJson(const LinkPlaces& duplicates) {
  Json list = Json::array();
  for (const auto& [identifier, places] : duplicates) {
    Json where = Json::array();
    for (const LinkPlace& place : places) {
      where.push_back({{"library", place.library}, {"book", place.acronym}});
    }
    list.push_back({{"identifier", readableName(identifier)}, {"places", where}});
  }
  return list;
}

void reportDuplicates(const CheckLinksArguments& arguments,
                      const LinkPlaces& duplicates,
                      const Wiring& wiring) {
  const ExitStatus status = duplicates.empty() ? ExitStatus::kDone : ExitStatus::kRefused;
  const std::string note =
      counted(duplicates.size(), "identifier stands", "identifiers stand") + " more than once";
  if (status != ExitStatus::kDone) {
    std::cerr << "quorbind: " << visibleText(arguments.place.library + ": " + note) << '\n';
  }
  if (!arguments.json) {
    printDuplicates(duplicates, arguments.place.library);
    return;
  }
  Json object = {{"status", static_cast<int>(status)},
                 {"duplicates", toJson(duplicates)},
                 {"messages", toJson(wiring.ui.shown())}};
  if (status != ExitStatus::kDone) {
    object["note"] = note;
  }
  printJson(object);
}

std::string mergeLinks(LibraryChange& change, const std::string& from) {
  const std::string& target = change.paths().linkIds;
  const std::string source = componentFile(from);
  // Where there is no catalogue, there is no library.
  requireCatalogue(change.platform(), change.paths().catalogue);
  static_cast<void>(readExistingLinks(change.platform(), source));
  const std::size_t before = readLinks(change.platform(), target).size();
  requireWritable(change.platform().files, target);
  writingOutput(nativeName(target), [&] {
    change.wiring().toolset.createLinkFileServices()->MergeLinkIDFiles(target, source);
  });
  const std::size_t taken = readLinks(change.platform(), target).size() - before;
  return std::string(change.said("Took ", "Would take ")) +
         counted(taken, "identifier", "identifiers") + " over into " + change.library() + ".";
}

}  // namespace

ExitStatus runListLinks(const ListLinksArguments& arguments) {
  const LibraryPaths library(arguments.place.server, arguments.place.library);
  Wiring wiring(library.serverRoot, processTerminal(/*mayAsk=*/false));
  return runListing(wiring, arguments.json, [&] {
    requireCatalogue(wiring.module.platform, library.catalogue);
    const Links links = readLinks(wiring.module.platform, library.linkIds);
    if (arguments.json) {
      printLinksAsJson(links);
    } else {
      printLinks(links);
    }
  });
}

ExitStatus runAddLink(const AddLinkArguments& arguments) {
  LibraryChange change(arguments.place, arguments.change);
  return change.run([&] { return addLink(change, arguments); });
}

ExitStatus runCheckLinks(const CheckLinksArguments& arguments) {
  const LibraryPaths library(arguments.place.server, arguments.place.library);
  Wiring wiring(library.serverRoot, processTerminal(/*mayAsk=*/false));
  LinkPlaces duplicates;
  const ExitStatus status = runListing(wiring, arguments.json, [&] {
    requireCatalogue(wiring.module.platform, library.catalogue);
    duplicates = findDuplicates(wiring, arguments.place, library);
    reportDuplicates(arguments, duplicates, wiring);
  });
  return status == ExitStatus::kDone && !duplicates.empty() ? ExitStatus::kRefused : status;
}

ExitStatus runMergeLinks(const MergeLinksArguments& arguments) {
  LibraryChange change(arguments.place, arguments.change);
  return change.run([&] { return mergeLinks(change, arguments.from); });
}

}  // namespace quorbind
