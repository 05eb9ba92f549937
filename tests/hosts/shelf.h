#pragma once

#include <string>

#include "platform/xml_document.h"

namespace quorbind::testing {

/// The one file of the library that many hosts share, under its name for them.
inline constexpr const char* kShelf = "C:\\Quor_TOC.xml";
/// When this file stands, readers come to their end.
inline constexpr const char* kEnough = "C:\\enough";

/// One save: which writer made it and how many it had made by then.
struct Save {
  int writer = 0;
  int number = 0;
};

/// The file's text after a save. Each has a length of its own, and tells in every line which save
/// it is, so that nothing that is made of two of them, or is a part of one, looks like one.
std::string shelfAfter(Save save);

/// Which save a loaded file is from. Raises an error when it is not from one save alone.
Save saveOf(const XmlDocument& document);

/// Turns a loaded file into what it is after a save.
void putOnShelf(XmlDocument& document, Save save);

}  // namespace quorbind::testing
