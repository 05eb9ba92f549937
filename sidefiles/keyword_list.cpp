#include "sidefiles/keyword_list.h"

#include <cstddef>
#include <memory>
#include <string>
#include <vector>

#include "platform/error_trap.h"
#include "platform/text.h"
#include "platform/toolset.h"
#include "sidefiles/keyword_rules.h"

namespace quorbind {

namespace {

class KeywordList {
 public:
  /// Kept by reference.
  KeywordList(const Platform& platform, const std::string& path, const std::string& book)
      : platform_(platform), additions_(platform, path, book) {}

  void add(const std::vector<std::string>& keywords) {
    walkAndSettle([&] { walk(keywords); }, [this] { additions_.settle(); });
  }

 private:
  void walk(const std::vector<std::string>& keywords) {
    for (const std::string& keyword : keywords) {
      const auto fault = findKeywordFault(keyword);
      if (!fault) {
        addAccepted(keyword);
      } else if (!goesOnAfter(*fault, keyword)) {
        return;
      }
    }
  }

  void addAccepted(const std::string& keyword) {
    if (rules_ == nullptr) {
      rules_ = platform_.toolset.createXmlTextRules();
    }
    additions_.add(storedKeyword(*rules_, keyword));
  }

  bool goesOnAfter(const KeywordFault& fault, const std::string& keyword) {
    additions_.settle();
    if (fault.endsList) {
      platform_.ui.show(fault.box);
      return false;
    }
    CheckXMLCharacters(platform_, trimBlanks(keyword), kKeywordsField);
    return true;
  }

  const Platform& platform_;
  KeywordAdditions additions_;
  std::unique_ptr<XmlTextRules> rules_;
};

}  // namespace

KeywordAdditions::KeywordAdditions(const Platform& platform,
                                   const std::string& path,
                                   const std::string& book)
    : platform_(platform),
      path_(path),
      book_(book),
      file_(platform, path, book),
      changes_(file_,
               platform.ui,
               source::kAddKeywordsToXmlFile,
               {.change = [this](auto item) { return file_.add(keywords_.at(item)); },
                .alone = [this](auto item) { addAlone(std::string(keywords_.at(item))); }}) {}

void KeywordAdditions::add(std::string_view keyword) {
  const std::size_t item = keywords_.size();
  keywords_.add(keyword);
  changes_.make(item);
}

void KeywordAdditions::addAlone(const std::string& keyword) {
  AddKeywordsToXmlFile(platform_, path_, book_, keyword);
}

void KeywordAdditions::settle() {
  changes_.settle();
}

void AddKeywords(const Platform& platform,
                 const ProcessState& state,
                 const TextArray& vstrArrKeywords,
                 const std::string& vstrKeywordsPath) {
  trapped(platform.ui, source::kAddKeywords, [&] {
    vstrArrKeywords.requireSet();
    if (vstrArrKeywords.upperBound() >= 1) {
      KeywordList(platform, vstrKeywordsPath, state.currentBookName).add(vstrArrKeywords.texts);
    }
  });
}

}  // namespace quorbind
