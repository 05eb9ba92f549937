// The component when memory runs short: each place where it takes some is refused once, in every
// operation. The host lives, gets what is documented, and finds its library whole.

#include <algorithm>
#include <functional>
#include <map>
#include <ostream>
#include <set>

#include "platform/text.h"
#include "platform/windows/msxml_library.h"
#include "platform/windows/windows_file_system.h"
#include "tests/bad_input/whole_library.h"
#include "tests/component/bound_host.h"
#include "tests/component/footprint.h"
#include "tests/operations/operations_test.h"
#include "tests/starved/starved_dll.h"
#include "tests/support/long_tier.h"
#include "tests/support/temporary_folder.h"
#include "toc/text_form.h"

namespace quorbind::testing {
namespace {

using namespace library_file;
using ::testing::AnyOf;
using ::testing::Eq;

constexpr const char* kNoMemory = "no memory";

/// In the ordinary suite about so many places of each operation are tried.
constexpr long kOrdinaryPlaces = 10;

/// The places that this run tries, the first one included.
std::vector<long> placesAmong(long count) {
  const long step = isLongTier() ? 1 : std::max(1L, count / kOrdinaryPlaces);
  std::vector<long> places;
  for (long place = 0; place < count; place += step) {
    places.push_back(place);
  }
  return places;
}

/// How a failure of memory in an operation comes out when it is not E_OUTOFMEMORY.
enum class Telling {
  kInABox,      ///< In the operation's box, or in that of a part.
  kPassedOver,  ///< It ignores errors, in some of its statements at least.
};

struct HostCall {
  std::string operation;
  Arguments arguments;
  Telling telling = Telling::kInABox;
  /// What the host does in front of each call, with all the memory that it wants.
  std::function<void(ComponentHost&)> before = [](ComponentHost&) {};
  /// Tells calls of one operation apart.
  std::string ofWhat = {};
};

void PrintTo(const HostCall& call, std::ostream* out) {
  *out << call.operation << call.ofWhat;
}

std::string at(const char* file) {
  return componentPath(file);
}

using Files = std::map<std::string, std::string>;

/// Without the folders, which come with their files.
Files filesAmong(const Files& tree) {
  Files files = tree;
  std::erase_if(files, [](const auto& entry) { return entry.second == "(folder)"; });
  return files;
}

constexpr const char* kExport = "in/TOC_Temp.txt";

/// Whether each line of an export has all its fields, be they empty.
bool isWholeExport(const std::string& bytes) {
  constexpr std::size_t kHeaderLines = 2;
  constexpr std::size_t kPieces = 13;
  const std::string text = fromUtf16File(bytes);
  const Pieces lines(text, kLineEnd);
  for (std::size_t line = kHeaderLines; line + 1 < lines.count(); ++line) {
    if (countPieces(lines.at(line), text_form::kMarker) != kPieces) {
      return false;
    }
  }
  return lines.count() > kHeaderLines && lines.last().empty();
}

bool isAmong(const Files& files, const std::string& bytes) {
  return std::ranges::any_of(files, [&](const auto& entry) { return entry.second == bytes; });
}

/// What a call ended with.
struct End {
  std::string answer;
  long boxes = 0;
  long places = 0;
  Files files;
};

class StarvedHost {
 public:
  /// Calls the operation on the library as it was made, with memory for so many allocations and
  /// none for the next.
  End call(const HostCall& call, long successes) {
    // An object goes on counting levels where its last book ended.
    if (call.operation == "Book_Valuator") {
      host_.reset();
      host_ = makeEarlyBoundHost(kStarvedDll);
    }
    restore();
    call.before(*host_);
    Starvation& memory = starvation();
    memory.boxes = 0;
    memory.asked = 0;
    memory.successesLeft = successes;
    End end;
    try {
      end.answer = host_->call(call.operation, call.arguments);
    } catch (const RunTimeError& error) {
      end.answer = error.is(ErrorNumber::kOutOfMemory) ? kNoMemory : error.description();
    }
    memory.successesLeft = kUnlimited;
    end.boxes = memory.boxes;
    end.places = memory.asked;
    end.files = files();
    return end;
  }

  ComponentHost& host() { return *host_; }
  [[nodiscard]] const Files& sound() const { return sound_; }

  /// Whether a file of the host's disk is an XML document, read without the component.
  bool isWhole(const std::string& name) {
    const auto document = xml_.createDocument();
    return static_cast<bool>(document->load(toUtf8((host_->disk().path() / name).wstring())));
  }

