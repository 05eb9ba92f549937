#include "tests/support/hostile_names.h"

#include <initializer_list>
#include <string_view>
#include <utility>

namespace quorbind::testing {

namespace {

using Leads = HostileName::Leads;

class NameList {
 public:
  void add(Leads leads, std::initializer_list<std::string_view> names) {
    for (const std::string_view name : names) {
      names_.push_back({std::string(name), leads});
    }
  }
  [[nodiscard]] std::vector<HostileName> take() { return std::move(names_); }

 private:
  std::vector<HostileName> names_;
};

void addParents(NameList& list) {
  list.add(Leads::kOutOfFolder,
           {"..",
            "..\\",
            "../",
            ".",
            ".\\",
            "..\\secret.htm",
            "../secret.htm",
            "..\\\\secret.htm",
            "..//secret.htm",
            "..\\/secret.htm",
            ".\\..\\secret.htm",
            "./../secret.htm",
            "..\\.\\secret.htm",
            "..\\..\\secret.htm",
            "../../../../../../secret.htm",
            "..\\..\\Docs\\Plant\\secret.htm",
            "a\\..\\..\\secret.htm",
            "a/../../secret.htm",
            "a\\b\\..\\..\\..\\secret.htm",
            "a\\..\\..\\a\\secret.htm",
            "a\\..",
            "a\\..\\",
            "a/b/../..",
            "...\\secret.htm",
            "....\\secret.htm",
            ".. \\secret.htm",
            "..  .\\secret.htm",
            ". .\\secret.htm",
            " ..\\secret.htm",
            "a\\.. \\secret.htm",
            "a\\ ..\\..\\secret.htm",
            "a\\...\\secret.htm",
            "a\\. \\secret.htm",
            "a\\ \\secret.htm",
            "..\\in\\..\\..\\secret.htm",
            "secret.htm\\..\\..\\secret.htm"});
}

void addRootsAndDrives(NameList& list) {
  list.add(Leads::kOutOfFolder,
           {"C:\\secret.htm",
            "C:/secret.htm",
            "c:\\secret.htm",
            "C:secret.htm",
            "C:",
            "C:\\",
            "D:\\secret.htm",
            "Z:secret.htm",
            "1:\\secret.htm",
            "C:..\\secret.htm",
            "C:\\..\\secret.htm",
            "a\\C:\\secret.htm",
            "a/D:/secret.htm",
            "a\\..\\C:\\secret.htm",
            ".\\C:secret.htm",
            " C:\\secret.htm",
            "CC:\\secret.htm"});
  // Behind the root of a drive these begin with two separators.
  list.add(Leads::kToNetworkOrDevice,
           {"\\secret.htm",
            "/secret.htm",
            "\\a\\secret.htm",
            "/etc/secret",
            "\\Windows\\secret.ini",
            "\\..\\secret.htm",
            "/../secret.htm",
            "\\C:\\secret.htm",
            "\\",
            "/"});
}

void addNetwork(NameList& list) {
  list.add(Leads::kToNetworkOrDevice,
           {"\\\\server\\share\\secret.htm",
            "//server/share/secret.htm",
            "\\/server\\share\\secret.htm",
            "/\\server/share/secret.htm",
            "\\\\server",
            "\\\\",
            "//",
            "///server/share/secret.htm",
            "\\\\\\server\\share\\secret.htm",
            "\\\\127.0.0.1\\c$\\secret.htm",
            "\\\\0x7f000001\\c$\\secret.htm",
            "\\\\--1.ipv6-literal.net\\c$\\secret.htm",
            "\\\\server@SSL@8443\\DavWWWRoot\\secret.htm",
            "\\\\server.example.com@80\\share\\secret.htm",
            "\\\\localhost\\IPC$",
            "\\\\server\\share\\..\\..\\secret.htm",
            "\\\\?\\C:\\secret.htm",
            "\\\\?\\UNC\\server\\share\\secret.htm",
            "\\\\?\\GLOBALROOT\\Device\\secret",
            "\\\\?\\Volume{01234567-89ab-cdef-0123-456789abcdef}\\secret.htm",
            "\\\\.\\C:\\secret.htm",
            "\\\\.\\pipe\\secret",
            "\\\\.\\PhysicalDrive0",
            "\\\\.\\GLOBALROOT\\Device\\secret",
            "\\\\.\\UNC\\server\\share\\secret.htm",
            "//?/C:/secret.htm",
            "//./pipe/secret",
            "\\??\\C:\\secret.htm",
            "\\??\\UNC\\server\\share\\secret.htm"});
  list.add(Leads::kOutOfFolder,
           {"http://server/secret.htm",
            "https://server/secret.htm",
            "HTTP:secret.htm",
            "ftp://server/secret.htm",
            "file:///C:/secret.htm",
            "file://server/share/secret.htm",
            "file:secret.htm",
            "javascript:secret",
            "data:text/html,secret",
            "mailto:secret@example.com",
            "res://secret.dll/secret.htm",
            "mk:@MSITStore:secret.chm::/secret.htm",
            "ms-its:secret.chm::/secret.htm",
            "ldap://server/secret",
            "about:blank"});
}

void addDevices(NameList& list) {
  for (const std::string device :
       {"CON",       "PRN",       "AUX",       "NUL",      "COM0",    "COM1",      "COM2",
        "COM3",      "COM4",      "COM5",      "COM6",     "COM7",    "COM8",      "COM9",
        "LPT0",      "LPT1",      "LPT2",      "LPT3",     "LPT4",    "LPT5",      "LPT6",
        "LPT7",      "LPT8",      "LPT9",      "CONIN$",   "CONOUT$", "COM\u00B9", "COM\u00B2",
        "COM\u00B3", "LPT\u00B9", "LPT\u00B2", "LPT\u00B3"}) {
    list.add(Leads::kToNetworkOrDevice,
             {device, device + ".htm", "a\\" + device, device + "\\secret.htm"});
  }
  list.add(Leads::kToNetworkOrDevice,
           {"nul",
            "Nul.tar.gz",
            "con .htm",
            "aux.",
            "prn ",
            "nul:",
            "com1:secret.htm",
            "a/nUl/secret.htm",
            "a\\lpt1 .txt",
            "nul\\..\\secret.htm"});
}

void addStreams(NameList& list) {
  list.add(Leads::kOutOfFolder,
           {"secret.htm:stream",
            "secret.htm::$DATA",
            "Quor_TOC.xml::$DATA",
            "secret.htm:$DATA",
            "a\\secret.htm:stream",
            "a:stream\\secret.htm",
            "a::$INDEX_ALLOCATION\\secret.htm",
            "secret:$I30:$INDEX_ALLOCATION",
            ":stream",
            "::$DATA",
            "secret.htm:"});
}

void addEncoded(NameList& list) {
  list.add(Leads::kOutOnceDecoded,
           {"%2e%2e/secret.htm",
            "%2E%2E\\secret.htm",
            "..%2fsecret.htm",
            "..%5csecret.htm",
            "%2e.%5Csecret.htm",
            ".%2e/secret.htm",
            "%2e%2e%2f%2e%2e%2fsecret.htm",
            "%5c%5cserver%5cshare%5csecret.htm",
            "%2f%2fserver%2fshare%2fsecret.htm",
            "C%3a%5csecret.htm",
            "C%3A/secret.htm",
            "%43%3asecret.htm",
            "%6eul.htm",
            "%63%6F%6E",
            "com%31.htm",
            "secret.htm%3astream",
            "a/%2e%2e/%2e%2e/secret.htm",
            "%20../secret.htm",
            "..%20/secret.htm",
            "secret.htm%00",
            "secret%00.htm",
            "%00secret.htm",
            "a%00/secret.htm"});
}

void addLookAlikes(NameList& list) {
  list.add(Leads::kNowhere,
           {"..\u2215secret.htm",
            "..\uFF0Fsecret.htm",
            "..\uFF3Csecret.htm",
            "..\u2044secret.htm",
            "..\u29F5secret.htm",
            "..\u29F8secret.htm",
            "..\uFE68secret.htm",
            "\u2025\\secret.htm",
            "\uFF0E\uFF0E\\secret.htm",
            "\u2024\u2024\\secret.htm",
            "C\uFF1A\\secret.htm",
            "C\u02D0secret.htm",
            "C|\\secret.htm",
            "\uFF3C\uFF3Cserver\uFF3Cshare",
            "\u2216\u2216server\\share",
            "\uFF2E\uFF35\uFF2C.htm",
            "NU\u216C.htm",
            "\u202Ecod.terces",
            "%252e%252e/secret.htm",
            "%c0%ae%c0%ae/secret.htm",
            "%u002e%u002e/secret.htm",
            "..secret.htm",
            "secret..htm",
            "secret.htm.",
            "secret.htm ",
            "secret.htm. .",
            "Quor_TOC.xml.",
            "Quor_TOC.xml ",
            "Quor_TOC.xml%20",
            "QUOR_T~1.XML",
            "a .\\secret.htm",
            " secret.htm",
            "console.htm",
            "com10.htm",
            "a\\..\\secret.htm",
            "a/./b/../secret.htm"});
}

std::vector<HostileName> makeNames() {
  NameList list;
  addParents(list);
  addRootsAndDrives(list);
  addNetwork(list);
  addDevices(list);
  addStreams(list);
  addEncoded(list);
  addLookAlikes(list);
  return list.take();
}

}  // namespace

const std::vector<HostileName>& hostileNames() {
  static const std::vector<HostileName> kNames = makeNames();
  return kNames;
}

}  // namespace quorbind::testing
