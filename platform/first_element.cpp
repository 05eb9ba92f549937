#include "platform/first_element.h"

#include "platform/error_trap.h"

namespace quorbind {

bool FirstElement::lookFor(XmlLibrary& xml,
                           std::string_view path,
                           const std::function<std::string()>& query) {
  begin();
  std::string made;
  error_ = errorOf([&] { made = query(); });
  return error_ ? xml.createDocument()->load(path).loaded
                : xml.visitSelected(path, made, *this).loaded;
}

bool FirstElement::isFound() const {
  if (error_) {
    throw RunTimeError(*error_);
  }
  return isFound_;
}

void FirstElement::begin() {
  isFound_ = false;
  error_.reset();
}

void FirstElement::visit(const XmlNode& element) {
  if (!isFound_) {
    isFound_ = true;
    error_ = errorOf([&] { read_(element); });
  }
}

}  // namespace quorbind
