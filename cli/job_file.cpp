#include "cli/job_file.h"

#include <toml++/toml.h>

#include <algorithm>
#include <array>
#include <cstddef>
#include <cstdint>
#include <filesystem>
#include <iterator>
#include <limits>
#include <optional>
#include <string_view>

#include "cli/failure.h"
#include "cli/grammar.h"
#include "cli/paths.h"
#include "cli/suggestion.h"
#include "cli/text_list.h"
#include "cli/toc_file.h"
#include "platform/file_bytes.h"
#include "platform/text.h"
#include "platform/text_encoding.h"

namespace quorbind {

namespace {

constexpr std::string_view kBook = "book";
constexpr std::string_view kToc = "toc";
constexpr std::string_view kServer = "server";
constexpr std::string_view kLibrary = "library";
constexpr std::string_view kKeywords = "keywords";
constexpr std::string_view kStopAtFirst = "stop-at-first";

// What a parsed file takes is a hundred times the file.
constexpr std::size_t kLargestJobFile = std::size_t{1} << 20U;
/// The parser follows the parts of a dotted key into the depth, and no key here has any.
constexpr std::ptrdiff_t kMostDotsOfALine = 64;

std::string textOfJob(FileSystem& files, const std::string& name) {
  std::optional<std::string> contents;
  readingInput(name, [&] { contents = bytesOf(files, componentFile(name), kLargestJobFile); });
  if (!contents) {
    throw brokenRule(RuleText::kJobFileTooLarge, {{"FILE", name}}, ExitStatus::kNotParseable);
  }
  return contents->starts_with(kUtf8Mark) ? contents->substr(kUtf8Mark.size()) : *contents;
}

class JobReader {
 public:
  /// All are kept by reference.
  JobReader(const std::string& name, const std::string& contents, const AddRequest& request)
      : name_(name), contents_(contents), request_(request) {}

  Job read() const {
    const toml::table root = parsed();
    Job job;
    job.stopsAtFirst = request_.stopsAtFirst;
    AddArguments common = request_;
    readKeys(root, common, keysOfTheJob());
    if (const toml::node* stop = root.get(kStopAtFirst)) {
      const bool ofFile = valueOf<bool>(kStopAtFirst, *stop, kSwitch);
      job.stopsAtFirst = request_.given.contains(kStopAtFirst) ? request_.stopsAtFirst : ofFile;
    }
    for (const toml::node& book : booksIn(root)) {
      job.additions.push_back(additionOf(*book.as_table(), common));
    }
    return job;
  }

 private:
  /// A key, and what takes its value over into the arguments of an addition.
  struct Key {
    std::string_view name;
    void (JobReader::*take)(std::string_view key,
                            const toml::node& value,
                            AddArguments& arguments) const;
  };

  static std::vector<Key> keysOfEveryTable() {
    return {{kServer, &JobReader::takeServer},
            {kLibrary, &JobReader::takeLibrary},
            {"kind", &JobReader::takeKind},
            {"folder", &JobReader::takeText<&AddArguments::folder>},
            {"category", &JobReader::takeList<&AddArguments::category>},
            {kKeywords, &JobReader::takeList<&AddArguments::keywords>},
            {"categories", &JobReader::takeList<&AddArguments::categories>},
            {"install-type", &JobReader::takeInstallType},
            {"create-categories", &JobReader::takeSwitch<&AddArguments::createCategories>},
            {"no-input", &JobReader::takeSwitch<&AddArguments::noInput>}};
  }
  static std::vector<Key> keysOfTheJob() {
    std::vector<Key> keys = keysOfEveryTable();
    keys.push_back({kBook, &JobReader::leave});
    keys.push_back({kStopAtFirst, &JobReader::leave});
    return keys;
  }
  static std::vector<Key> keysOfABook() {
    std::vector<Key> keys = keysOfEveryTable();
    keys.push_back({kToc, &JobReader::takeToc});
    keys.push_back({"name", &JobReader::takeTexts<&AddArguments::names>});
    keys.push_back({"acro", &JobReader::takeTexts<&AddArguments::acronyms>});
    return keys;
  }

