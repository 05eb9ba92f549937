#pragma once

// What adding a workbook needs beside the rules that its survey has looked at. The component adds
// its books one by one, so a question that nobody can answer has to end the run before the first.

#include <string>
#include <vector>

#include "cli/arguments.h"
#include "cli/catalogue_reader.h"
#include "cli/wiring.h"
#include "cli/workbook_survey.h"

namespace quorbind {

/// Lets `--name` and `--acro` name the books whose acronyms the list of books lacks, in its order.
/// A flag that is given more or less often than there are such books is refused, and so is a blank
/// value. Abandoned where an acronym is missing that nobody can be asked for.
void takeNames(WorkbookSurvey& survey, const AddArguments& arguments, Wiring& wiring);

/// From now on the book dialog that the component shows again, because the library has the name or
/// the acronym, takes no answer that is meant for a book behind.
void answerBooksInTheirOrder(Wiring& wiring);

/// Abandoned where a book's folder is missing that nobody can be asked for. The user is told of a
/// `--folder` that no book needs.
void considerFolders(const WorkbookSurvey& survey, const AddArguments& arguments, Wiring& wiring);

/// Tells the user of the flags that a workbook has no use for.
void tellOfUnusedRecords(const AddArguments& arguments, Wiring& wiring);

/// The names and acronyms that the library has already, or that another book of the workbook is
/// going to have, in whatever letter case. Where somebody can be asked, the component's dialog asks
/// for those that are there in the same letters.
std::vector<WorkbookViolation> takenNames(const WorkbookSurvey& survey,
                                          const std::vector<ListedBook>& inLibrary,
                                          const Wiring& wiring);

}  // namespace quorbind