 private:
  [[nodiscard]] Files files() const {
    Files files = filesAmong(host_->disk().contents());
    for (auto& [name, bytes] : files) {
      bytes = withoutDateOfMaking(bytes);
    }
    return files;
  }

  void restore() const {
    const Files present = filesAmong(host_->disk().contents());
    for (const auto& [name, bytes] : present) {
      if (!sound_.contains(name)) {
        host_->disk().remove(name);
      }
    }
    for (const auto& [name, bytes] : sound_) {
      const auto file = present.find(name);
      if (file == present.end() || file->second != bytes) {
        host_->disk().write(name, bytes);
      }
    }
  }

  const Files sound_ = filesAmong(WholeLibrary().sound());
  std::unique_ptr<ComponentHost> host_ = makeEarlyBoundHost(kStarvedDll);
  WindowsFileSystem files_;
  MsxmlLibrary xml_{files_};
};

class Starved : public ::testing::TestWithParam<HostCall> {
 protected:
  /// The host learns of it: by the result of the call, by a box, or by an answer that says that
  /// nothing was done. Otherwise everything has been done.
  void expectToldOf(const End& end, const End& whole) {
    const bool isDone = end.answer == whole.answer && end.files == whole.files;
    const bool isRefused = end.answer != whole.answer && end.files == host.sound();
    const bool isPassedOver = GetParam().telling == Telling::kPassedOver;
    EXPECT_TRUE(isDone || isRefused || isPassedOver || end.boxes > 0) << end.answer;
  }

  /// Each file is one that there was before or that there is in the end, a document between two
  /// saves of one operation, or an export that lacks what a box has told of; and no temporary is
  /// left.
  void expectWholeFiles(const End& end, const End& whole) {
    for (const auto& [name, bytes] : end.files) {
      const bool isKnown = isAmong(host.sound(), bytes) || isAmong(whole.files, bytes);
      const bool isOfReading = name == kExport && end.boxes > 0 && isWholeExport(bytes);
      EXPECT_TRUE(isKnown || isOfReading || (name.ends_with(".xml") && host.isWhole(name)))
          << name << '\n'
          << bytes;
      EXPECT_FALSE(name.ends_with(".tmp")) << name;
    }
  }

