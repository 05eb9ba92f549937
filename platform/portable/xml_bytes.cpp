#include "platform/portable/xml_bytes.h"

#include <cstring>
#include <utility>

#include "platform/text_encoding.h"
#include "platform/xml_writer.h"

namespace quorbind {

namespace {

constexpr std::size_t kBufferSize = std::size_t{64} * 1024;
/// Of UTF-16: what is longer and no character will not become one.
constexpr std::size_t kLongestCharacter = 4;

constexpr std::string_view kUtf8Declaration = R"(<?xml version="1.0" encoding="UTF-8"?>)";

const std::string& beginningOfOurs() {
  static const std::string kBeginning = [] {
    std::string bytes(kUtf16LittleEndianMark);
    appendUtf16LittleEndian(bytes, kUnicodeDeclaration);
    return bytes;
  }();
  return kBeginning;
}

}  // namespace

XmlBytes::XmlBytes(std::unique_ptr<ByteReader> bytes, Utf16 utf16)
    : bytes_(std::move(bytes)), utf16_(utf16), buffer_(kBufferSize, '\0') {}

std::size_t XmlBytes::take(char* buffer, std::size_t size) {
  if (unread_.empty()) {
    refill();
  }
  const std::size_t count = unread_.copy(buffer, size);
  unread_.remove_prefix(count);
  return count;
}

void XmlBytes::refill() {
  if (!hasBegun_) {
    begin();
  } else if (isRecoding_) {
    refillRecoded();
  } else {
    size_ = 0;
    readOn();
    unread_ = {buffer_.data(), size_};
  }
}

void XmlBytes::begin() {
  const std::string& ours = beginningOfOurs();
  hasBegun_ = true;
  while (readOn() && size_ < ours.size()) {
  }
  unread_ = {buffer_.data(), size_};
  isRecoding_ = utf16_ == Utf16::kAsUtf8 && unread_.starts_with(ours);
  if (isRecoding_) {
    size_ -= ours.size();
    std::memmove(buffer_.data(), buffer_.data() + ours.size(), size_);
    unread_ = kUtf8Declaration;
  }
}

void XmlBytes::refillRecoded() {
  recoded_.clear();
  bool isAtEnd = endedEarly_;
  while (recoded_.empty() && !isAtEnd) {
    isAtEnd = !readOn();
    const std::size_t valid =
        appendUtf16Prefix(recoded_, {buffer_.data(), size_}, ByteOrder::kLittleEndian);
    size_ -= valid;
    std::memmove(buffer_.data(), buffer_.data() + valid, size_);
    endedEarly_ = size_ >= kLongestCharacter || (isAtEnd && size_ > 0);
    isAtEnd = isAtEnd || endedEarly_;
  }
  unread_ = recoded_;
}

bool XmlBytes::readOn() {
  const std::size_t count = bytes_->read(buffer_.data() + size_, buffer_.size() - size_);
  size_ += count;
  return count > 0;
}

}  // namespace quorbind
