#include "cli/job_file.h"

#include <toml++/toml.h>

#include <algorithm>
#include <array>
#include <cstddef>
#include <cstdint>
#include <filesystem>
#include <limits>
#include <optional>
#include <string_view>

#include "cli/failure.h"
#include "cli/grammar.h"
#include "cli/marked_line.h"
#include "cli/paths.h"
#include "cli/suggestion.h"
#include "cli/text_list.h"
#include "cli/toc_file.h"
#include "platform/text.h"

namespace quorbind {

namespace {

constexpr std::string_view kBook = "book";
constexpr std::string_view kToc = "toc";
constexpr std::string_view kServer = "server";
constexpr std::string_view kLibrary = "library";
constexpr std::string_view kKind = "kind";
constexpr std::string_view kInstallType = "install-type";
constexpr std::string_view kKeywords = "keywords";
constexpr std::string_view kStopAtFirst = "stop-at-first";

// What a parsed file takes is a hundred times the file.
constexpr std::size_t kLargestJobFile = std::size_t{1} << 20U;
/// The parser follows the parts of a dotted key into the depth, and no key here has any.
constexpr std::ptrdiff_t kMostDotsOfALine = 64;
constexpr std::string_view kByteOrderMark = "\xEF\xBB\xBF";

struct TextKey {
  std::string_view name;
  std::optional<std::string> AddArguments::*value;
};
constexpr std::array kOptionalTexts{TextKey{"kind", &AddArguments::kind},
                                    TextKey{"name", &AddArguments::name},
                                    TextKey{"acro", &AddArguments::acronym},
                                    TextKey{"folder", &AddArguments::folder}};
struct ListKey {
  std::string_view name;
  std::string AddArguments::*value;
};
constexpr std::array kLists{ListKey{"category", &AddArguments::category},
                            ListKey{kKeywords, &AddArguments::keywords},
                            ListKey{"categories", &AddArguments::categories}};
struct FlagKey {
  std::string_view name;
  bool AddArguments::*value;
};
constexpr std::array kFlags{FlagKey{"create-categories", &AddArguments::createCategories},
                            FlagKey{"no-input", &AddArguments::noInput}};

/// Keys that only one of the two kinds of tables has.
const std::vector<std::string> kOfTheJob{std::string(kBook), std::string(kStopAtFirst)};
const std::vector<std::string> kOfABook{std::string(kToc), "name", "acro"};

std::string contentsOf(FileSystem& files, const std::string& name) {
  std::string contents;
  readingInput(name, [&] {
    const auto reader = files.open(componentFile(name));
    std::array<char, 4096> bytes{};
    while (const std::size_t count = reader->read(bytes.data(), bytes.size())) {
      contents.append(bytes.data(), count);
      if (contents.size() > kLargestJobFile) {
        throw CommandFailure(ExitStatus::kNotParseable, name + ": it is too large for a job file");
      }
    }
  });
  return contents.starts_with(kByteOrderMark) ? contents.substr(kByteOrderMark.size()) : contents;
}

class JobReader {
 public:
  JobReader(const std::string& name, const std::string& contents)
      : name_(name), contents_(contents) {}

  Job read(const AddArguments& given) {
    const toml::table root = parsed();
    Job job;
    AddArguments common = given;
    readKeys(root, common, kOfTheJob);
    if (const toml::node* stop = root.get(kStopAtFirst)) {
      job.stopsAtFirst = valueOf<bool>(kStopAtFirst, *stop, "true or false");
    }
    for (const toml::node& book : booksIn(root)) {
      job.additions.push_back(additionOf(*book.as_table(), common));
    }
    return job;
  }

 private:
  toml::table parsed() {
    refuseDeepKeys();
    try {
      return toml::parse(contents_);
    } catch (const toml::parse_error& error) {
      fail(error.source(), std::string(error.description()), ExitStatus::kNotParseable);
    }
  }

  void refuseDeepKeys() const {
    toml::source_index number = 0;
    for (const std::string_view line : Pieces(contents_, "\n")) {
      ++number;
      if (std::count(line.begin(), line.end(), '.') > kMostDotsOfALine) {
        const toml::source_position begin{number, 1};
        fail({begin, begin, {}}, "there are too many dots in a line", ExitStatus::kNotParseable);
      }
    }
  }

  const toml::array& booksIn(const toml::table& root) {
    const toml::node* books = root.get(kBook);
    if (books == nullptr) {
      fail({}, "there is no [[book]]: each table of contents has one");
    }
    const toml::array* list = books->as_array();
    if (list == nullptr || !list->is_homogeneous(toml::node_type::table)) {
      fail(books->source(), "write [[book]] in front of what belongs to a table of contents");
    }
    return *list;
  }

  AddArguments additionOf(const toml::table& book, const AddArguments& common) {
    AddArguments addition = common;
    const toml::node* toc = book.get(kToc);
    if (toc == nullptr) {
      fail(book.source(), "the book has no toc, which names its table of contents");
    }
    addition.toc = besideJob(textOf(kToc, *toc));
    readKeys(book, addition, kOfABook);
    for (const auto& [key, value] :
         {std::pair{kServer, addition.place.server}, std::pair{kLibrary, addition.place.library}}) {
      if (value.empty()) {
        fail(book.source(),
             "the book has no " + std::string(key) + "; give it here, at the top or as --" +
                 std::string(key));
      }
    }
    return addition;
  }

  void readKeys(const toml::table& table,
                AddArguments& arguments,
                const std::vector<std::string>& keysOfItsOwn) {
    for (const auto& [key, value] : table) {
      readKey(key, value, arguments, keysOfItsOwn);
    }
  }

