#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "platform/platform.h"

namespace quorbind {

/// The installation type whose libraries begin with the categories of the larger product; every
/// other one begins with the ordinary ones.
inline constexpr std::int32_t kDeveloperProInstallation = 1000;

/// Where the file of default categories lists the names for an installation type.
std::string defaultCategoriesQuery(std::int32_t installationType);

/// Makes the categories file `vstrPath`, replacing one that stands there: the server's default
/// categories for the installation type, behind them "Other Category". With `blnCRM` it has no
/// category at all.
///
/// The defaults come from `Quor_DefaultCategories.xml` in `vstrServerPath`, which ends with a
/// separator. Where that file does not load, the categories file is left with its comment alone,
/// and the failure is reported.
void CreateBookCateXmlFile(const Platform& platform,
                           const std::string& vstrServerPath,
                           const std::string& vstrPath,
                           std::int32_t vlngInstallType,
                           bool blnCRM = false);

}  // namespace quorbind
