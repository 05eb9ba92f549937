#include <optional>
#include <stdexcept>
#include <utility>

#include "platform/windows/com_types.h"
#include "platform/windows/excel_automation.h"
#include "platform/windows/msxml_library.h"
#include "platform/windows/windows_file_system.h"
#include "platform/windows/windows_locale.h"
#include "platform/workbooks/file_spreadsheets.h"
#include "tests/contract/adapters.h"
#include "tests/support/windows/workbook_server.h"
#include "toolset/reference_toolset.h"

namespace quorbind::testing {

namespace {

constexpr std::string_view kDrive = "C:";

bool isSeparator(char c) {
  return c == '\\' || c == '/';
}

/// The system's files, with a folder in the place of the drive `C:`. No program can have the drive
/// itself changed without harm to others, so names are changed on their way.
class FilesBelow final : public FileSystem {
 public:
  explicit FilesBelow(const std::filesystem::path& root)
      : root_(files_.absolutePath(toUtf8(root.wstring()))) {
    // Names without a drive are on the present one.
    std::filesystem::current_path(root.root_path());
  }

  bool fileExists(std::string_view path) override {
    return ifNamed(path, [&](const std::string& name) { return files_.fileExists(name); });
  }
  bool folderExists(std::string_view path) override {
    return ifNamed(path, [&](const std::string& name) { return files_.folderExists(name); });
  }
  void createFolder(std::string_view path) override { files_.createFolder(below(path)); }
  void copyFile(std::string_view from, std::string_view to) override {
    files_.copyFile(below(from), below(to));
  }
  std::unique_ptr<CopySeries> beginCopies() override { return std::make_unique<Copies>(*this); }
  void moveFile(std::string_view from, std::string_view to) override {
    files_.moveFile(below(from), below(to));
  }
  void deleteFile(std::string_view path) override { files_.deleteFile(below(path)); }
  std::string absolutePath(std::string_view path) override {
    std::string full = files_.absolutePath(path);
    if (!full.starts_with(root_)) {
      return full;
    }
    full.replace(0, root_.size(), kDrive);
    return full == kDrive ? full + '\\' : full;
  }
  bool sameFile(std::string_view left, std::string_view right) override {
    return ifNamed(left, [&](const std::string& leftName) {
      return ifNamed(right, [&](const std::string& rightName) {
        return files_.sameFile(leftName, rightName);
      });
    });
  }
  std::vector<std::string> namesIn(std::string_view folder) override {
    return files_.namesIn(below(folder));
  }
  std::unique_ptr<ByteReader> open(std::string_view path) override {
    return files_.open(below(path));
  }
  std::unique_ptr<FileReplacement> replace(std::string_view path) override {
    return files_.replace(below(path));
  }

  /// The name that the system has for `path`.
  std::string below(std::string_view path) {
    const std::string inRoot = root_ + absolutePath(path).substr(kDrive.size());
    return isSeparator(path.back()) && !isSeparator(inRoot.back()) ? inRoot + '\\' : inRoot;
  }

 private:
  class Copies final : public CopySeries {
   public:
    explicit Copies(FilesBelow& files) : files_(files), copies_(files.files_.beginCopies()) {}

    bool copy(std::string_view from, std::string_view to) override {
      return copies_->copy(files_.below(from), files_.below(to));
    }
    void flush() override { copies_->flush(); }

   private:
    FilesBelow& files_;
    std::unique_ptr<CopySeries> copies_;
  };

  /// For questions that are answered, not refused, when no file can have the name.
  template <typename Question>
  bool ifNamed(std::string_view path, Question question) {
    try {
      return question(below(path));
    } catch (const RunTimeError&) {
      return false;
    }
  }

  WindowsFileSystem files_;
  std::string root_;
};

/// A spreadsheet program that finds its files in that folder.
class ProgramBelow final : public Spreadsheets {
 public:
  explicit ProgramBelow(FilesBelow& files) : files_(files) {}

  std::unique_ptr<Workbook> open(std::string_view path) override {
    return excel_.open(files_.below(path));
  }

 private:
  FilesBelow& files_;
  WorkbookServer server_;
  ExcelSpreadsheets excel_;
};

class WindowsAdapters final : public Adapters {
 public:
  explicit WindowsAdapters(const std::filesystem::path& root) : files_(root), xml_(files_) {}

  FileSystem& files() override { return files_; }
  XmlLibrary& xml() override { return xml_; }
  std::unique_ptr<XmlLibrary> makeXml(FileSystem& files) override {
    return std::make_unique<MsxmlLibrary>(files);
  }
  Locale& locale() override { return locale_; }
  Spreadsheets& spreadsheets() override { return spreadsheets_; }
  Spreadsheets& spreadsheetProgram() override {
    if (!program_) {
      program_.emplace(files_);
    }
    return *program_;
  }
  std::unique_ptr<Toolset> makeToolset(UserInterface& ui) override {
    return std::make_unique<ReferenceToolset>(ToolsetPorts{files_, xml_, ui, locale_}, "C:\\");
  }
  std::unique_ptr<AttendedUserInterface> makeUserInterface() override {
    throw std::logic_error("windows are tested where there is a screen");
  }

 private:
  ComApartment apartment_;
  FilesBelow files_;
  MsxmlLibrary xml_;
  WindowsLocale locale_;
  FileSpreadsheets spreadsheets_{files_, xml_};
  std::optional<ProgramBelow> program_;
};

}  // namespace

bool usesSpreadsheetProgram() {
  return true;
}

std::unique_ptr<Adapters> makeAdapters(const std::filesystem::path& root) {
  return std::make_unique<WindowsAdapters>(root);
}

}  // namespace quorbind::testing
