#include "tests/bad_input/whole_library.h"

#include <filesystem>
#include <utility>

#include "platform/text.h"
#include "tests/support/excel_sheets.h"
#include "tests/support/workbook_bytes.h"
#include "toc/text_form.h"
#include "toolset/reference_toolset.h"

namespace quorbind::testing {

namespace {

using namespace library_file;

std::string entryOf(const std::string& name,
                    const std::string& acronym,
                    const std::string& folder,
                    const std::string& link,
                    const std::string& categories) {
  return "\t\t<Book>\n"
         "\t\t\t<Book_Name>" +
         name + "</Book_Name>\n\t\t\t<Book_Acro>" + acronym +
         "</Book_Acro>\n\t\t\t<Book_Key id=\"" + link + "\">Plant</Book_Key>\n\t\t\t<Book_Folder>" +
         folder + "</Book_Folder>\n\t\t\t<Book_File>Book_" + acronym + ".xml</Book_File>\n" +
         categories + "\t\t</Book>\n";
}

std::string catalogueOf(const std::string& entries) {
  return "<Quor_Master>\n\t<Quor_Books>\n" + entries + "\t</Quor_Books>\n</Quor_Master>\n";
}

std::string inCategory(const std::string& name) {
  return "\t\t\t<Book_Categories>\n\t\t\t\t<Book_Category>" + name +
         "</Book_Category>\n\t\t\t</Book_Categories>\n";
}

std::string bookFileOf(const std::string& name,
                       const std::string& acronym,
                       const std::string& path,
                       const std::string& document) {
  return "<Book_Master>\n"
         "\t<Book>\n"
         "\t\t<Book_Name>" +
         name + "</Book_Name>\n\t\t<Book_Acro>" + acronym +
         "</Book_Acro>\n\t\t<Book_Key id=\"old\">Plant</Book_Key>\n\t\t<Book_Path>" + path +
         "</Book_Path>\n"
         "\t\t<Book_Categories/>\n"
         "\t</Book>\n"
         "\t<Book_Headings>\n"
         "\t\t<Heading level=\"H1\" type=\"htm\">\n"
         "\t\t\t<HName>Bells, 目录</HName>\n"
         "\t\t\t<HFile>" +
         document + "</HFile>\n\t\t</Heading>\n\t</Book_Headings>\n</Book_Master>\n";
}

std::string linksOf(const std::string& identifier, const std::string& acronym) {
  return "<LINKS>\n\t<IBD>\n\t\t<ID>\n\t\t\t<LinkID>" + identifier + "</LinkID>\n\t\t\t<FullLink>" +
         acronym + "@QUOR@Bells</FullLink>\n" +
         "\t\t\t<LinkIDSourceFile>Plant\\a.htm</LinkIDSourceFile>\n\t\t\t<BookAcro>" + acronym +
         "</BookAcro>\n\t\t</ID>\n\t</IBD>\n</LINKS>\n";
}

const std::map<std::string, std::string>& texts() {
  static const std::map<std::string, std::string> kTexts{
      {kSelection,
       "<Quor_Selection_List>\n"
       "\t<Quors>\n"
       "\t\t<Quor>\n"
       "\t\t\t<Quor_Name>Plant</Quor_Name>\n"
       "\t\t\t<Quor_Location>Docs\\Plant</Quor_Location>\n"
       "\t\t</Quor>\n"
       "\t\t<Quor>\n"
       "\t\t\t<Quor_Name>Tools</Quor_Name>\n"
       "\t\t\t<Quor_Location>Docs\\Tools</Quor_Location>\n"
       "\t\t</Quor>\n"
       "\t</Quors>\n"
       "</Quor_Selection_List>\n"},
      {kDefaults,
       "<Default_Categories>\n"
       "\t<Quor_Developer_Pro>\n"
       "\t\t<CategoryName>Design</CategoryName>\n"
       "\t</Quor_Developer_Pro>\n"
       "\t<Quor_Developer>\n"
       "\t\t<CategoryName>Safety</CategoryName>\n"
       "\t</Quor_Developer>\n"
       "</Default_Categories>\n"},
      {kCatalogue,
       catalogueOf(entryOf("Alarms", "ALM", "Manual", "", inCategory("Safety")) +
                   entryOf("Trends", "TRD", "Manual", "", "\t\t\t<Book_Categories/>\n"))},
      {kCategories,
       "<BookSet_Categories>\n"
       "\t<Category>\n"
       "\t\t<CategoryName>Safety</CategoryName>\n"
       "\t\t<BookAcro>OLD</BookAcro>\n"
       "\t</Category>\n"
       "\t<Category>\n"
       "\t\t<CategoryName>Other Category</CategoryName>\n"
       "\t\t<BookAcro>OLD</BookAcro>\n"
       "\t</Category>\n"
       "</BookSet_Categories>\n"},
      {kKeywords,
       "<Books>\n"
       "\t<Book Book_Name=\"Alarms\">\n"
       "\t\t<Keywords>\n"
       "\t\t\t<Keyword>bell</Keyword>\n"
       "\t\t</Keywords>\n"
       "\t</Book>\n"
       "</Books>\n"},
      {kLinks, linksOf("X1", "ALM")},
      {kBook, bookFileOf("Alarms", "ALM", "Plant\\Manual", "bells.htm")},
      {kOtherCatalogue, catalogueOf(entryOf("Alarms", "ALM", "Guide", "link", inCategory("Maps")))},
      {kOtherLinks, linksOf("X2", "GDE")},
      {kOtherBook, bookFileOf("Guide", "GDE", "Tools\\Guide", "guide.htm")},
  };
  return kTexts;
}

/// A table of contents of a book and one heading, as the generator and the rules both read it.
std::string tableOfContents() {
  std::string text = "\"Node Level\" \"Node Name\" \"File Name\" \"Sub Link\"\r\n\r\n";
  for (const auto& [level, name, file] :
       {std::tuple{1, "Pumps", "Pump\\cover.htm"}, std::tuple{2, "Start", "Pump\\start.htm"}}) {
    text += "\"" + std::to_string(level) + "\" \"" + name + "\" \"" + file + "\" \"\" " +
            text_form::lineOf({.level = level, .name = name, .file = file}) + "\r\n";
  }
  return text;
}

/// Two books, each with a keyword, a category and a link identifier. Their folders are called as
/// the tool set calls those of books that it can't find.
std::string workbook() {
  return workbookBytes(
      WorkbookKind::kXls,
      {headingSheet({{"1", "The Lathe", "LTH\\cover.htm"},
                     {"2", "Chuck", "chuck.htm", "#jaws", "X4"},
                     {"1", "The Saw", "SAW\\cover.htm"},
                     {"2", "Blade", "blade.htm", "", "X5"}}),
       bookSheet({{"Lathe", "LTH", "turning", "Safety"}, {"Saw", "SAW", "sawing", "Maps"}})});
}

}  // namespace

std::vector<std::string> xmlFilesOfLibrary() {
  std::vector<std::string> files;
  for (const auto& [file, text] : texts()) {
    files.push_back(file);
  }
  return files;
}

std::string soundText(const std::string& file) {
  return replaceAll(texts().at(file), "\n", "\r\n");
}

std::string componentPath(const std::string& file) {
  return "C:\\" + replaceAll(file, "/", "\\");
}

WholeLibrary::WholeLibrary()
    : adapters_(makeAdapters(std::filesystem::temp_directory_path())),
      xml_(adapters_->makeXml(calls)),
      locale_(adapters_->locale()),
      toolset_(
          std::make_unique<ReferenceToolset>(ToolsetPorts{calls, *xml_, user, locale_}, "C:\\")),
      spreadsheets_(calls, *xml_),
      platform_{calls, *xml_, user, *toolset_, locale_, spreadsheets_} {
  for (const std::string& file : xmlFilesOfLibrary()) {
    files.write(file, soundText(file));
  }
  files.write("Docs/Plant/Manual/bells.htm", "<p>bells</p>");
  files.write("Docs/Tools/Guide/guide.htm", "<p>guide</p>");
  files.write("in/plan.htm", "<p>plan</p>");
  files.write("in/toc.txt", tableOfContents());
  files.write("in/toc.htm",
              "<K1><A HREF=\"Pump/start.htm\">Start</A></K1>\r\n"
              "<K2><A HREF=\"Pump/stop.htm\">Stop</A><IBD><X7></IBD></K2>\r\n");
  files.write("in/Pump/start.htm", "<p>start</p>");
  files.write("in/Pump/stop.htm", "<p>stop</p>");
  files.write("in/books.xls", workbook());
  files.write("in/LTH/chuck.htm", "<p>chuck</p>");
  files.write("in/links.txt",
              "header\r\n\r\n" +
                  text_form::lineOf({.level = 1,
                                     .name = "Bells",
                                     .file = {},
                                     .subLink = {},
                                     .bookLinkValue = "X3@@@a.htm"}) +
                  "\r\n");
  sound_ = files.contents();
}

void WholeLibrary::reset() {
  files.restore(sound_);
  calls.reset();
  user.forget();
}

}  // namespace quorbind::testing
