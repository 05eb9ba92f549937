#pragma once

#include <cstdint>
#include <memory>
#include <string>

#include "platform/spreadsheets.h"
#include "platform/windows/com_types.h"

namespace quorbind::testing {

/// A spreadsheet program for tests, which the system finds as long as this lives: registered for
/// the files of workbooks, it reads them from disk and serves their cells as such a program does,
/// late bound. It runs inside this process. The thread has entered COM.
class WorkbookServer {
 public:
  WorkbookServer();
  ~WorkbookServer();
  WorkbookServer(const WorkbookServer&) = delete;
  WorkbookServer& operator=(const WorkbookServer&) = delete;

  /// How many of its objects somebody keeps.
  [[nodiscard]] int objectsInUse() const;
  /// In what mode the last workbook was to be opened.
  [[nodiscard]] std::uint32_t lastMode() const;
  /// The most often that the text of one cell was asked for.
  [[nodiscard]] int mostAsked() const;

  /// A sheet of the workbook at `path`, a name of this system, as a host would hand it in.
  [[nodiscard]] ComPtr<IDispatch> sheetOf(const std::string& path, std::int32_t number);

  struct State;

 private:
  class Registration;

  std::shared_ptr<State> state_;
  std::unique_ptr<Registration> registration_;
};

/// A sheet as such a program would hand it to a host, without a workbook around it.
ComPtr<IDispatch> automationSheet(std::unique_ptr<Worksheet> sheet);

}  // namespace quorbind::testing