  [[nodiscard]] toml::table parsed() const {
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

  [[nodiscard]] const toml::array& booksIn(const toml::table& root) const {
    const toml::node* books = root.get(kBook);
    if (books == nullptr) {
      throw brokenRule(RuleText::kJobWithoutBook, {{"FILE", name_}});
    }
    const toml::array* list = books->as_array();
    if (list == nullptr || !list->is_homogeneous(toml::node_type::table)) {
      fail(books->source(), "write [[book]] in front of what belongs to a table of contents");
    }
    return *list;
  }

  [[nodiscard]] AddArguments additionOf(const toml::table& book, const AddArguments& common) const {
    AddArguments addition = common;
    if (book.get(kToc) == nullptr) {
      fail(book.source(), "the book has no toc, which names its table of contents");
    }
    readKeys(book, addition, keysOfABook());
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

  /// What the command line says is not taken from the file, but has to be right there all the same.
  void readKeys(const toml::table& table,
                AddArguments& arguments,
                const std::vector<Key>& keys) const {
    for (const auto& [name, value] : table) {
      const Key& key = keyNamed(name, keys);
      AddArguments overruled;
      const bool isOverruled = request_.given.contains(key.name);
      (this->*key.take)(key.name, value, isOverruled ? overruled : arguments);
    }
  }

  [[nodiscard]] const Key& keyNamed(const toml::key& name, const std::vector<Key>& keys) const {
    const auto key = std::find_if(
        keys.begin(), keys.end(), [&](const Key& known) { return known.name == name.str(); });
    if (key == keys.end()) {
      std::vector<std::string> known;
      std::transform(keys.begin(), keys.end(), std::back_inserter(known), [](const Key& other) {
        return std::string(other.name);
      });
      fail(name.source(),
           "there is no key '" + std::string(name.str()) + "' here." +
               suggestionFor(name.str(), known));
    }
    return *key;
  }

  /// Of a key that is read elsewhere.
  void leave(std::string_view /*key*/,
             const toml::node& /*value*/,
             AddArguments& /*arguments*/) const {}

  void takeToc(std::string_view key, const toml::node& value, AddArguments& arguments) const {
    arguments.toc = besideJob(textOf(key, value));
  }

  void takeServer(std::string_view key, const toml::node& value, AddArguments& arguments) const {
    arguments.place.server = besideJob(textOf(key, value));
  }

  void takeLibrary(std::string_view key, const toml::node& value, AddArguments& arguments) const {
    arguments.place.library = textOf(key, value);
    if (const std::string refusal = refusalOfLibraryName(arguments.place.library);
        !refusal.empty()) {
      fail(value.source(), refusal);
    }
  }

  void takeKind(std::string_view key, const toml::node& value, AddArguments& arguments) const {
    arguments.kind = valueOf<std::string>(key, value, kText);
    if (kindOf("", arguments.kind) == 0) {
      fail(value.source(), "kind has to be xml, html, excel or text");
    }
  }

  void takeInstallType(std::string_view key,
                       const toml::node& value,
                       AddArguments& arguments) const {
    arguments.installType = numberOf(key, value);
  }

  template <auto Field>
  void takeText(std::string_view key, const toml::node& value, AddArguments& arguments) const {
    arguments.*Field = valueOf<std::string>(key, value, kText);
  }

  template <auto Field>
  void takeTexts(std::string_view key, const toml::node& value, AddArguments& arguments) const {
    arguments.*Field = textsOf(key, value);
  }

  template <auto Field>
  void takeList(std::string_view key, const toml::node& value, AddArguments& arguments) const {
    arguments.*Field = listOf(key, value);
  }

  template <auto Field>
  void takeSwitch(std::string_view key, const toml::node& value, AddArguments& arguments) const {
    arguments.*Field = valueOf<bool>(key, value, kSwitch);
  }

  template <typename Value>
  [[nodiscard]] Value valueOf(std::string_view key,
                              const toml::node& value,
                              std::string_view wanted) const {
    if (const auto read = value.value_exact<Value>()) {
      return *read;
    }
    fail(value.source(), std::string(key).append(" has to be ").append(wanted));
  }

  [[nodiscard]] std::string textOf(std::string_view key, const toml::node& value) const {
    auto text = valueOf<std::string>(key, value, kText);
    if (text.empty()) {
      fail(value.source(), std::string(key) + " must not be empty");
    }
    return text;
  }

  [[nodiscard]] std::int32_t numberOf(std::string_view key, const toml::node& value) const {
    const auto number = valueOf<std::int64_t>(key, value, "a whole number");
    if (number < std::numeric_limits<std::int32_t>::min() ||
        number > std::numeric_limits<std::int32_t>::max()) {
      fail(value.source(), std::string(key) + " is out of range");
    }
    return static_cast<std::int32_t>(number);
  }

  /// One text, or several one by one.
  [[nodiscard]] std::vector<std::string> textsOf(std::string_view key,
                                                 const toml::node& value) const {
    const toml::array* entries = value.as_array();
    if (entries == nullptr) {
      return {valueOf<std::string>(key, value, kTextOrList)};
    }
    std::vector<std::string> texts;
    for (const toml::node& entry : *entries) {
      texts.push_back(valueOf<std::string>(key, entry, kTextOrList));
    }
    return texts;
  }

  /// A list as its flag takes it, or its entries one by one.
  [[nodiscard]] std::string listOf(std::string_view key, const toml::node& value) const {
    const std::vector<std::string> texts = textsOf(key, value);
    if (const toml::array* entries = value.as_array()) {
      for (std::size_t index = 0; index < texts.size(); ++index) {
        requireNoneOf(separatorsOf(key), texts[index], key, *entries->get(index));
      }
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

  [[nodiscard]] std::string besideJob(const std::string& path) const {
    return (std::filesystem::path(name_).parent_path() / path).string();
  }

  [[noreturn]] void fail(const toml::source_region& source,
                         const std::string& what,
                         ExitStatus status = ExitStatus::kRefused) const {
    const LinePlace place{.line = source.begin.line, .column = source.begin.column};
    throw CommandFailure(status, faultIn(name_, place, what), faultyLineAt(source));
  }

  [[nodiscard]] std::optional<FaultyLine> faultyLineAt(const toml::source_region& source) const {
    const auto& [begin, end] = std::pair{source.begin, source.end};
    if (begin.line == 0) {
      return std::nullopt;
    }
    const bool isOnOneLine = end.line == begin.line && end.column > begin.column;
    const std::size_t length = isOnOneLine ? end.column - begin.column : 1;
    return FaultyLine{.place = {.line = begin.line, .column = begin.column, .length = length},
                      .text = std::string(textOfLine(begin.line))};
  }

  [[nodiscard]] std::string_view textOfLine(std::size_t number) const {
    const Pieces lines(contents_, "\n");
    const std::string_view line = number <= lines.count() ? lines.at(number - 1) : "";
    return line.ends_with('\r') ? line.substr(0, line.size() - 1) : line;
  }

  static constexpr std::string_view kListSeparator = ";";
  // What a value has to be.
  static constexpr std::string_view kText = "a text";
  static constexpr std::string_view kTextOrList = "a text or a list of texts";
  static constexpr std::string_view kSwitch = "true or false";

  const std::string& name_;
  const std::string& contents_;
  const AddRequest& request_;
};

}  // namespace

Job readJobFile(FileSystem& files, const std::string& name, const AddRequest& request) {
  const std::string contents = textOfJob(files, name);
  return JobReader(name, contents, request).read();
}

}  // namespace quorbind
