#include "cli/addition_batch.h"

#include <iostream>
#include <nlohmann/json.hpp>
#include <utility>

#include "cli/addition.h"
#include "cli/failure.h"
#include "cli/json_text.h"
#include "cli/report.h"
#include "cli/text_list.h"
#include "platform/portable/visible_text.h"

namespace quorbind {

namespace {

class Batch {
 public:
  explicit Batch(bool json) : json_(json) {}

  void add(const AddArguments& arguments) {
    AdditionReport report;
    std::vector<ShownMessage> messages;
    try {
      report = addBook(arguments, messages);
    } catch (const std::exception& error) {
      report.toc = arguments.toc;
      UnexpectedEnd end = endBy(error);
      report.note = std::move(end.note);
      report.status = end.status;
    }
    note(report, messages);
  }

  void leaveOut(const AddArguments& arguments) {
    std::cerr << "quorbind: " << visibleText(arguments.toc) << ": not tried\n";
    notTried_.push_back(arguments.toc);
  }

  [[nodiscard]] ExitStatus status() const { return status_; }

  void end() const {
    const std::size_t all = tried_ + notTried_.size();
    const std::string count = std::to_string(added_) + " of " +
                              counted(all, "table of contents", "tables of contents") + " added";
    if (status_ != ExitStatus::kDone) {
      std::cerr << "quorbind: " << count << '\n';
    }
    if (json_) {
      Json object = {{"status", static_cast<int>(status_)},
                     {"added", added_ == all},
                     {"additions", additions_},
                     {"notTried", notTried_}};
      if (status_ != ExitStatus::kDone) {
        object["note"] = count;
      }
      printJson(object);
    }
  }

 private:
  void note(const AdditionReport& report, const std::vector<ShownMessage>& messages) {
    ++tried_;
    added_ += report.status == ExitStatus::kDone ? 1 : 0;
    status_ = status_ == ExitStatus::kDone ? report.status : status_;
    tellAddition(report, messages);
    if (json_) {
      Json addition = {{"toc", report.toc}};
      addition.update(toJson(report, messages));
      additions_.push_back(std::move(addition));
    } else {
      printAddedBooks(report);
    }
  }

  const bool json_;
  ExitStatus status_ = ExitStatus::kDone;
  std::size_t tried_ = 0;
  std::size_t added_ = 0;
  Json additions_ = Json::array();
  std::vector<std::string> notTried_;
};

}  // namespace

ExitStatus addAll(const std::vector<AddArguments>& additions, bool stopsAtFirst, bool json) {
  Batch batch(json);
  for (const AddArguments& arguments : additions) {
    if (stopsAtFirst && batch.status() != ExitStatus::kDone) {
      batch.leaveOut(arguments);
    } else {
      batch.add(arguments);
    }
  }
  batch.end();
  return batch.status();
}

}  // namespace quorbind
