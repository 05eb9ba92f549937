#include "sidefiles/side_file.h"

#include <utility>

#include "platform/error_trap.h"

namespace quorbind {

SideFile::SideFile(const Platform& platform, std::string path)
    : platform_(platform), path_(std::move(path)) {}

bool SideFile::load() {
  if (document_ == nullptr) {
    document_ = platform_.xml.createDocument();
  }
  if (!loaded_) {
    loaded_ = document_->load(path_).loaded;
  }
  return loaded_;
}

void SideFile::save() {
  try {
    document_->save(path_);
  } catch (...) {
    forget();
    throw;
  }
}

void SideFile::forget() {
  dropIndex();
  document_.reset();
  loaded_ = false;
}

bool SideFile::isGone() {
  forget();
  bool loads = true;
  ignoringErrors([&] { loads = load(); });
  forget();
  return !loads;
}

XmlNode appendTextElement(XmlDocument& document,
                          const XmlNode& parent,
                          std::string_view tag,
                          std::string_view text) {
  XmlNode element = document.createElement(tag);
  element.setText(text);
  parent.append(element);
  return element;
}

}  // namespace quorbind
