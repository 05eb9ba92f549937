#pragma once

#include <string_view>

#include "toc/book_place.h"

namespace quorbind {

/// The place that a page states for its book: what will be read from the first entry of its export,
/// known before the page has had any effect. `fileBefore` is the document that the check examined
/// last, which the first heading takes over when its own link and that of the title are empty. No
/// line is told. A page whose first heading is missing or links nowhere states none.
StatedPlace statedPlaceOfPage(std::string_view page, std::string_view fileBefore = {});

}  // namespace quorbind