  void readKey(const toml::key& key,
               const toml::node& value,
               AddArguments& arguments,
               const std::vector<std::string>& keysOfItsOwn) {
    const std::string_view name = key.str();
    const std::vector<std::string> known = keysWith(keysOfItsOwn);
    if (std::find(known.begin(), known.end(), name) == known.end()) {
      fail(key.source(),
           "there is no key '" + std::string(name) + "' here." + suggestionFor(name, known));
    }
    if (name == kServer) {
      arguments.place.server = besideJob(textOf(name, value));
    } else if (name == kLibrary) {
      arguments.place.library = textOf(name, value);
      require(refusalOfLibraryName(arguments.place.library), value);
    } else if (name == kInstallType) {
      arguments.installType = numberOf(name, value);
    }
    for (const TextKey& text : kOptionalTexts) {
      if (name == text.name) {
        arguments.*text.value = valueOf<std::string>(name, value, "a text");
      }
    }
    for (const ListKey& list : kLists) {
      if (name == list.name) {
        arguments.*list.value = listOf(name, value);
      }
    }
    for (const FlagKey& flag : kFlags) {
      if (name == flag.name) {
        arguments.*flag.value = valueOf<bool>(name, value, "true or false");
      }
    }
    if (name == kKind && kindOf("", arguments.kind) == 0) {
      fail(value.source(), "kind has to be xml, html, excel or text");
    }
  }

  static std::vector<std::string> keysWith(const std::vector<std::string>& keysOfItsOwn) {
    std::vector<std::string> keys = keysOfItsOwn;
    for (const std::string_view key : {kServer, kLibrary, kInstallType}) {
      keys.emplace_back(key);
    }
    for (const TextKey& text : kOptionalTexts) {
      const bool namesABook = text.name == "name" || text.name == "acro";
      if (!namesABook) {
        keys.emplace_back(text.name);
      }
    }
    for (const ListKey& list : kLists) {
      keys.emplace_back(list.name);
    }
    for (const FlagKey& flag : kFlags) {
      keys.emplace_back(flag.name);
    }
    return keys;
  }

  template <typename Value>
  Value valueOf(std::string_view key, const toml::node& value, std::string_view wanted) {
    if (const auto read = value.value_exact<Value>()) {
      return *read;
    }
    fail(value.source(), std::string(key).append(" has to be ").append(wanted));
  }

  std::string textOf(std::string_view key, const toml::node& value) {
    auto text = valueOf<std::string>(key, value, "a text");
    if (text.empty()) {
      fail(value.source(), std::string(key) + " must not be empty");
    }
    return text;
  }

  std::int32_t numberOf(std::string_view key, const toml::node& value) {
    const auto number = valueOf<std::int64_t>(key, value, "a whole number");
    if (number < std::numeric_limits<std::int32_t>::min() ||
        number > std::numeric_limits<std::int32_t>::max()) {
      fail(value.source(), std::string(key) + " is out of range");
    }
    return static_cast<std::int32_t>(number);
  }

  /// A list as its flag takes it, or its entries one by one.
  std::string listOf(std::string_view key, const toml::node& value) {
    const toml::array* entries = value.as_array();
    if (entries == nullptr) {
      return valueOf<std::string>(key, value, "a text or a list of texts");
    }
    std::vector<std::string> texts;
    for (const toml::node& entry : *entries) {
      texts.push_back(valueOf<std::string>(key, entry, "a text or a list of texts"));
      requireNoneOf(separatorsOf(key), texts.back(), key, entry);
    }
    return joined(texts, kListSeparator);
  }

  /// Keywords are separated by `;` alone, other lists by `,` as well.
  static std::vector<std::string> separatorsOf(std::string_view key) {
    std::vector<std::string> separators{std::string(kListSeparator)};
    if (key != kKeywords) {
      separators.emplace_back(",");
    }
    return separators;
  }

  void requireNoneOf(const std::vector<std::string>& separators,
                     std::string_view text,
                     std::string_view key,
                     const toml::node& entry) const {
    for (const std::string& separator : separators) {
      if (contains(text, separator)) {
        fail(entry.source(), "an entry of " + std::string(key) + " must not hold " + separator);
      }
    }
  }

  void require(const std::string& refusal, const toml::node& value) {
    if (!refusal.empty()) {
      fail(value.source(), refusal);
    }
  }

  [[nodiscard]] std::string besideJob(const std::string& path) const {
    return (std::filesystem::path(name_).parent_path() / path).string();
  }

  [[noreturn]] void fail(const toml::source_region& source,
                         const std::string& what,
                         ExitStatus status = ExitStatus::kRefused) const {
    const std::size_t line = source.begin.line;
    std::string message = placeIn(name_, line, source.begin.column) + what;
    if (line > 0) {
      const bool isOnOneLine = source.end.line == line && source.end.column > source.begin.column;
      const std::size_t length = isOnOneLine ? source.end.column - source.begin.column : 1;
      message +=
          "\n" + markedLine(std::to_string(line), textOfLine(line), source.begin.column, length);
      message.pop_back();
    }
    throw CommandFailure(status, message);
  }

  [[nodiscard]] std::string_view textOfLine(std::size_t number) const {
    const Pieces lines(contents_, "\n");
    const std::string_view line = number <= lines.count() ? lines.at(number - 1) : "";
    return line.ends_with('\r') ? line.substr(0, line.size() - 1) : line;
  }

  static constexpr std::string_view kListSeparator = ";";

  const std::string& name_;
  const std::string& contents_;
};

}  // namespace

Job readJobFile(FileSystem& files, const std::string& name, const AddArguments& given) {
  const std::string contents = contentsOf(files, name);
  return JobReader(name, contents).read(given);
}

}  // namespace quorbind
