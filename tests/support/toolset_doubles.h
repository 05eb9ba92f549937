#pragma once

#include <cstdint>
#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <utility>

#include "platform/toolset.h"

namespace quorbind::testing {

/// A tool set in which a test has put components of its own.
class ToolsetWithDoubles final : public Toolset {
 public:
  using Copying = std::function<bool(const std::string& destination,
                                     const std::string& source,
                                     std::int16_t reservedOverwrite,
                                     std::int16_t reservedDialog)>;
  using Storing = std::function<std::string(const std::string& name)>;

  /// Kept by reference; makes every component that no double stands in for.
  explicit ToolsetWithDoubles(Toolset& toolset) : toolset_(toolset) {}

  /// The server's root from now on, just as it is given.
  void setServer(std::string root) { server_ = std::move(root); }
  /// What copying does from now on.
  void setCopying(Copying copying) { copying_ = std::move(copying); }
  /// What the text rules make of a name from now on.
  void setStoring(Storing storing) { storing_ = std::move(storing); }

  std::unique_ptr<LibraryServices> createLibraryServices() override {
    return server_ ? std::make_unique<Services>(*server_) : toolset_.createLibraryServices();
  }
  std::unique_ptr<XmlTextRules> createXmlTextRules() override {
    auto rules = toolset_.createXmlTextRules();
    return storing_ ? std::make_unique<Rules>(std::move(rules), storing_) : std::move(rules);
  }
  std::unique_ptr<LinkFileServices> createLinkFileServices() override {
    return toolset_.createLinkFileServices();
  }
  std::unique_ptr<ProductServices> createProductServices() override {
    return toolset_.createProductServices();
  }
  std::unique_ptr<FileCopy> createFileCopy() override {
    return copying_ ? std::make_unique<Copier>(copying_) : toolset_.createFileCopy();
  }

 private:
  class Services final : public LibraryServices {
   public:
    explicit Services(std::string root) : root_(std::move(root)) {}
    std::string GetQuorServer() override { return root_; }

   private:
    std::string root_;
  };

  class Rules final : public XmlTextRules {
   public:
    Rules(std::unique_ptr<XmlTextRules> rules, Storing storing)
        : rules_(std::move(rules)), storing_(std::move(storing)) {}
    std::string mstrCheckSpecialCharecters(std::string_view text) override {
      return storing_(std::string(text));
    }
    std::string mstrReplaceSpecialCharecters(std::string_view text) override {
      return rules_->mstrReplaceSpecialCharecters(text);
    }
    std::string ReplaceSpecCharToXMLChar(std::string_view text) override {
      return rules_->ReplaceSpecCharToXMLChar(text);
    }
    bool CheckReplacedXMLCharacters(std::string_view text, std::string_view label) override {
      return rules_->CheckReplacedXMLCharacters(text, label);
    }

   private:
    std::unique_ptr<XmlTextRules> rules_;
    Storing storing_;
  };

  class Copier final : public FileCopy {
   public:
    explicit Copier(Copying copying) : copying_(std::move(copying)) {}
    bool mbCopyFiles(std::string_view destination,
                     std::string_view source,
                     std::int16_t reservedOverwrite,
                     std::int16_t reservedDialog) override {
      return copying_(
          std::string(destination), std::string(source), reservedOverwrite, reservedDialog);
    }
    void copyLinkedFiles(std::string_view /*destination*/, std::string_view /*page*/) override {}
    void flush() override {}

   private:
    Copying copying_;
  };

  Toolset& toolset_;
  std::optional<std::string> server_;
  Copying copying_;
  Storing storing_;
};

}  // namespace quorbind::testing
