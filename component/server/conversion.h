#pragma once

#include <ole2.h>

#include <cstdint>
#include <string>
#include <vector>

#include "platform/text_array.h"
#include "platform/windows/com_types.h"

// Values as automation carries them, and as the core does.

namespace quorbind {

inline bool isTrue(VARIANT_BOOL value) {
  return value != VARIANT_FALSE;
}

/// The texts of a one-dimensional array of texts, or of variants that convert to texts. An array
/// that is unset has none. Raises 13 for any other array.
std::vector<std::string> textsOf(SAFEARRAY* array);

/// The index of an array's first element; 0 for an array that is unset.
std::int32_t lowerBoundOf(SAFEARRAY* array);

/// Such an array with its lower bound; one that is unset is told apart.
TextArray textArrayOf(SAFEARRAY* array);

/// Puts `texts` back into the array that they were read from; it keeps its bounds and the type of
/// its elements. Elements that hold the same text already are left alone. What it raises leaves the
/// array as it was.
void putTexts(SAFEARRAY* array, const std::vector<std::string>& texts);

/// Puts `text` into the variable that a text is passed by; one that holds it already is left alone.
void putText(BSTR* variable, const std::string& text);

// How a result is handed to the caller, who owns it from then on.
void give(VARIANT_BOOL* result, bool value);
void give(LONG* result, std::int32_t value);
void give(BSTR* result, const std::string& text);
void give(SAFEARRAY** result, const TextArray& array);
/// A list from index 0 on. One without entries could not be had: the array stays unset.
void give(SAFEARRAY** result, const std::vector<std::string>& list);

/// A new array of variants with the texts and the bounds of `texts`, for the caller to destroy;
/// null for an array that is unset.
SAFEARRAY* copyWithVariants(SAFEARRAY* texts);

}  // namespace quorbind
