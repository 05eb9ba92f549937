#pragma once

#include <string_view>

// The names in a library's side files, written down once: docs/formats/ tells what they hold.

namespace quorbind {

/// A library's categories, and the books filed under each.
namespace category_names {
inline constexpr std::string_view kFile = "Quor_BookCategories.xml";
inline constexpr std::string_view kSet = "BookSet_Categories";
inline constexpr std::string_view kCategory = "Category";
inline constexpr std::string_view kName = "CategoryName";
inline constexpr std::string_view kBookAcro = "BookAcro";
inline constexpr std::string_view kCategoryPath = "BookSet_Categories/Category";
/// The category that takes the books without one, and stays behind all others.
inline constexpr std::string_view kOther = "Other Category";
}  // namespace category_names

/// The categories that a new library begins with, by installation type.
namespace default_category_names {
inline constexpr std::string_view kDefaults = "Default_Categories";
inline constexpr std::string_view kDeveloperPro = "Quor_Developer_Pro";
inline constexpr std::string_view kDeveloper = "Quor_Developer";
inline constexpr std::string_view kName = "CategoryName";
}  // namespace default_category_names

/// A library's search keywords, book by book.
namespace keyword_names {
inline constexpr std::string_view kFile = "Quor_SearchKeywords.xml";
inline constexpr std::string_view kBooks = "Books";
inline constexpr std::string_view kBook = "Book";
inline constexpr std::string_view kBookName = "Book_Name";
inline constexpr std::string_view kKeywords = "Keywords";
inline constexpr std::string_view kKeyword = "Keyword";
}  // namespace keyword_names

/// A library's link identifiers: under the root one list, in it one entry per identifier.
namespace link_names {
inline constexpr std::string_view kFile = "Quor_LinkID.xml";
inline constexpr std::string_view kDescription = "Inter Book Linking data file";
inline constexpr std::string_view kLinks = "LINKS";
inline constexpr std::string_view kList = "IBD";
inline constexpr std::string_view kId = "ID";
inline constexpr std::string_view kLinkId = "LinkID";
inline constexpr std::string_view kFullLink = "FullLink";
inline constexpr std::string_view kSourceFile = "LinkIDSourceFile";
inline constexpr std::string_view kBookAcro = "BookAcro";
inline constexpr std::string_view kListPath = "LINKS/IBD";
inline constexpr std::string_view kIdPath = "LINKS/IBD/ID";
}  // namespace link_names

}  // namespace quorbind
