#include "toc/toc_check.h"

#include "platform/error_trap.h"
#include "platform/file_system.h"
#include "platform/folder_listings.h"
#include "platform/locale.h"
#include "platform/paths.h"
#include "platform/text_file.h"
#include "resources/messages.h"
#include "toc/replaced.h"

namespace quorbind {

namespace {

/// Documents of a text table of contents are looked up from the root of the current drive, wherever
/// the table itself lies.
constexpr std::string_view kRootFolder = "\\";
constexpr char kBookmarkSign = '#';

}  // namespace

TocCheck::TocCheck(Module& module) : module_(module), excel_(module, *this) {}

bool TocCheck::mbValidateTocFile(std::string& tocPath, std::int16_t vintType, const ExcelRun* run) {
  UserInterface& ui = module_.platform.ui;
  FolderListings listings(module_.platform.files, module_.platform.locale);
  const Replaced<FolderListings*> replaced(listings_, &listings);
  return trapped(ui, source::kValidateTocFile, false, [&] {
    if (!module_.platform.files.fileExists(tocPath)) {
      ui.show(criticalMessage(Message::kTocNotFoundAtPath + "\r" + tocPath));
      return false;
    }
    switch (vintType) {
      case kText:
        return mbValidateTextToc(tocPath);
      case kXml:
        return mbValidateXMLToc(tocPath);
      case kHtml:
        return exportHtmlToc(tocPath);
      case kExcel:
        // Its books are in the library already; there is none left for the caller to add.
        excel_.mbValidateXLToc(tocPath, vintType, run);
        return false;
      default:
        return false;
    }
  });
}

/// Hands the lines of a walk to the published checks, and tells the user of what they refuse.
class TocCheck::TextTocTeller final : public TextTocListener {
 public:
  TextTocTeller(TocCheck& check, std::string_view tocPath) : check_(check), tocPath_(tocPath) {}

  bool entry(const TextTocLine& line, const Pieces& pieces) override {
    return check_.mbcheckTTocForValidity(line.text, pieces, tocPath_);
  }
  void refused(const TextTocLine& line, const TocViolation& violation) override {
    check_.tell(line.text, violation);
  }

 private:
  TocCheck& check_;
  std::string_view tocPath_;
};

bool TocCheck::mbValidateTextToc(std::string_view tocPath) {
  UserInterface& ui = module_.platform.ui;
  return trapped(ui, source::kValidateTextToc, false, [&] {
    try {
      TextReader reader(module_.platform.files, module_.platform.locale, tocPath);
      TextTocTeller teller(*this, tocPath);
      return walkTextToc(reader, teller);
    } catch (const RunTimeError& error) {
      if (!error.is(ErrorNumber::kInputPastEndOfFile)) {
        throw;
      }
      tell({}, emptyTextToc());
      return false;
    }
  });
}

bool TocCheck::mbcheckTTocForValidity(std::string_view line,
                                      const Pieces& pieces,
                                      std::string_view /*tocPath*/) {
  return trapped(module_.platform.ui, source::kCheckTTocForValidity, false, [&] {
    TextTocEntry entry;
    if (const auto violation = checkTextEntry(line, pieces, mintPrevLevel_, entry)) {
      tell(line, *violation);
      return false;
    }
    if (entry.level == 1 && module_.state.currentBookName.empty()) {
      module_.state.currentBookName = entry.name;
    }
    mbCheckFilePath(line, entry.file, kRootFolder);
    return true;
  });
}

bool TocCheck::mbCheckFilePath(std::string_view /*line*/,
                               std::string_view fileName,
                               std::string_view folder) {
  trapped(module_.platform.ui, source::kCheckFilePath, [&] {
    if (fileName.empty()) {
      return;
    }
    const std::size_t sign = fileName.find(kBookmarkSign);
    mstrCurFile_ = fileName.substr(0, sign);
    mstrCurBookMark_.clear();
    if (sign != std::string_view::npos) {
      mstrCurBookMark_ = fileName.substr(sign, fileName.find(kBookmarkSign, sign + 1) - sign);
    }
    if (!documentExists(folder, mstrCurFile_)) {
      marrsMissingFiles_.add(fileName);
    }
  });
  return true;
}

// A name that would reach out to the network or a device is not looked up: it counts as missing. So
// does one that leads out of the folder of its table of contents; nothing leads out of the root.
bool TocCheck::documentExists(std::string_view folder, std::string_view fileName) {
  FileSystem& files = module_.platform.files;
  if (folder == kRootFolder) {
    const std::string path = std::string(folder).append(fileName);
    return !leadsToNetworkOrDevice(path) && fileExists(files.absolutePath(path));
  }
  const auto name = nameBelow(fileName);
  return name && fileExists(files.absolutePath(std::string(folder).append(*name)));
}

bool TocCheck::fileExists(const std::string& path) {
  return listings_ != nullptr ? listings_->hasFile(path) : module_.platform.files.fileExists(path);
}

void TocCheck::mDisplayErrorMessage(std::string_view message, std::string_view offendingText) {
  UserInterface& ui = module_.platform.ui;
  trapped(ui, source::kDisplayErrorMessage, [&] {
    ui.show(criticalMessage(std::string(message)));
    ui.putOnClipboard(offendingText);
  });
}

void TocCheck::tell(std::string_view line, const TocViolation& violation) {
  if (violation.offersLine) {
    mDisplayErrorMessage(violation.message, line);
  } else {
    module_.platform.ui.show({.text = violation.message, .icon = violation.icon});
  }
}

bool TocCheck::accepts(std::string_view line, const std::optional<TocViolation>& violation) {
  if (violation) {
    tell(line, *violation);
  }
  return !violation;
}

void TocCheck::forgetBook() {
  mstrBookFile_.clear();
  mstrBookFolder_.clear();
}

}  // namespace quorbind
