#include "cli/doctor/doctor_report.h"

#include <iostream>
#include <nlohmann/json.hpp>
#include <sstream>

#include "cli/json_text.h"
#include "cli/marked_line.h"
#include "cli/paths.h"
#include "cli/text_list.h"
#include "cli/toc_file.h"
#include "platform/portable/visible_text.h"

namespace quorbind {

namespace {

std::string countsOf(const ServerDiagnosis& diagnosis) {
  return counted(diagnosis.count(Severity::kError), "error", "errors") + ", " +
         counted(diagnosis.count(Severity::kWarning), "warning", "warnings");
}

std::string countsOf(const LibraryDiagnosis& library) {
  return counted(library.books, "book", "books") + ", " +
         counted(library.headings, "heading", "headings");
}

void printLine(const std::string& indent, const std::string& text) {
  if (!text.empty()) {
    std::cout << indent << visibleText(text) << '\n';
  }
}

void printMarkedLine(const std::string& indent, const Finding& finding) {
  if (!finding.lineText) {
    return;
  }
  std::istringstream lines(markedLine({{finding.line, finding.column}, *finding.lineText}));
  for (std::string line; std::getline(lines, line);) {
    std::cout << indent << line << '\n';
  }
}

void printFinding(const Finding& finding) {
  printLine("  ",
            std::string(wordFor(finding.severity)) + ": " +
                placeIn(nativeName(finding.file), finding.line, finding.column) + finding.text +
                " [" + std::string(finding.id) + "]");
  printMarkedLine("  ", finding);
  printLine("    ", finding.remedy);
  printLine("    ", finding.command);
}

void printFindings(const std::string& title, const Findings& findings) {
  printLine("", title + (findings.all().empty() ? ": sound" : ":"));
  for (const Finding& finding : findings.all()) {
    printFinding(finding);
  }
}

Json toJson(const Finding& finding) {
  Json object = {{"finding", finding.id},
                 {"severity", wordFor(finding.severity)},
                 {"file", nativeName(finding.file)}};
  if (finding.line > 0) {
    object["line"] = finding.line;
  }
  if (finding.column > 0) {
    object["column"] = finding.column;
  }
  if (finding.lineText) {
    object["lineText"] = *finding.lineText;
  }
  object["text"] = finding.text;
  object["remedy"] = finding.remedy;
  if (!finding.command.empty()) {
    object["command"] = finding.command;
  }
  return object;
}

Json toJson(const Findings& findings) {
  Json list = Json::array();
  for (const Finding& finding : findings.all()) {
    list.push_back(toJson(finding));
  }
  return list;
}

}  // namespace

ExitStatus statusOf(const ServerDiagnosis& diagnosis) {
  return diagnosis.count(Severity::kError) == 0 ? ExitStatus::kDone : ExitStatus::kRefused;
}

void printDiagnosis(const std::string& server, const ServerDiagnosis& diagnosis) {
  printFindings(server, diagnosis.findings);
  for (const LibraryDiagnosis& library : diagnosis.libraries) {
    printFindings(library.library + ", " + countsOf(library), library.findings);
  }
  if (statusOf(diagnosis) == ExitStatus::kDone) {
    std::cout << countsOf(diagnosis) << ".\n";
    return;
  }
  std::cout.flush();
  std::cerr << "quorbind: " << visibleText(server) << ": " << countsOf(diagnosis) << '\n';
}

void printDiagnosisAsJson(const std::string& server,
                          const ServerDiagnosis& diagnosis,
                          const std::vector<ShownMessage>& messages) {
  Json libraries = Json::array();
  for (const LibraryDiagnosis& library : diagnosis.libraries) {
    libraries.push_back({{"library", library.library},
                         {"books", library.books},
                         {"headings", library.headings},
                         {"findings", toJson(library.findings)}});
  }
  const ExitStatus status = statusOf(diagnosis);
  Json object = {{"status", static_cast<int>(status)},
                 {"server", server},
                 {"errors", diagnosis.count(Severity::kError)},
                 {"warnings", diagnosis.count(Severity::kWarning)},
                 {"findings", toJson(diagnosis.findings)},
                 {"libraries", libraries},
                 {"messages", toJson(messages)}};
  if (status != ExitStatus::kDone) {
    object["note"] = countsOf(diagnosis);
  }
  printJson(object);
}

}  // namespace quorbind
