#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "platform/platform.h"
#include "toc/book_place.h"
#include "workflow/forms/module.h"

namespace quorbind {

class TextReader;
class XmlTextRules;
class XmlWriter;

/// The public class that turns the text form of a table of contents into a book XML file.
///
/// Each operation reports its own errors in a message box and its caller goes on, so that a book
/// with one bad entry still becomes a file.
class CTOCToXML {
 public:
  /// Kept by reference.
  explicit CTOCToXML(Module& module);
  /// For a table of contents whose caller has read already where it says that its book belongs.
  CTOCToXML(Module& module, StatedPlace place);

  /// Writes `Book_` + acronym + `.xml` into the folder of the table of contents `vstrtocpath`,
  /// replacing a file of that name, and answers the book's folder: the one that the table's book
  /// entry states, else the one remembered, else the one that the user is asked for. Empty, with
  /// nothing written, when the user cancelled, when the stated folder leads out of the library, and
  /// after a reported error; empty with a file when the entry states the library's own folder.
  /// `vstrBookFile` is the book's main file or empty. `vstrQuorTOcPath` is not used.
  std::string mstrGenerateXMLFromTOC(const std::string& vstrtocpath,
                                     const std::string& vstrQuorTOcPath,
                                     const std::string& vstrBookName,
                                     const std::string& vstrBookAcronym,
                                     const std::string& vstrBookFile,
                                     const std::string& vstrProductName);

 private:
  /// The attributes of the element to be written next.
  using Attributes = std::vector<std::pair<std::string_view, std::string>>;

  /// What `Book` says of a book.
  struct Book {
    const std::string& name;
    const std::string& acronym;
    const std::string& file;
    const std::string& product;
    const std::string& folder;
  };

  void writeFile(const std::string& tocPath, const std::string& bookPath, const Book& book);
  void maddComment(XmlWriter& writer);
  void mGenerateBookNode(XmlWriter& writer, const Book& book);
  void mGenerateBookCateGories(XmlWriter& writer);
  void mGenerateBookHeadings(XmlWriter& writer, const std::string& tocPath);
  void mGenerateTypeAttribute(std::string_view fileName);
  void mGenereateXMLTag(XmlWriter& writer, std::string_view name, std::string_view text);

  class HeadingWriter;

  [[nodiscard]] std::optional<std::string> findFolder(std::string_view tocPath);
  void startElement(XmlWriter& writer, std::string_view name);

  Module& module_;
  const Platform& platform_;
  std::optional<StatedPlace> place_;
  Attributes attributes_;
};

}  // namespace quorbind
