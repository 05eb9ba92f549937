#pragma once

// Owners for what the platform hands out, and the two translations at its edge: text (UTF-8 inside,
// UTF-16 outside) and failures (run-time errors inside, result codes outside).

#include <ole2.h>

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <utility>

#include "platform/runtime_error.h"

namespace quorbind {

/// UTF-16 from UTF-8. Invalid bytes come out as U+FFFD.
std::wstring toWide(std::string_view utf8);

/// UTF-8 from UTF-16. Unpaired surrogates come out as U+FFFD.
std::string toUtf8(std::wstring_view text);

/// The run-time error for a result that is a failure, with the description that the system has for
/// it. A result of the run-time's own kind (0x800Annnn) becomes its number, one of late binding the
/// number that a host knows for it, every other one stays as it is.
RunTimeError runTimeErrorOf(HRESULT failure);
/// The same with the failing object's own description; the system's when that is empty.
RunTimeError runTimeErrorOf(HRESULT failure, std::string description);

/// The result that carries the number of `error` to a caller outside.
HRESULT resultOf(const RunTimeError& error);

/// Raises the run-time error for `result` when that is a failure.
void requireSuccess(HRESULT result);
/// The same for a result of a call to `object` by its interface `id`, with the description that the
/// object left behind.
void requireSuccess(HRESULT result, IUnknown* object, REFIID id);

/// What `object` left behind about the last failure of its interface `id`; empty when it does not
/// do so.
std::string descriptionLeftBy(IUnknown* object, REFIID id);

/// Keeps a reference to a COM object, or none.
template <typename Interface>
class ComPtr {
 public:
  ComPtr() = default;
  ComPtr(const ComPtr& other) : object_(other.object_) { retain(); }
  ComPtr(ComPtr&& other) noexcept : object_(other.detach()) {}
  ComPtr& operator=(ComPtr other) noexcept {
    std::swap(object_, other.object_);
    return *this;
  }
  ~ComPtr() { reset(); }

  /// Takes over a reference that the caller has.
  static ComPtr owning(Interface* object) { return ComPtr(object); }
  /// Adds a reference of its own.
  static ComPtr sharing(Interface* object) {
    ComPtr result(object);
    result.retain();
    return result;
  }

  [[nodiscard]] Interface* get() const { return object_; }
  Interface* operator->() const { return object_; }
  explicit operator bool() const { return object_ != nullptr; }

  /// Where a call may put an object together with a reference; empty before.
  Interface** put() {
    reset();
    return &object_;
  }
  /// The same for a call that is told the interface: `queryFor(object.id(), object.putAny())`.
  void** putAny() { return reinterpret_cast<void**>(put()); }
  static const IID& id() { return __uuidof(Interface); }

  /// Hands the reference to the caller.
  [[nodiscard]] Interface* detach() { return std::exchange(object_, nullptr); }
  void reset() {
    // Empty before the release: that may run code which looks here.
    if (Interface* object = detach()) {
      object->Release();
    }
  }

  /// The object's other interface; none when it does not have it.
  template <typename Other>
  [[nodiscard]] ComPtr<Other> as() const {
    ComPtr<Other> other;
    if (object_ != nullptr && FAILED(object_->QueryInterface(other.id(), other.putAny()))) {
      // What a failure leaves in the place is nobody's.
      static_cast<void>(other.detach());
    }
    return other;
  }

 private:
  explicit ComPtr(Interface* object) : object_(object) {}
  void retain() const {
    if (object_ != nullptr) {
      object_->AddRef();
    }
  }

  Interface* object_ = nullptr;
};

/// requireSuccess for a call to `object`.
template <typename Interface>
void requireSuccess(HRESULT result, const ComPtr<Interface>& object) {
  requireSuccess(result, object.get(), object.id());
}

/// The text in a BSTR that somebody else owns; null is the empty text.
std::string textOf(BSTR text);

/// Owns a BSTR. Null is the empty text. Raises 7 when memory is short.
class Bstr {
 public:
  Bstr() = default;
  explicit Bstr(std::string_view utf8);
  Bstr(Bstr&& other) noexcept : text_(other.detach()) {}
  Bstr& operator=(Bstr&& other) noexcept {
    std::swap(text_, other.text_);
    return *this;
  }
  ~Bstr() { ::SysFreeString(text_); }

  [[nodiscard]] BSTR get() const { return text_; }
  [[nodiscard]] std::wstring_view view() const { return {text_, ::SysStringLen(text_)}; }
  [[nodiscard]] std::string text() const { return toUtf8(view()); }

  /// Where a call may put a text; empty before.
  BSTR* put();
  /// Hands the text to the caller.
  [[nodiscard]] BSTR detach() { return std::exchange(text_, nullptr); }

 private:
  BSTR text_ = nullptr;
};

/// Owns a VARIANT. The readers convert as automation does, and raise 13 when that can't be done.
class Variant {
 public:
  Variant() { ::VariantInit(&value_); }
  Variant(Variant&& other) noexcept : value_(other.detach()) {}
  Variant& operator=(Variant&& other) noexcept {
    std::swap(value_, other.value_);
    return *this;
  }
  ~Variant() { ::VariantClear(&value_); }

  static Variant ofText(std::string_view utf8);
  static Variant ofBoolean(bool value);
  static Variant ofInteger(std::int32_t value);
  static Variant ofShort(std::int16_t value);
  static Variant ofObject(ComPtr<IDispatch> object);
  /// An optional argument that is left out.
  static Variant missing();
  /// A copy of what somebody else owns, references in it followed.
  static Variant copyOf(const VARIANT& value);

  [[nodiscard]] std::string text() const;
  [[nodiscard]] bool boolean() const;
  [[nodiscard]] std::int32_t integer() const;
  /// Raises 424 when the value is no object.
  [[nodiscard]] ComPtr<IDispatch> object() const;

  [[nodiscard]] VARTYPE type() const { return value_.vt; }
  [[nodiscard]] const VARIANT& get() const { return value_; }
  /// Where a call may put a value; empty before.
  VARIANT* put();
  /// Hands the value to the caller.
  [[nodiscard]] VARIANT detach();

 private:
  [[nodiscard]] Variant as(VARTYPE type) const;

  VARIANT value_{};
};

/// Owns a kernel handle, or none: null and INVALID_HANDLE_VALUE both mean none.
class Handle {
 public:
  Handle() = default;
  explicit Handle(HANDLE handle) : handle_(handle == INVALID_HANDLE_VALUE ? nullptr : handle) {}
  Handle(Handle&& other) noexcept : handle_(std::exchange(other.handle_, nullptr)) {}
  Handle& operator=(Handle&& other) noexcept {
    std::swap(handle_, other.handle_);
    return *this;
  }
  ~Handle() { close(); }

  [[nodiscard]] HANDLE get() const { return handle_; }
  explicit operator bool() const { return handle_ != nullptr; }
  void close();

 private:
  HANDLE handle_ = nullptr;
};

/// Keeps COM usable on this thread, in a single-threaded apartment unless the thread already has
/// one of the other kind. For programs: a component's thread belongs to its host, which has done
/// so.
class ComApartment {
 public:
  ComApartment();
  ~ComApartment();
  ComApartment(const ComApartment&) = delete;
  ComApartment& operator=(const ComApartment&) = delete;

 private:
  bool entered_ = false;
};

}  // namespace quorbind
