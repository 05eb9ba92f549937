#include "component/server/conversion.h"

#include <cstddef>
#include <utility>

namespace quorbind {

namespace {

/// Owns an array.
class SafeArray {
 public:
  explicit SafeArray(SAFEARRAY* array) : array_(array) {
    if (array == nullptr) {
      raise(ErrorNumber::kOutOfMemory);
    }
  }
  SafeArray(const SafeArray&) = delete;
  SafeArray& operator=(const SafeArray&) = delete;
  ~SafeArray() { ::SafeArrayDestroy(array_); }

  [[nodiscard]] SAFEARRAY* get() const { return array_; }
  [[nodiscard]] SAFEARRAY* detach() { return std::exchange(array_, nullptr); }

 private:
  SAFEARRAY* array_;
};

VARTYPE elementTypeOf(SAFEARRAY* array) {
  VARTYPE type = VT_EMPTY;
  const bool isList = ::SafeArrayGetDim(array) == 1;
  const bool isText = isList && SUCCEEDED(::SafeArrayGetVartype(array, &type)) &&
                      (type == VT_BSTR || type == VT_VARIANT);
  if (!isText) {
    raise(ErrorNumber::kTypeMismatch);
  }
  return type;
}

std::string elementOf(SAFEARRAY* array, VARTYPE type, LONG index) {
  if (type == VT_BSTR) {
    Bstr element;
    requireSuccess(::SafeArrayGetElement(array, &index, element.put()));
    return element.text();
  }
  Variant element;
  requireSuccess(::SafeArrayGetElement(array, &index, element.put()));
  return element.text();
}

void putElement(SAFEARRAY* array, VARTYPE type, LONG index, const std::string& text) {
  if (type == VT_BSTR) {
    requireSuccess(::SafeArrayPutElement(array, &index, Bstr(text).get()));
    return;
  }
  const Variant element = Variant::ofText(text);
  requireSuccess(::SafeArrayPutElement(array, &index, const_cast<VARIANT*>(&element.get())));
}

/// The elements of an array while nobody else can change it.
class LockedArray {
 public:
  explicit LockedArray(SAFEARRAY* array) : array_(array) {
    requireSuccess(::SafeArrayAccessData(array, &elements_));
  }
  LockedArray(const LockedArray&) = delete;
  LockedArray& operator=(const LockedArray&) = delete;
  ~LockedArray() { ::SafeArrayUnaccessData(array_); }

  /// Puts a text in the place of the element that is so far behind the first. Can't fail.
  void put(std::size_t place, VARTYPE type, Bstr text) noexcept {
    if (type == VT_BSTR) {
      ::SysFreeString(std::exchange(static_cast<BSTR*>(elements_)[place], text.detach()));
      return;
    }
    VARIANT value{};
    value.vt = VT_BSTR;
    value.bstrVal = text.detach();
    VARIANT old = std::exchange(static_cast<VARIANT*>(elements_)[place], value);
    ::VariantClear(&old);
  }

 private:
  SAFEARRAY* array_;
  void* elements_ = nullptr;
};

SAFEARRAY* makeArray(VARTYPE type, const TextArray& content) {
  SAFEARRAYBOUND bound{static_cast<ULONG>(content.texts.size()), content.lowerBound};
  SafeArray array(::SafeArrayCreate(type, 1, &bound));
  LONG index = content.lowerBound;
  for (const std::string& text : content.texts) {
    putElement(array.get(), type, index++, text);
  }
  return array.detach();
}

}  // namespace

std::vector<std::string> textsOf(SAFEARRAY* array) {
  std::vector<std::string> texts;
  if (array == nullptr) {
    return texts;
  }
  const VARTYPE type = elementTypeOf(array);
  LONG last = 0;
  requireSuccess(::SafeArrayGetUBound(array, 1, &last));
  for (LONG index = lowerBoundOf(array); index <= last; ++index) {
    texts.push_back(elementOf(array, type, index));
  }
  return texts;
}

std::int32_t lowerBoundOf(SAFEARRAY* array) {
  LONG first = 0;
  if (array != nullptr) {
    requireSuccess(::SafeArrayGetLBound(array, 1, &first));
  }
  return first;
}

TextArray textArrayOf(SAFEARRAY* array) {
  return {textsOf(array), lowerBoundOf(array), array != nullptr};
}

void putTexts(SAFEARRAY* array, const std::vector<std::string>& texts) {
  if (array == nullptr) {
    return;
  }
  const VARTYPE type = elementTypeOf(array);
  const LONG first = lowerBoundOf(array);
  // All are made before the first is put: the texts may be the same ones in another order, and none
  // of them may get lost on the way.
  std::vector<std::pair<std::size_t, Bstr>> changed;
  for (std::size_t place = 0; place < texts.size(); ++place) {
    if (elementOf(array, type, first + static_cast<LONG>(place)) != texts[place]) {
      changed.emplace_back(place, Bstr(texts[place]));
    }
  }
  LockedArray elements(array);
  for (auto& [place, text] : changed) {
    elements.put(place, type, std::move(text));
  }
}

void putText(BSTR* variable, const std::string& text) {
  if (textOf(*variable) != text) {
    Bstr held(text);
    ::SysFreeString(std::exchange(*variable, held.detach()));
  }
}

void give(VARIANT_BOOL* result, bool value) {
  *result = value ? VARIANT_TRUE : VARIANT_FALSE;
}

void give(LONG* result, std::int32_t value) {
  *result = value;
}

void give(BSTR* result, const std::string& text) {
  *result = Bstr(text).detach();
}

void give(SAFEARRAY** result, const TextArray& array) {
  *result = makeArray(VT_BSTR, array);
}

void give(SAFEARRAY** result, const std::vector<std::string>& list) {
  *result = list.empty() ? nullptr : makeArray(VT_BSTR, {list});
}

SAFEARRAY* copyWithVariants(SAFEARRAY* texts) {
  return texts == nullptr ? nullptr : makeArray(VT_VARIANT, textArrayOf(texts));
}

}  // namespace quorbind
