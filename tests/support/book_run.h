#pragma once

#include <string>
#include <string_view>

#include "tests/support/scripted_user_interface.h"
#include "workflow/driver/quor_book.h"

namespace quorbind::testing {

/// Notes the event between the other things that happen.
class NotingEvents final : public QuorBookEvents {
 public:
  explicit NotingEvents(ScriptedUserInterface& user) : user_(user) {}
  void evtGetFolderName(std::string_view sFolderName) override {
    user_.note("event [" + std::string(sFolderName) + "]");
  }

 private:
  ScriptedUserInterface& user_;
};

/// One run with these arguments.
inline bool runBook(Quor_Book& book, const BookValuatorArguments& arguments) {
  return book.Book_Valuator(arguments.vstrtocpath,
                            arguments.vstrQuorTOcPath,
                            arguments.vintType,
                            arguments.vstrProductName,
                            arguments.vstrBookName,
                            arguments.vstrBookAcro,
                            arguments.vstrCategory,
                            arguments.vstrKeywordsPath,
                            arguments.vstrBookCategoryPath,
                            arguments.strKeyWords,
                            arguments.strCategory,
                            arguments.spath,
                            arguments.vlngInstallType,
                            arguments.blnChkCateFlag,
                            arguments.strServerPath);
}

}  // namespace quorbind::testing
