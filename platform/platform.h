#pragma once

namespace quorbind {

class FileSystem;
class Locale;
class Spreadsheets;
class Toolset;
class UserInterface;
class XmlLibrary;

/// The ports that a build is made with. Whoever makes it owns the adapters and keeps them longer
/// than everything that was given this.
struct Platform {
  FileSystem& files;
  XmlLibrary& xml;
  UserInterface& ui;
  Toolset& toolset;
  Locale& locale;
  Spreadsheets& spreadsheets;
};

}  // namespace quorbind
