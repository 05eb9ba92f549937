#pragma once

#include <memory>

#include "platform/toolset.h"

namespace quorbind {

/// The in-house components as the machine has them registered, late bound. The thread has entered
/// COM.
///
/// A component that is not registered, or can't be made, raises 429; one without a member raises
/// 438 where that is called. Errors of the components come out with their number and description.
class WindowsToolset final : public Toolset {
 public:
  std::unique_ptr<LibraryServices> createLibraryServices() override;
  std::unique_ptr<XmlTextRules> createXmlTextRules() override;
  std::unique_ptr<LinkFileServices> createLinkFileServices() override;
  std::unique_ptr<ProductServices> createProductServices() override;
  std::unique_ptr<FileCopy> createFileCopy() override;
};

}  // namespace quorbind
