#pragma once

#include <string>

#include "platform/toolset.h"

namespace quorbind {

class FileSystem;
class Locale;
class UserInterface;
class XmlLibrary;

/// What the reference components work with. Kept by reference; outlives the tool set.
struct ToolsetPorts {
  FileSystem& files;
  XmlLibrary& xml;
  UserInterface& ui;
  Locale& locale;
};

/// The reference implementation of the in-house components.
class ReferenceToolset final : public Toolset {
 public:
  /// `serverRoot` is the documentation server's root folder, with or without its trailing `\`;
  /// empty: not configured, which GetQuorServer reports as an error.
  ReferenceToolset(ToolsetPorts ports, std::string serverRoot);

  std::unique_ptr<LibraryServices> createLibraryServices() override;
  std::unique_ptr<XmlTextRules> createXmlTextRules() override;
  std::unique_ptr<LinkFileServices> createLinkFileServices() override;
  std::unique_ptr<ProductServices> createProductServices() override;
  std::unique_ptr<FileCopy> createFileCopy() override;

 private:
  ToolsetPorts ports_;
  std::string serverRoot_;
};

}  // namespace quorbind
