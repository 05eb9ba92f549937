#pragma once

#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "platform/locale.h"
#include "platform/toolset.h"
#include "tests/contract/adapters.h"
#include "tests/support/paper_spreadsheets.h"
#include "tests/support/scripted_user_interface.h"
#include "tests/support/temporary_folder.h"
#include "workflow/forms/module.h"

namespace quorbind::testing {

/// The machine's locale at a moment that never changes: 2026-01-02, 15:04:05.
class FixedClockLocale final : public Locale {
 public:
  explicit FixedClockLocale(const Locale& locale) : locale_(locale) {}

  /// From now on dates and upper case can't be had: error 5.
  void breakDown() { broken_ = true; }

  [[nodiscard]] LocalTime now() const override {
    requireWhole();
    return {2026, 1, 2, 15, 4, 5};
  }
  [[nodiscard]] std::string generalDate(const LocalTime& time) const override {
    return locale_.generalDate(time);
  }
  [[nodiscard]] int compareText(std::string_view left, std::string_view right) const override {
    return locale_.compareText(left, right);
  }
  [[nodiscard]] std::string upperCase(std::string_view text) const override {
    requireWhole();
    return locale_.upperCase(text);
  }
  [[nodiscard]] std::string fromSystemCodePage(std::string_view bytes) const override {
    return locale_.fromSystemCodePage(bytes);
  }

 private:
  void requireWhole() const;

  const Locale& locale_;
  bool broken_ = false;
};

/// A tool set that a test can make fail.
class BreakableToolset final : public Toolset {
 public:
  explicit BreakableToolset(Toolset& toolset) : toolset_(toolset) {}

  /// From now on no component can be made.
  void breakDown() { broken_ = true; }
  /// From now on no copy component can be made.
  void breakFileCopy() { fileCopyBroken_ = true; }
  /// From now on no text rules can be had.
  void breakTextRules() { textRulesBroken_ = true; }
  /// From now on nobody knows the server's products.
  void breakProductServices() { productServicesBroken_ = true; }

  std::unique_ptr<LibraryServices> createLibraryServices() override;
  std::unique_ptr<XmlTextRules> createXmlTextRules() override;
  std::unique_ptr<LinkFileServices> createLinkFileServices() override;
  std::unique_ptr<ProductServices> createProductServices() override;
  std::unique_ptr<FileCopy> createFileCopy() override;

 private:
  static void require(bool whole);

  Toolset& toolset_;
  bool broken_ = false;
  bool fileCopyBroken_ = false;
  bool textRulesBroken_ = false;
  bool productServicesBroken_ = false;
};

/// A whole component over the build's own adapters, for which the drive `C:` is a temporary folder,
/// with a scripted user and a clock that stands still.
class World {
 public:
  /// Its workbooks are on paper.
  World();
  /// Its workbooks are files on the disk, read in this way.
  explicit World(Spreadsheets& (Adapters::*reader)());

  TemporaryFolder disk;
  ScriptedUserInterface user;

 private:
  std::unique_ptr<Adapters> adapters_;
  std::unique_ptr<Toolset> reference_;

 public:
  FixedClockLocale locale;
  BreakableToolset toolset;
  PaperSpreadsheets spreadsheets;
  Module module;

  [[nodiscard]] const Platform& platform() const { return module.platform; }
  [[nodiscard]] ProcessState& state() { return module.state; }

  /// The contents of a "Unicode text" file on the disk, line ends as LF.
  [[nodiscard]] std::string text(std::string_view name) const;
};

}  // namespace quorbind::testing
