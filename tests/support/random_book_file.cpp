#include "tests/support/random_book_file.h"

#include <algorithm>
#include <map>
#include <string_view>
#include <utility>

#include "platform/text.h"

namespace quorbind::testing {

namespace {

using Texts = std::vector<std::string>;

constexpr std::size_t kPagesOfFolder = 60;

/// The spellings that are not those of the files, and what they lead to.
const std::map<std::string, std::optional<std::string>>& spellings() {
  static const std::map<std::string, std::optional<std::string>> names{
      {"docs\\a.htm", "docs/a.htm"},
      {"docs\\\\a.htm", "docs/a.htm"},
      {"DOCS/A.HTM", "docs/a.htm"},
      {".\\docs\\none\\..\\a.htm", "docs/a.htm"},
      {"docs", "docs"},
      {"none\\R&D <1>.htm", "none/r&d <1>.htm"},
      {"two \"words\".htm", "two \"words\".htm"},
      {"\u00E4.htm", "\u00E4.htm"},
      {"..\\in\\b.htm", std::nullopt},
      {"\\b.htm", std::nullopt},
      {"http://example.com/b.htm", std::nullopt},
      {"C:\\in\\b.htm", std::nullopt},
      {"docs\\nul.htm", std::nullopt},
      {"", std::nullopt}};
  return names;
}

class Maker {
 public:
  explicit Maker(RandomChoices& random) : random_(random) {}

  RandomBookFile make() {
    put(random_.oneOf<std::string_view>({"", "<?xml version=\"1.0\"?>\n"}));
    put("<Book_Master>");
    describeBook();
    put("<Book_Headings>");
    for (std::size_t count = random_.oneIn(12) ? 0 : random_.below(30); count > 0; --count) {
      heading(0);
    }
    put("</Book_Headings>");
    aside();
    put("</Book_Master>\n");
    return std::move(file_);
  }

 private:
  void put(std::string_view text) { file_.bytes += text; }

  void describeBook() {
    const Texts names{"Pumps", "R&D", "\u76EE\u5F55"};
    const Texts acronyms{"PST", "X1", "X1", "PST", "A:B"};
    const Texts paths{"Prod\\Manual", "Prod/Man ual/deep", "Manual", "", "Prod\\..\\x"};
    aside();
    put("<Book>");
    if (!random_.oneIn(5)) {
      file_.name = element("Book_Name", random_.oneOf(names));
    }
    if (!random_.oneIn(5)) {
      file_.acronym = element("Book_Acro", random_.oneOf(acronyms));
    }
    if (!random_.oneIn(5)) {
      file_.hasKey = true;
      put("<Book_Key id='1'>Prod</Book_Key>");
    }
    if (!random_.oneIn(5)) {
      file_.path = element("Book_Path", random_.oneOf(paths));
    }
    for (std::size_t count = random_.below(3); count > 0; --count) {
      file_.mainFiles.push_back(document("Book_File"));
    }
    put("</Book>");
  }

  void heading(int depth) {
    constexpr int kDeepest = 4;
    aside();
    put("<Heading level='H1'>");
    element("HName", "Pump <HFile>");
    if (!random_.oneIn(8)) {
      file_.documents.push_back(document("HFile"));
    }
    if (depth < kDeepest && random_.oneIn(3)) {
      heading(depth + 1);
    }
    put("</Heading>");
  }

  StatedDocument document(std::string_view tag) {
    std::string name =
        random_.oneIn(3) ? std::next(spellings().begin(),
                                     static_cast<std::ptrdiff_t>(random_.below(spellings().size())))
                               ->first
                         : "docs/page" + std::to_string(random_.below(kPagesOfFolder)) + ".htm";
    name += random_.textOf({"", "", "#top", "#a#b"}, 1);
    StatedText written = element(tag, name);
    return {std::move(written.text), written.line};
  }

  StatedText element(std::string_view tag, const std::string& text) {
    put("<");
    put(tag);
    put(random_.oneOf<std::string_view>({"", "", "\n", " BookMark='>'", "\n\tBookMark=\"\n\" "}));
    put(">");
    const auto line = std::count(file_.bytes.begin(), file_.bytes.end(), '\n') + 1;
    content(text);
    put("</");
    put(tag);
    put(">");
    return {text, static_cast<std::size_t>(line)};
  }

  void content(const std::string& text) {
    switch (text.empty() ? 0 : random_.below(5)) {
      case 0:
        return put(escaped(text));
      case 1:
        return put("<![CDATA[" + text + "]]>");
      case 2:
        return put(escaped(text) + "<!-- <HFile>no.htm</HFile> -->");
      case 3:
        return put("<?no <HFile>?>" + escaped(text));
      default: {
        const std::size_t cut = std::min(text.find_first_of("ao"), text.size());
        return put(escaped(text.substr(0, cut)) + "<![CDATA[" + text.substr(cut) + "]]>");
      }
    }
  }

  std::string escaped(const std::string& text) {
    const std::string markup = replaceAll(replaceAll(text, "&", "&amp;"), "<", "&#60;");
    return random_.oneIn(2) ? replaceAll(markup, "\u00E4", "&#xE4;") : markup;
  }

  void aside() {
    put(random_.oneOf<std::string_view>({"",
                                         "\n",
                                         "\n\t",
                                         "<!--\n<HFile>no.htm</HFile>-->",
                                         "<Other><HFiles>no.htm</HFiles></Other>",
                                         "<?no\n<HFile>no.htm</HFile>?>",
                                         "<Other><![CDATA[<HFile>no.htm</HFile>\n]]></Other>"}));
  }

  RandomChoices& random_;
  RandomBookFile file_;
};

}  // namespace

RandomBookFile randomBookFile(RandomChoices& random) {
  return Maker(random).make();
}

const std::set<std::string>& documentsBeside() {
  static const std::set<std::string> names = [] {
    std::set<std::string> standing{"docs/a.htm", "docs/nul.htm", "b.htm", "\u00E4.htm"};
    for (std::size_t page = 0; page < kPagesOfFolder; page += 2) {
      standing.insert("docs/page" + std::to_string(page) + ".htm");
    }
    return standing;
  }();
  return names;
}

std::optional<std::string> fileOfName(const std::string& name) {
  const std::string file = name.substr(0, name.find('#'));
  const auto spelling = spellings().find(file);
  return spelling == spellings().end() ? file : spelling->second;
}

}  // namespace quorbind::testing
