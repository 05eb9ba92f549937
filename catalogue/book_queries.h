#pragma once

#include <optional>
#include <string>
#include <vector>

#include "platform/platform.h"
#include "platform/xml_document.h"

namespace quorbind {

// What a catalogue says about its books. Book_Config tells what each operation answers.

std::vector<std::string> BookInfo(const Platform& platform, const std::string& vstrtocpath);

/// The name is brought into its stored form.
std::vector<std::string> CategorieInfo(const Platform& platform,
                                       const std::string& vstrtocpath,
                                       const std::string& vstrBookName);

/// The name is looked up as it is.
void strFolderLinkInfo(const Platform& platform,
                       const std::string& vstrtocpath,
                       const std::string& vstrBookName,
                       std::string& rstrFolderName,
                       std::string& rstrFileLink);

/// The name is looked up as it is.
std::string GetBookAcro(const Platform& platform,
                        const std::string& vstrtocpath,
                        const std::string& vstrBookName);

// The same of a catalogue that is loaded already, by the name in its stored form and with errors
// ignored.

/// What the entry does not have stays as it was; without an entry both become empty.
void readFolderAndLink(const XmlDocument& catalogue,
                       const std::string& name,
                       std::string& folder,
                       std::string& link);

/// Nothing when it can't be had, whatever the reason.
std::optional<std::string> readAcronym(const XmlDocument& catalogue, const std::string& name);

}  // namespace quorbind
