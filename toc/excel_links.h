#pragma once

#include <string>

#include "component/process_state.h"
#include "platform/platform.h"
#include "platform/spreadsheets.h"

namespace quorbind {

/// Records the link identifiers of all books of a workbook in the current product's file: for each
/// row that has one the book's acronym, the headings above it, and the document with its bookmark
/// in the folder that the tool set knows for the book. The user is told of an identifier that any
/// product has; it is left out, and the next follows. Errors are told, and end the walk.
void UpdateQuorLinkIDFile(const Platform& platform,
                          const ProcessState& state,
                          Spreadsheets& spreadsheets,
                          const std::string& workbook);

}  // namespace quorbind
