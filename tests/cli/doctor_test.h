#pragma once

#include <filesystem>
#include <string>

#include "tests/cli/library_test.h"

namespace quorbind::testing {

/// A server whose library `Plant` is sound: one book, Alarms (ALM), with one document.
class DoctorTest : public LibraryTest {
 protected:
  static constexpr const char* kSelection = "server/Docs/Quor_Selection.xml";
  static constexpr const char* kSoundServer = "DISK/server: sound\n";
  static constexpr const char* kSoundPlant = "Plant, 1 book, 1 heading: sound\n";

  void SetUp() override {
    LibraryTest::SetUp();
    writeEntries(bookEntry("Alarms", "ALM"));
    namespace fs = std::filesystem;
    environment["PATH"] = fs::path(quorbindExecutable()).parent_path().string() + ":/usr/bin:/bin";
  }

  [[nodiscard]] Outcome doctor(const Words& more = {}) const {
    return quorbind(joined({"doctor", "--server", "server"}, more));
  }

  void writeEntries(std::string_view entries) const {
    disk.write(kCatalogue, catalogueWith(entries));
  }
  /// An entry that differs from that of bookEntry.
  static std::string entryWith(std::string_view from, std::string_view to) {
    return replaceAll(bookEntry("Alarms", "ALM"), from, to);
  }
  /// The book file of Alarms with something else in it.
  void changeBookFile(std::string_view from, std::string_view to) const {
    disk.write(kBookFile, replaceAll(bookFileOf("Alarms", "ALM"), from, to));
  }
  void writeList(std::string_view entries) const {
    disk.write(kSelection,
               "<Quor_Selection_List>\n<Quors>\n" + std::string(entries) +
                   "</Quors>\n</Quor_Selection_List>\n");
  }
  static std::string listed(std::string_view name, std::string_view location) {
    return "<Quor><Quor_Name>" + std::string(name) + "</Quor_Name><Quor_Location>" +
           std::string(location) + "</Quor_Location></Quor>\n";
  }

  /// Examines the server and expects the whole report. Its closing line tells the counts; it is an
  /// error's when there is one.
  void expectReport(const std::string& report,
                    const std::string& counts,
                    const Words& more = {}) const {
    const bool hasErrors = !counts.starts_with("0 errors");
    const Tree before = disk.contents();
    const Outcome outcome = doctor(more);
    EXPECT_EQ(outcome.out, report + (hasErrors ? "" : counts + ".\n"));
    EXPECT_EQ(outcome.err, hasErrors ? "quorbind: DISK/server: " + counts + "\n" : "");
    EXPECT_EQ(outcome.status, hasErrors ? 1 : 0);
    EXPECT_EQ(disk.contents(), before);
  }
  /// The same where only that is wrong with the library, which has one book and its heading.
  void expectInPlant(const std::string& findings, const std::string& counts) const {
    expectReport(kSoundServer + ("Plant, 1 book, 1 heading:\n" + findings), counts);
  }
  void expectOnServer(const std::string& findings, const std::string& counts) const {
    expectReport("DISK/server:\n" + findings + kSoundPlant, counts);
  }
  void expectSound() const {
    expectReport(std::string(kSoundServer) + kSoundPlant, "0 errors, 0 warnings");
  }

  /// Copies the only command out of the report into a shell, with something behind it, and expects
  /// that it does what it says.
  void mend(const std::string& more = "") const {
    const std::string command = commandIn(doctor().out);
    ASSERT_NE(command, "");
    const Outcome outcome = shell(command + more);
    ASSERT_EQ(outcome.status, 0) << command << more << "\n" << outcome.err;
  }
  [[nodiscard]] Outcome shell(const std::string& command) const {
    return runHere({"sh", "-c", "cd / && " + replaceAll(command, "DISK", disk.path().string())});
  }
  /// The first command of a report.
  static std::string commandIn(const std::string& report) {
    for (const char* beginning : {"\n    quorbind ", "\n    rm "}) {
      if (const std::size_t begin = report.find(beginning); begin != std::string::npos) {
        return report.substr(begin + 5, report.find('\n', begin + 1) - begin - 5);
      }
    }
    return "";
  }
};

}  // namespace quorbind::testing
