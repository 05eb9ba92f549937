#pragma once

#include <cstddef>
#include <memory>
#include <string>
#include <string_view>

#include "platform/file_system.h"

namespace quorbind {

/// The bytes of an XML file on their way to libxml2, which asks for small pieces: asking the system
/// for each would take longer.
///
/// A file in UTF-16 that begins as all of ours do, letter by letter, can come in UTF-8, with a
/// declaration that says so. libxml2 would do the same to it, and takes a quarter of the whole load
/// for that.
class XmlBytes {
 public:
  enum class Utf16 {
    kAsItStands,
    kAsUtf8,  ///< where the file begins as ours do
  };

  XmlBytes(std::unique_ptr<ByteReader> bytes, Utf16 utf16);

  /// Takes up to `size` bytes and answers how many came; 0 only at the end. Raises what reading
  /// does.
  std::size_t take(char* buffer, std::size_t size);
  /// Lets go of the file. Nothing can be taken any more.
  void close() { bytes_.reset(); }

  /// Whether the bytes came as UTF-8 and the file is in UTF-16.
  [[nodiscard]] bool areRecoded() const { return isRecoding_; }
  /// Whether they ended where the file holds no valid UTF-16. What a parser makes of such a file is
  /// its own business: it has to be given the file as it stands.
  [[nodiscard]] bool endedEarly() const { return endedEarly_; }

 private:
  void begin();
  void refill();
  void refillRecoded();
  /// Answers whether anything came.
  bool readOn();

  std::unique_ptr<ByteReader> bytes_;
  Utf16 utf16_;
  bool hasBegun_ = false;
  bool isRecoding_ = false;
  bool endedEarly_ = false;
  /// What came from the file; the first `size_` bytes of it were not looked at yet.
  std::string buffer_;
  std::size_t size_ = 0;
  std::string recoded_;
  /// What was not taken yet.
  std::string_view unread_;
};

}  // namespace quorbind
