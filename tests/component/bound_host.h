#pragma once

#include "tests/component/attendant.h"
#include "tests/component/component_test.h"
#include "tests/operations/component_host.h"

namespace quorbind::testing {

/// A host of the registered component. Its disk is a folder, which is the documentation server's.
class BoundHost : public ComponentHost, private RegisteredDlls {
 public:
  explicit BoundHost(const std::wstring& componentDll);
  ~BoundHost() override;

  void willEnter(const std::string& name, const std::string& acronym) override {
    attendant_.willEnter(name, acronym);
  }
  void willCancel() override { attendant_.willCancel(); }
  std::vector<std::string> takeShown() override;
  [[nodiscard]] const TemporaryFolder& disk() const override { return disk_; }

 private:
  Result answer(const std::string& operation, Arguments& arguments) override;
  /// The same with the host's own names of files.
  virtual Result callComponent(const std::string& operation, Arguments& arguments) = 0;

  [[nodiscard]] Argument withOwnNames(Argument argument) const;
  [[nodiscard]] Argument withPublicNames(Argument argument) const;

  const TemporaryFolder disk_;
  const std::string root_;
  Attendant attendant_;
};

// Hosts of the component, or of a DLL that stands for it, by its place in the build folder.

inline constexpr const wchar_t* kComponentDll = L"Quorbind.dll";

/// Calls the interfaces directly, as compiled hosts do.
std::unique_ptr<ComponentHost> makeEarlyBoundHost(const std::wstring& componentDll = kComponentDll);
/// Calls operations by name with references to variables, as scripts do.
std::unique_ptr<ComponentHost> makeLateBoundHost(const std::wstring& componentDll = kComponentDll);

}  // namespace quorbind::testing
