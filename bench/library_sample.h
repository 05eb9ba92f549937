#pragma once

#include <array>
#include <cstddef>
#include <string>

#include "tests/support/world.h"

namespace quorbind::bench {

/// How many categories the library has besides the one for books without any.
inline constexpr std::size_t kCategoryCount = 10;

// The files of a library, as the system has them, and as the component is told them.
inline constexpr const char* kLibrary = "Plant";
inline constexpr const char* kLibraryFolder = "Docs/Plant/";
inline constexpr const char* kSelectionListFile = "Docs/Quor_Selection.xml";
inline constexpr const char* kLibraryCatalogueFile = "Docs/Plant/Quor_TOC.xml";
inline constexpr const char* kLibraryCatalogue = R"(C:\Docs\Plant\Quor_TOC.xml)";
inline constexpr const char* kOtherCatalogueFile = "Other.xml";
inline constexpr const char* kOtherCatalogue = R"(C:\Other.xml)";
inline constexpr const char* kLargeBookFile = "Book_B0.xml";
inline constexpr const char* kLargeBook = R"(C:\Book_B0.xml)";
inline constexpr const char* kDefaultsFile = "Docs/Quor_DefaultCategories.xml";
inline constexpr const char* kDefaultsPath = R"(C:\Docs\Quor_DefaultCategories.xml)";
inline constexpr const char* kServerFolder = R"(C:\Docs\)";
inline constexpr const char* kCategoriesFile = "Docs/Plant/Quor_BookCategories.xml";
inline constexpr const char* kCategoriesPath = R"(C:\Docs\Plant\Quor_BookCategories.xml)";
inline constexpr const char* kKeywordsFile = "Docs/Plant/Quor_SearchKeywords.xml";
inline constexpr const char* kKeywordsPath = R"(C:\Docs\Plant\Quor_SearchKeywords.xml)";
inline constexpr const char* kLinksFile = "Docs/Plant/Quor_LinkID.xml";
inline constexpr const char* kOtherLinksFile = "Docs/Other/Quor_LinkID.xml";
/// Where a book of that other library lies.
inline constexpr const char* kOtherBookFolder = R"(C:\Docs\Other\B0)";
inline constexpr const char* kDocumentFile = "guide.pdf";
inline constexpr const char* kDocument = R"(C:\guide.pdf)";
inline constexpr const char* kLinksPath = R"(C:\Docs\Plant\Quor_LinkID.xml)";

// The texts of the n-th book, from 0.
std::string nameOfBook(std::size_t book);
std::string acronymOfBook(std::size_t book);
/// Whether it has a book XML file: every thousandth has, the others are single documents. A merge
/// that rewrote more of them would be a measure of flushing small files.
bool hasBookXml(std::size_t book);
/// Its file, as the system has it.
std::string fileOfBook(std::size_t book);
std::string nameOfCategory(std::size_t category);
std::string keywordOf(std::size_t index);
std::string identifierOf(std::size_t index);

// Whole files, in UTF-16 with CR LF, as they are when the component has saved them.
std::string selectionListOf(std::size_t libraries);
std::string catalogueOf(std::size_t books, std::size_t categoriesOfEach, std::string_view link);
std::string contentOfBook(std::size_t book);
/// The book XML file of the first book, with so many headings.
std::string bookFileOf(std::size_t headings);
/// So many categories for a new library.
std::string defaultCategoriesOf(std::size_t categories);
/// So many categories with as many books in each, and the one for books without any.
std::string categoriesFileOf(std::size_t categories, std::size_t books);
std::string keywordsFileOf(std::size_t keywords);
std::string linksFileOf(std::size_t identifiers);
/// The export of a table of contents, every entry of which has a link identifier.
std::string exportWithIdentifiers(std::size_t identifiers);

/// Whether a file of a world's disk, in UTF-16, has that text in it.
bool fileSays(const testing::World& world, std::string_view name, std::string_view text);
/// An element that holds nothing but text, as it stands in a file.
std::string element(std::string_view name, std::string_view text);

/// A file of a world's disk, by the system's path.
std::string systemPathOf(const testing::World& world, std::string_view name);

}  // namespace quorbind::bench
