#include "resources/messages.h"

#include <gtest/gtest.h>

#include <map>

namespace quorbind {
namespace {

/// What hosts and authors have always read, blanks and spelling included.
const std::map<int, std::string_view> kPublished{
    {101, "Not a valid TOC file"},
    {102, "Search keyword should not contain '##' in it."},
    {103, "Search keyword should not have any spaces in between the characters"},
    {104, "Not a valid xls file"},
    {105, "Unable to locate the worksheet"},
    {106, "File does not exist"},
    {107, "Folder Name"},
    {108, "BookName"},
    {109, "BookAcro"},
    {110, "Quor_TOC.xml is not of valid format"},
    {111, "Book Configuration in Progress...."},
    {112, "Copying files to new path"},
    {113, "Updating Quor_TOC.XML with Book Info"},
    {114, "Updating BookXML with Book Info "},
    {115, "Quor_Location Tag is missing in Quor_Selection.xml For "},
    {116, "Product"},
    {117, "is not present in Quor_TOC.xml"},
    {118, "Quor_Selection.XML is not of valid format"},
    {119, "Quor_Selection.XML is not found"},
    {120, "Error:Book Name "},
    {121, " already Exists"},
    {122, "Error:Book Acro "},
    {123, "Enter a valid string for Book Name and Book Acro"},
    {124, "Please close file Book_"},
    {125, "Toc Validation in Progress..."},
    {126, "TOC to XML Conversion in Progress..."},
    {127, "File copying in progress..."},
    {128, "Adding Book to Quor_TOC.XML...."},
    {129, "Toc Addition Complete"},
    {130, "Row: "},
    {131, " Column:"},
    {132, "Error:Node Level should be Integer"},
    {133, "Line: "},
    {135, "TOC not found at Path"},
    {136, "Line No:"},
    {137, "Error loading XML Document: "},
    {138, "Error:Book should have at least one heading"},
    {139, "A temporary text file has to be created under this "},
    {140,
     " location,folder in the above does not have a valid permission, please go and set the "
     "permission"},
    {141, "Not a valid Excel file"},
    {142, "Unable to Locate WorkSheet1"},
    {143, "Node Level Information is not Found"},
    {144, "Node Name Information is not Found"},
    {145, "FileName information not found"},
    {146, "Number Of Entry's in Node Level/Node Name/File Name Does not Match"},
    {148, "Book Folder can not contain "},
    {149, "Enter a Non-empty string for folder name"},
    {150, "Book Name can not contain "},
    {151, "Book Acro can not contain "},
    {154, " - Link ID already exist. "},
};

TEST(Messages, ReadAsTheyWerePublishedUnderTheirNumbers) {
  const std::map<int, std::string_view> table{
#define QUOR_MESSAGE(number, name, words) {static_cast<int>(Message::name), text(Message::name)},
#include "resources/messages.def"
#undef QUOR_MESSAGE
  };
  EXPECT_EQ(table, kPublished);
}

TEST(Messages, JoinWithValuesOnEitherSide) {
  EXPECT_EQ((Message::kErrorBookName + "Alarms") + Message::kAlreadyExists,
            "Error:Book Name Alarms already Exists");
}

}  // namespace
}  // namespace quorbind
