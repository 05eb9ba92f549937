#include "toc/toc_check.h"

#include "platform/error_trap.h"
#include "platform/file_system.h"
#include "platform/locale.h"
#include "platform/paths.h"
#include "platform/text_file.h"
#include "resources/messages.h"

namespace quorbind {

namespace {

constexpr std::string_view kKindNotBuilt =
    "Only text tables of contents can be added by this version. Nothing was changed.";
/// Documents of a text table of contents are looked up from the root of the current drive, wherever
/// the table itself lies.
constexpr std::string_view kRootFolder = "\\";
constexpr char kBookmarkSign = '#';
/// An export is named like its table of contents. In `.HTML` the last letter stays behind.
constexpr std::string_view kHtmlExtension = ".HTM";
constexpr std::string_view kExportEnding = "_Temp.txt";

}  // namespace

TocCheck::TocCheck(Module& module) : module_(module) {}

bool TocCheck::mbValidateTocFile(std::string& tocPath, std::int16_t vintType) {
  UserInterface& ui = module_.platform.ui;
  return trapped(ui, source::kValidateTocFile, false, [&] {
    if (!module_.platform.files.fileExists(tocPath)) {
      ui.show(criticalMessage(Message::kTocNotFoundAtPath + "\r" + tocPath));
      return false;
    }
    switch (vintType) {
      case kText:
        return mbValidateTextToc(tocPath);
      case kXml:
      case kHtml:
      case kExcel:
        ui.show(criticalMessage(std::string(kKindNotBuilt)));
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
    const Pieces parts(fileName, std::string_view(&kBookmarkSign, 1));
    mstrCurFile_ = parts.at(0);
    mstrCurBookMark_.clear();
    if (parts.count() > 1) {
      mstrCurBookMark_.append(1, kBookmarkSign).append(parts.at(1));
    }
    if (!documentExists(folder, mstrCurFile_)) {
      marrsMissingFiles_.emplace_back(fileName);
    }
  });
  return true;
}

// A name that would reach out to the network or a device is not looked up: it counts as missing.
bool TocCheck::documentExists(std::string_view folder, std::string_view fileName) {
  const std::string path = std::string(folder).append(fileName);
  return !leadsToNetworkOrDevice(path) &&
         module_.platform.files.fileExists(module_.platform.files.absolutePath(path));
}

bool TocCheck::mHTMLExportToText(std::string& tocPath, std::string_view text) {
  const Platform& platform = module_.platform;
  return trapped(platform.ui, source::kHtmlExportToText, false, [&] {
    tocPath = replaceAll(platform.locale.upperCase(tocPath), kHtmlExtension, kExportEnding);
    try {
      TextWriter file(platform.files, tocPath);
      file.write(text);
      file.close();
      return true;
    } catch (const RunTimeError& error) {
      if (!error.is(ErrorNumber::kPermissionDenied)) {
        throw;
      }
      platform.ui.show({.text = (Message::kTemporaryFileUnderThis + folderOf(tocPath)).append(" ") +
                                Message::kNoPermissionAtLocation,
                        .icon = MessageIcon::kInformation});
      return false;
    }
  });
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
    module_.platform.ui.show(criticalMessage(violation.message));
  }
}

}  // namespace quorbind