  StarvedHost host;
};

TEST_P(Starved, AtEachPlaceLeavesTheHostAliveAndTheLibraryWhole) {
  host.call(GetParam(), kUnlimited);
  const End whole = host.call(GetParam(), kUnlimited);
  ASSERT_EQ(whole.boxes, 0) << toUtf8(starvation().lastBox.data());
  ASSERT_GT(whole.places, 0);
  const long alive = starvation().alive;
  const DWORD handles = footprint().handles;
  for (const long place : placesAmong(whole.places)) {
    SCOPED_TRACE("allocation " + std::to_string(place) + " of " + std::to_string(whole.places));
    const End end = host.call(GetParam(), place);
    expectToldOf(end, whole);
    expectWholeFiles(end, whole);
  }
  const End after = host.call(GetParam(), kUnlimited);
  EXPECT_EQ(after.answer, whole.answer);
  EXPECT_EQ(after.boxes, whole.boxes);
  EXPECT_EQ(after.files, whole.files);
  EXPECT_EQ(starvation().alive, alive);
  EXPECT_EQ(footprint().handles, handles);
}

TextArray list(std::vector<std::string> texts) {
  return {std::move(texts)};
}

void enterNaming(ComponentHost& host) {
  host.willEnter("Warnings", "WRN");
}

/// As a host does before it renames a book.
void fillTheDialog(ComponentHost& host) {
  enterNaming(host);
  host.call("mbGetFormInput", {"", 1});
}

/// Every operation, on a library in which it has something to do.
std::vector<HostCall> everyCall() {
  const std::string catalogue = at(kCatalogue);
  const std::string categories = at(kCategories);
  const std::string keywords = at(kKeywords);
  const auto addition = [&](const std::string& toc, std::int32_t kind) {
    return Arguments{toc,
                     catalogue,
                     kind,
                     "Plant",
                     kind == 1 ? "" : "Pumps",
                     kind == 1 ? "" : "PMP",
                     "Safety",
                     keywords,
                     categories,
                     "horn;hoot",
                     "Safety;Maps",
                     keywords,
                     0,
                     false,
                     "C:\\Docs\\"};
  };
  return {
      {"QuorLocation", {"Tools"}},
      {"QuorNames", {}},
      {"BookInfo", {catalogue}},
      {"CategorieInfo", {catalogue, "Alarms"}},
      {"strFolderLinkInfo", {catalogue, "Alarms", "old", "old"}, Telling::kPassedOver},
      {"GetBookAcro", {catalogue, "Alarms"}, Telling::kPassedOver},
      {"GetBookAcroValue", {"Safety", catalogue}},
      {"bCheckIfDefaultCategory", {at(kDefaults), "Safety", 0}},
      {"bCheckCategoryinQuorBookCategories", {categories}},
      {"mbCheckQuorTOCForBook", {catalogue, "New", "NEW"}},
      {"CheckXMLCharacters", {"pumps, motors & valves", "BookName"}},
      {"UpdateBookNameAcro", {at(kBook), "Alarms", "ALM"}, Telling::kInABox, fillTheDialog},
      {"DeleteQuorNode", {catalogue, "Alarms"}},
      {"strMatchingBooksInfo", {catalogue, at(kOtherCatalogue)}},
      {"mbsetQuorBookProperties", {catalogue, "Alarms", list({"Maps", ""}), "Manual", "link"}},
      {"CreateQuorBookNodeForSEntry",
       {"C:\\in\\plan.htm",
        "plan.htm",
        "",
        "t",
        "Plant",
        0,
        false,
        list({"Plan", "PLN", "horn;hoot", "Safety;Maps"})}},
      {"AddBookCateToXMLFile", {categories, "Maps"}},
      {"EditBookCateToXMLFile", {categories, "Maps", "Safety"}},
      {"CreateBookCateXmlFile", {"C:\\Docs\\", categories, 0, false}},
      {"GetBookAcroInfo", {categories, catalogue}},
      {"AddBookAcro", {"Safety", list({"", "NEW"}), categories}},
      {"Addothercategory", {"Safety", list({"", "NEW", "X"}), categories}},
      {"SortArray", {list({"b", "a"}), list({"B", "A"}), 0}, Telling::kPassedOver},
      {"AddCategoryNode", {"Maps", "NEW", categories}},
      {"CreateKeywordXmlFile", {keywords}},
      {"AddKeywordsToXmlFile", {keywords, "Alarms", "horn"}},
      {"EditKeywordsToXmlFile", {keywords, "Alarms", "horn", "bell"}},
      {"AddKeywords", {list({"horn", "hoot"}), keywords}},
      {"AddToLinkIDFile", {at(kLinks), "X3", "ALM@QUOR@Bells", "a.htm", "Plant", "ALM"}},
      {.operation = "Book_Valuator",
       .arguments = addition("C:\\in\\toc.txt", 4),
       .telling = Telling::kPassedOver,
       .ofWhat = "OfAText"},
      {.operation = "Book_Valuator",
       .arguments = addition("C:\\in\\toc.htm", 2),
       .telling = Telling::kPassedOver,
       .ofWhat = "OfAPage"},
      {.operation = "Book_Valuator",
       .arguments = addition(at(kOtherBook), 1),
       .telling = Telling::kPassedOver,
       .ofWhat = "OfABookFile"},
      {"getExcelBookCount", {PaperSheet{{"Node Level"}, {}, {"1"}, {"2"}, {"1"}}, 1}},
      {"mbGetFormInput", {catalogue, 4}, Telling::kInABox, enterNaming},
      {"strBookAcroInfo", {catalogue, "Alarms"}, Telling::kPassedOver, fillTheDialog},
  };
}

TEST(StarvedCalls, MissNoOperation) {
  std::set<std::string> called;
  for (const HostCall& call : everyCall()) {
    called.insert(call.operation);
  }
  const std::set<std::string> published{
#define QUOR_PROCEDURE(owner, name) #name,
#define QUOR_FUNCTION QUOR_PROCEDURE
#define QUOR_PROPERTY QUOR_PROCEDURE
#include "tests/operations/operations.def"
  };
  EXPECT_EQ(called, published);
}

std::string nameOfCall(const ::testing::TestParamInfo<HostCall>& call) {
  return call.param.operation + call.param.ofWhat;
}

INSTANTIATE_TEST_SUITE_P(, Starved, ::testing::ValuesIn(everyCall()), nameOfCall);

}  // namespace
}  // namespace quorbind::testing
