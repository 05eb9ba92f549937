#include "platform/paths.h"

#include <gtest/gtest.h>

#include <string>

namespace quorbind::testing {

namespace {

TEST(FolderPartOf, IsEverythingUpToTheLastSeparator) {
  EXPECT_EQ(folderPartOf("C:\\in\\toc.txt"), "C:\\in\\");
  EXPECT_EQ(folderPartOf("\\toc.txt"), "\\");
  EXPECT_EQ(folderPartOf("toc.txt"), "");
  EXPECT_EQ(folderPartOf("C:\\in\\"), "C:\\in\\");
}

TEST(WithBackslashes, TurnsEverySlash) {
  EXPECT_EQ(withBackslashes("Docs/Library\\a.txt/"), "Docs\\Library\\a.txt\\");
  EXPECT_EQ(withBackslashes(""), "");
}

TEST(JoinedPath, PutsABackslashBehindAFolder) {
  EXPECT_EQ(joinedPath("C:\\Docs", "a.txt"), "C:\\Docs\\a.txt");
  EXPECT_EQ(joinedPath("", "a.txt"), "a.txt");
}

TEST(FolderOf, IsWhatStandsBeforeTheLastBackslash) {
  EXPECT_EQ(folderOf("C:\\Docs\\a.txt"), "C:\\Docs");
  EXPECT_EQ(folderOf("C:\\Docs\\"), "C:\\Docs");
  EXPECT_EQ(folderOf("\\a.txt"), "");
  EXPECT_EQ(folderOf("a.txt"), "");
  EXPECT_EQ(folderOf("Docs/a.txt"), "");
}

TEST(FileNameOf, IsWhatStandsBehindTheLastBackslash) {
  EXPECT_EQ(fileNameOf("C:\\Docs\\a.txt"), "a.txt");
  EXPECT_EQ(fileNameOf("C:\\Docs\\"), "");
  EXPECT_EQ(fileNameOf("a.txt"), "a.txt");
  EXPECT_EQ(fileNameOf("Docs/a.txt"), "Docs/a.txt");
}

TEST(LeadsToNetworkOrDevice, IsNotSaidOfOrdinaryNames) {
  for (const char* path : {"C:\\Docs\\a.txt",
                           "\\Manual\\cover.htm",
                           "..\\a.txt",
                           "a\\\\b.txt",
                           "",
                           "Manual\\console.htm",
                           "Manual\\com.htm",
                           "Manual\\com10.htm",
                           "Manual\\COM\u00BC.htm",
                           "Manual\\null.txt",
                           "Manual\\a.con",
                           "Manual\\.nul",
                           "Manual\\my nul"}) {
    EXPECT_FALSE(leadsToNetworkOrDevice(path)) << path;
  }
}

TEST(LeadsToNetworkOrDevice, FindsTheNetwork) {
  EXPECT_TRUE(leadsToNetworkOrDevice("\\\\server\\share\\a.txt"));
  EXPECT_TRUE(leadsToNetworkOrDevice("//server/share/a.txt"));
  EXPECT_TRUE(leadsToNetworkOrDevice("\\/server\\share"));
}

TEST(LeadsToNetworkOrDevice, FindsTheNameSpacesOfDevices) {
  EXPECT_TRUE(leadsToNetworkOrDevice("\\\\.\\PhysicalDrive0"));
  EXPECT_TRUE(leadsToNetworkOrDevice("\\\\?\\C:\\a.txt"));
  EXPECT_TRUE(leadsToNetworkOrDevice("//?/UNC/server/share"));
  EXPECT_TRUE(leadsToNetworkOrDevice("\\??\\C:\\a.txt"));
}

TEST(LeadsToNetworkOrDevice, FindsDevicesInAnyPart) {
  for (const char* path : {"CON",
                           "prn",
                           "Aux",
                           "C:\\Docs\\nul",
                           "Docs/NUL/a.txt",
                           "C:nul",
                           "COM1",
                           "com9",
                           "LPT0",
                           "Manual\\lpt3",
                           "CONIN$",
                           "conout$"}) {
    EXPECT_TRUE(leadsToNetworkOrDevice(path)) << path;
  }
}

TEST(LeadsToNetworkOrDevice, FindsDevicesUnderExtensionsBlanksAndColons) {
  for (const char* path :
       {"nul.txt", "nul.tar.gz", "COM1 ", "con .htm", "Manual\\aux.", "nul:", "com1:a.txt"}) {
    EXPECT_TRUE(leadsToNetworkOrDevice(path)) << path;
  }
}

TEST(LeadsToNetworkOrDevice, FindsDevicesWithSuperscriptNumbers) {
  EXPECT_TRUE(leadsToNetworkOrDevice("COM¹"));
  EXPECT_TRUE(leadsToNetworkOrDevice("lpt².txt"));
  EXPECT_TRUE(leadsToNetworkOrDevice("Docs\\com³"));
}

TEST(LeadsToNetworkOrDevice, FindsWhatTheSystemWouldReadToTheNulOnly) {
  EXPECT_TRUE(leadsToNetworkOrDevice(std::string_view("Docs\\b\0.htm", 11)));
  EXPECT_TRUE(leadsToNetworkOrDevice(std::string_view("\0", 1)));
}

TEST(WithoutDotsAtEnd, LeavesOutWhatWindowsDoes) {
  EXPECT_EQ(withoutDotsAtEnd("a.xml. ."), "a.xml");
  EXPECT_EQ(withoutDotsAtEnd(" .a"), " .a");
  EXPECT_EQ(withoutDotsAtEnd(". ."), "");
  EXPECT_EQ(withoutDotsAtEnd(""), "");
}

TEST(StaysInFolder, IsSaidOfOrdinaryNames) {
  for (const char* name : {"Manual", "cover.htm", ".hidden", "..a", "a b", "Höhe", "a."}) {
    EXPECT_TRUE(staysInFolder(name)) << name;
  }
}

TEST(StaysInFolder, IsNotSaidOfTheFolderItselfOrItsParent) {
  for (const char* name : {"", ".", "..", "...", ". ", ".. ", ".. .", " ", "  .."}) {
    EXPECT_FALSE(staysInFolder(name)) << name;
  }
}

TEST(StaysInFolder, IsNotSaidOfNamesWithSeveralParts) {
  EXPECT_FALSE(staysInFolder("Manual\\a.htm"));
  EXPECT_FALSE(staysInFolder("Manual/a.htm"));
  EXPECT_FALSE(staysInFolder("\\"));
}

TEST(StaysInFolder, IsNotSaidOfDrivesAndAlternateStreams) {
  EXPECT_FALSE(staysInFolder("C:"));
  EXPECT_FALSE(staysInFolder("C:a.htm"));
  EXPECT_FALSE(staysInFolder("a.htm:stream"));
}

TEST(StaysInFolder, IsNotSaidOfNamesWithANul) {
  EXPECT_FALSE(staysInFolder(std::string_view("b\0.htm", 6)));
  EXPECT_EQ(nameBelow(std::string_view("pages\\b\0.htm", 12)), std::nullopt);
}

TEST(StaysInFolder, IsNotSaidOfDevices) {
  EXPECT_FALSE(staysInFolder("NUL"));
  EXPECT_FALSE(staysInFolder("com1.htm"));
  EXPECT_FALSE(staysInFolder("Aux "));
}

TEST(NameBelow, IsTheNameWithItsSeparatorsInOrder) {
  EXPECT_EQ(nameBelow("a.htm"), "a.htm");
  EXPECT_EQ(nameBelow("pages/deep/a.htm"), "pages\\deep\\a.htm");
  EXPECT_EQ(nameBelow("./pages\\\\.\\a.htm"), "pages\\a.htm");
}

TEST(NameBelow, IsTheNameThatIsMeantByGoingBackInside) {
  EXPECT_EQ(nameBelow("sub/../sub/x.htm"), "sub\\x.htm");
  EXPECT_EQ(nameBelow("a\\..\\b.htm"), "b.htm");
  EXPECT_EQ(nameBelow("a/b/../../c/./..//d.htm"), "d.htm");
}

TEST(NameBelow, IsNoneForANameThatLeadsElsewhere) {
  for (const char* name : {"",
                           ".",
                           "..",
                           "../a.htm",
                           "pages\\..",
                           "pages\\..\\..\\a.htm",
                           "pages\\..\\..\\pages\\a.htm",
                           "pages/../../a.htm",
                           "pages\\..\\C:\\a.htm",
                           "nul\\..\\a.htm",
                           "pages\\.. \\a.htm",
                           "\\a.htm",
                           "/a.htm",
                           "\\\\server\\share\\a.htm",
                           "\\\\?\\C:\\a.htm",
                           "C:\\a.htm",
                           "C:a.htm",
                           "http://server/a.htm",
                           "file:///C:/a.htm",
                           "a.htm:stream",
                           "pages\\nul.htm"}) {
    EXPECT_EQ(nameBelow(name), std::nullopt) << name;
  }
}

}  // namespace

}  // namespace quorbind::testing
