#include "component/server/conversion.h"

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
  LONG index = lowerBoundOf(array);
  for (const std::string& text : texts) {
    if (elementOf(array, type, index) != text) {
      putElement(array, type, index, text);
    }
    ++index;
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
