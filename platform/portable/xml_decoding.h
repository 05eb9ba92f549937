#pragma once

#include <string>
#include <string_view>

namespace quorbind {

/// The text of an XML file in UTF-8, without a byte-order mark: the file is in the encoding that
/// its mark or its first character shows, else in the one that it declares, else in UTF-8. Bytes
/// that have no meaning there, and all of an encoding that is not known, read as UTF-8 with U+FFFD.
std::string decodedXml(std::string_view bytes);

}  // namespace quorbind
