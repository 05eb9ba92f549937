#include "tests/support/world.h"

#include "platform/runtime_error.h"
#include "platform/text.h"

namespace quorbind::testing {

void FixedClockLocale::requireWhole() const {
  if (broken_) {
    raise(ErrorNumber::kInvalidProcedureCall);
  }
}

void BreakableToolset::require(bool whole) {
  if (!whole) {
    raise(ErrorNumber::kCannotCreateObject);
  }
}

std::unique_ptr<LibraryServices> BreakableToolset::createLibraryServices() {
  require(!broken_);
  return toolset_.createLibraryServices();
}

std::unique_ptr<XmlTextRules> BreakableToolset::createXmlTextRules() {
  require(!broken_ && !textRulesBroken_);
  return toolset_.createXmlTextRules();
}

std::unique_ptr<LinkFileServices> BreakableToolset::createLinkFileServices() {
  require(!broken_);
  return toolset_.createLinkFileServices();
}

std::unique_ptr<ProductServices> BreakableToolset::createProductServices() {
  require(!broken_ && !productServicesBroken_);
  return toolset_.createProductServices();
}

std::unique_ptr<FileCopy> BreakableToolset::createFileCopy() {
  require(!broken_ && !fileCopyBroken_);
  return toolset_.createFileCopy();
}

World::World() : World(nullptr) {}

World::World(Spreadsheets& (Adapters::*reader)())
    : adapters_(makeAdapters(disk.path())),
      reference_(adapters_->makeToolset(user)),
      locale(adapters_->locale()),
      toolset(*reference_),
      module(Platform{adapters_->files(),
                      adapters_->xml(),
                      user,
                      toolset,
                      locale,
                      reader == nullptr ? spreadsheets : (adapters_.get()->*reader)()}) {}

std::string World::text(std::string_view name) const {
  return replaceAll(fromUtf16File(disk.read(name)), "\r\n", "\n");
}

}  // namespace quorbind::testing
