#include "resources/messages.h"

#include <gtest/gtest.h>

namespace quorbind {
namespace {

TEST(Messages, StandUnderTheirPublishedNumbers) {
  EXPECT_EQ(static_cast<int>(Message::kNotAValidTocFile), 101);
  EXPECT_EQ(static_cast<int>(Message::kTocNotFoundAtPath), 135);
  EXPECT_EQ(static_cast<int>(Message::kLinkIdAlreadyExists), 154);
}

TEST(Messages, KeepTheirBlanksAndTheirSpelling) {
  EXPECT_EQ(text(Message::kErrorBookName), "Error:Book Name ");
  EXPECT_EQ(text(Message::kAlreadyExists), " already Exists");
  EXPECT_EQ(text(Message::kColumn), " Column:");
  EXPECT_EQ(text(Message::kUpdatingBookXml), "Updating BookXML with Book Info ");
  EXPECT_EQ(text(Message::kBookAcroCanNotContain), "Book Acro can not contain ");
}

TEST(Messages, JoinWithValuesOnEitherSide) {
  EXPECT_EQ((Message::kErrorBookName + "Alarms") + Message::kAlreadyExists,
            "Error:Book Name Alarms already Exists");
}

}  // namespace
}  // namespace quorbind
