#include "platform/windows/windows_toolset.h"

#include "platform/windows/automation.h"

namespace quorbind {

namespace {

Variant text(std::string_view value) {
  return Variant::ofText(value);
}

class AutomatedLibraryServices final : public LibraryServices {
 public:
  std::string GetQuorServer() override { return object_.call("GetQuorServer").text(); }

 private:
  AutomationObject object_ = AutomationObject::create("Quor_LibraryServices.clsLibraryServices");
};

class AutomatedXmlTextRules final : public XmlTextRules {
 public:
  std::string mstrCheckSpecialCharecters(std::string_view value) override {
    return object_.call("mstrCheckSpecialCharecters", text(value)).text();
  }
  std::string mstrReplaceSpecialCharecters(std::string_view value) override {
    return object_.call("mstrReplaceSpecialCharecters", text(value)).text();
  }
  std::string ReplaceSpecCharToXMLChar(std::string_view value) override {
    return object_.call("ReplaceSpecCharToXMLChar", text(value)).text();
  }
  bool CheckReplacedXMLCharacters(std::string_view value, std::string_view label) override {
    return object_.call("CheckReplacedXMLCharacters", text(value), text(label)).boolean();
  }

 private:
  AutomationObject object_ = AutomationObject::create("Quor_XmlTextRules.clsXmlTextRules");
};

class AutomatedLinkFileServices final : public LinkFileServices {
 public:
  void GenerateXMLHeader(std::string_view path,
                         std::string_view description,
                         std::string_view root) override {
    object_.call("GenerateXMLHeader", text(path), text(description), text(root));
  }
  void MergeLinkIDFiles(std::string_view target, std::string_view source) override {
    object_.call("MergeLinkIDFiles", text(target), text(source));
  }
  std::string GetFolderName(std::string_view acronym, std::string_view product) override {
    return object_.call("GetFolderName", text(acronym), text(product)).text();
  }

 private:
  AutomationObject object_ = AutomationObject::create("Quor_LinkFileServices.clsLinkFileServices");
};

class AutomatedProductServices final : public ProductServices {
 public:
  std::vector<std::string> GetAvailableProducts() override {
    return textsIn(object_.call("GetAvailableProducts"));
  }

 private:
  AutomationObject object_ = AutomationObject::create("Quor_ProductServices.clsProductServices");
};

class AutomatedFileCopy final : public FileCopy {
 public:
  bool mbCopyFiles(std::string_view destination,
                   std::string_view source,
                   std::int16_t reservedOverwrite,
                   std::int16_t reservedDialog) override {
    return object_
        .call("mbCopyFiles",
              text(destination),
              text(source),
              Variant::ofShort(reservedOverwrite),
              Variant::ofShort(reservedDialog))
        .boolean();
  }
  void copyLinkedFiles(std::string_view destination, std::string_view page) override {
    if (object_.has(kCopyLinkedFiles)) {
      object_.call(kCopyLinkedFiles, text(destination), text(page));
    }
  }
  void flush() override {
    if (object_.has(kFlush)) {
      object_.call(kFlush);
    }
  }

 private:
  static constexpr std::string_view kCopyLinkedFiles = "copyLinkedFiles";
  static constexpr std::string_view kFlush = "flush";

  AutomationObject object_ = AutomationObject::create("Quor_FileCopy.clsFileCopy");
};

}  // namespace

std::unique_ptr<LibraryServices> WindowsToolset::createLibraryServices() {
  return std::make_unique<AutomatedLibraryServices>();
}

std::unique_ptr<XmlTextRules> WindowsToolset::createXmlTextRules() {
  return std::make_unique<AutomatedXmlTextRules>();
}

std::unique_ptr<LinkFileServices> WindowsToolset::createLinkFileServices() {
  return std::make_unique<AutomatedLinkFileServices>();
}

std::unique_ptr<ProductServices> WindowsToolset::createProductServices() {
  return std::make_unique<AutomatedProductServices>();
}

std::unique_ptr<FileCopy> WindowsToolset::createFileCopy() {
  return std::make_unique<AutomatedFileCopy>();
}

}  // namespace quorbind
