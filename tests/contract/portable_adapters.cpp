#include <deque>
#include <istream>
#include <sstream>
#include <stdexcept>
#include <streambuf>

#include "platform/portable/portable_file_system.h"
#include "platform/portable/portable_locale.h"
#include "platform/portable/terminal_user_interface.h"
#include "platform/portable/xml_library.h"
#include "platform/workbooks/file_spreadsheets.h"
#include "tests/contract/adapters.h"
#include "toolset/reference_toolset.h"

namespace quorbind::testing {

namespace {

/// A terminal's input: each line that was typed, and the ends of input between them.
class Keyboard final : public std::streambuf {
 public:
  void typeLine(const std::string& line) { keys_.push_back(line + "\n"); }
  void endInput() { keys_.emplace_back(); }

 protected:
  int_type underflow() override {
    if (next_ == keys_.size() || keys_[next_].empty()) {
      next_ += next_ < keys_.size() ? 1 : 0;
      return traits_type::eof();
    }
    std::string& line = keys_[next_++];
    setg(line.data(), line.data(), line.data() + line.size());
    return traits_type::to_int_type(line.front());
  }

 private:
  std::deque<std::string> keys_;
  std::size_t next_ = 0;
};

class AttendedTerminal final : public AttendedUserInterface {
 public:
  UserInterface& ui() override { return ui_; }

  void willEnter(const std::vector<std::string>& texts) override {
    for (const std::string& text : texts) {
      keyboard_.typeLine(text);
    }
  }
  void willLeave() override { keyboard_.endInput(); }

  [[nodiscard]] std::vector<std::string> boxes() const override {
    std::vector<std::string> boxes;
    for (const ShownMessage& message : ui_.shown()) {
      boxes.push_back(std::string(wordFor(message.icon)) + ": " + message.text);
    }
    return boxes;
  }
  [[nodiscard]] std::string clipboard() const override {
    return ui_.shown().back().clipboard.value();
  }

 private:
  Keyboard keyboard_;
  std::istream input_{&keyboard_};
  std::ostringstream output_;
  TerminalUserInterface ui_{{.output = output_, .input = &input_}, {}};
};

class PortableAdapters final : public Adapters {
 public:
  explicit PortableAdapters(const std::filesystem::path& root) : files_(root), xml_(files_) {}

  FileSystem& files() override { return files_; }
  XmlLibrary& xml() override { return xml_; }
  std::unique_ptr<XmlLibrary> makeXml(FileSystem& files) override {
    return std::make_unique<PortableXmlLibrary>(files);
  }
  Locale& locale() override { return locale_; }
  Spreadsheets& spreadsheets() override { return spreadsheets_; }
  Spreadsheets& spreadsheetProgram() override {
    throw std::logic_error("this build uses no spreadsheet program");
  }
  std::unique_ptr<Toolset> makeToolset(UserInterface& ui) override {
    return std::make_unique<ReferenceToolset>(ToolsetPorts{files_, xml_, ui, locale_}, "C:\\");
  }
  std::unique_ptr<AttendedUserInterface> makeUserInterface() override {
    return std::make_unique<AttendedTerminal>();
  }

 private:
  PortableFileSystem files_;
  PortableXmlLibrary xml_;
  PortableLocale locale_;
  FileSpreadsheets spreadsheets_{files_, xml_};
};

}  // namespace

bool usesSpreadsheetProgram() {
  return false;
}

std::unique_ptr<Adapters> makeAdapters(const std::filesystem::path& root) {
  return std::make_unique<PortableAdapters>(root);
}

}  // namespace quorbind::testing
