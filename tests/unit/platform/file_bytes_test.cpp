#include "platform/file_bytes.h"

#include <gtest/gtest.h>

#include "platform/runtime_error.h"
#include "tests/support/memory_files.h"

namespace quorbind::testing {
namespace {

TEST(FileBytes, AreThoseOfTheWholeFile) {
  MemoryFiles files;
  const std::string large(200'000, 'x');
  files.write("Docs/empty.bin", "");
  files.write("Docs/large.bin", large);

  EXPECT_EQ(bytesOf(files, "C:\\Docs\\empty.bin", 10), "");
  EXPECT_EQ(bytesOf(files, "C:\\Docs\\large.bin", large.size()), large);
}

TEST(FileBytes, AreNoneOfAFileBeyondTheLimit) {
  MemoryFiles files;
  files.write("Docs/eleven.bin", "12345678901");

  EXPECT_EQ(bytesOf(files, "C:\\Docs\\eleven.bin", 11), "12345678901");
  EXPECT_EQ(bytesOf(files, "C:\\Docs\\eleven.bin", 10), std::nullopt);
}

TEST(FileBytes, OfAMissingFileRaiseWhatOpeningItRaises) {
  MemoryFiles files;

  EXPECT_THROW(static_cast<void>(bytesOf(files, "C:\\Docs\\no.bin", 10)), RunTimeError);
  EXPECT_THROW(requireReadable(files, "C:\\Docs\\no.bin"), RunTimeError);
}

TEST(FileBytes, AnEmptyFileIsReadable) {
  MemoryFiles files;
  files.write("Docs/empty.bin", "");

  EXPECT_NO_THROW(requireReadable(files, "C:\\Docs\\empty.bin"));
}

}  // namespace
}  // namespace quorbind::testing
