#pragma once

// Names of files as the component's world writes them: `\` between the parts, folders usually
// carried with their trailing `\`. Everything here looks at the text alone and asks no disk.

#include <optional>
#include <string>
#include <string_view>

namespace quorbind {

/// `path` with every `/` turned into `\`.
std::string withBackslashes(std::string_view path);

/// What stands before the last `\`; empty when there is none.
std::string_view folderOf(std::string_view path);

/// What stands behind the last `\`; the whole path when there is none.
std::string_view fileNameOf(std::string_view path);

/// The folder that a path begins with, up to and including its last `\`; empty when there is none.
std::string_view folderPartOf(std::string_view path);

/// The path of what is called `name` in `folder`, which has no `\` at its end and may be empty.
std::string joinedPath(std::string_view folder, std::string_view name);

/// A name without the dots and blanks at its end, which Windows leaves out of the names of files.
std::string_view withoutDotsAtEnd(std::string_view name);

/// Whether a name that comes out of a document must not reach the file system: it leads onto the
/// network (`\\server\share`), into a device name space (`\\.\`, `\\?\`, `\??\`), or one of its
/// parts is a device name (`CON`, `nul.txt`, `COM1 `, `LPT²`), in any letter case and with `/` or
/// `\`. So must none with a NUL: it ends a name for the system and not for whoever judges it.
bool leadsToNetworkOrDevice(std::string_view path);

/// Whether `name` can be the name of one folder or file below the folder it is meant for: not
/// empty, no separator, no drive, no alternate stream, no NUL, not `.` or `..` under any trailing
/// dots and blanks, not a device.
bool staysInFolder(std::string_view name);

/// A document's name for a file as a name below the folder that it is meant for: with `\`, without
/// doubled separators and parts that are `.`, and with every `..` gone together with the part that
/// it goes back over. Nothing for a name that leads elsewhere: one that is empty, begins at a root,
/// goes back out of the folder at any time, or has a part that does not stay in its folder (a
/// drive, a scheme, a device, a NUL).
std::optional<std::string> nameBelow(std::string_view name);

}  // namespace quorbind
