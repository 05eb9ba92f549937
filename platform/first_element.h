#pragma once

#include <functional>
#include <optional>
#include <string>
#include <string_view>
#include <utility>

#include "platform/runtime_error.h"
#include "platform/xml_document.h"

namespace quorbind {

/// Asks a file for one element, as loading it and then selecting the first match would.
///
/// Nothing shows before the whole file has been read, so that what is told of a file that does not
/// load is told of it alone: `read` picks out what the caller wants, and an error of its own, or of
/// a value that does not fit into the query, waits for `isFound`.
class FirstElement final : private XmlElementVisitor {
 public:
  /// Picks what is wanted out of the element, which does not outlive the call. May be called twice;
  /// the last time counts.
  using Read = std::function<void(const XmlNode&)>;

  explicit FirstElement(Read read) : read_(std::move(read)) {}

  /// Answers whether the file loads. `query` makes the query, and may raise.
  bool lookFor(XmlLibrary& xml, std::string_view path, const std::function<std::string()>& query);
  /// Behind a look that found a file that loads: whether it has the element. Raises what making the
  /// query or reading the element raised.
  [[nodiscard]] bool isFound() const;

 private:
  void begin() override;
  void visit(const XmlNode& element) override;

  Read read_;
  bool isFound_ = false;
  std::optional<RunTimeError> error_;
};

}  // namespace quorbind
