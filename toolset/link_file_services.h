#pragma once

#include <string>
#include <string_view>

#include "platform/toolset.h"
#include "toolset/library_services.h"

namespace quorbind {

class FileSystem;
class XmlLibrary;

/// Makes and merges the libraries' files of link identifiers.
class ReferenceLinkFileServices final : public LinkFileServices {
 public:
  /// The ports are kept by reference.
  ReferenceLinkFileServices(FileSystem& files, XmlLibrary& xml, ReferenceLibraryServices library);

  /// A "Unicode text" file. Raises what writing it raises, and 5 for a description that no comment
  /// can hold.
  void GenerateXMLHeader(std::string_view path,
                         std::string_view description,
                         std::string_view root) override;

  /// An identifier in both files keeps the target's entry. A missing target is made; one that gains
  /// nothing, the source itself included, is left alone. Raises kDocumentNotLoadedError for either
  /// file, 91 for a target with another root, and what saving raises.
  void MergeLinkIDFiles(std::string_view target, std::string_view source) override;

  /// As the library's catalogue has it for the first book of that acronym; without such an entry
  /// the acronym itself. Raises kServerNotConfiguredError.
  std::string GetFolderName(std::string_view acronym, std::string_view product) override;

 private:
  FileSystem& files_;
  XmlLibrary& xml_;
  ReferenceLibraryServices library_;
};

}  // namespace quorbind
