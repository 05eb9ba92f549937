#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "platform/text_array.h"
#include "workflow/forms/module.h"

namespace quorbind {

/// The public class through which a host works on a server's libraries and on their catalogues.
///
/// Each operation reads the files it names afresh and saves what it changed before it returns. No
/// call raises an error: what is expected to go wrong is told in a message box of its own, what is
/// not in the operation's error box, and the call answers its failure value. Folders may be written
/// with `/`.
///
/// A list that is answered ends in one empty entry; one that could not be had is empty (an unset
/// array for the host). Lists start at index 0.
///
/// A book's name is looked up in one of two ways. "As stored" means as it is given, so that a name
/// with special characters is found only in the form that the catalogue holds. "As typed" means
/// that the name is brought into that form first. A name that holds the query's own quotation mark
/// can't be looked up: an error.
class Book_Config {
 public:
  /// Kept by reference.
  explicit Book_Config(Module& module) : module_(module) {}

  /// The full path of the catalogue of the library of exactly that name; the file need not exist.
  /// Empty after a message when the list of libraries is missing or damaged, does not have the
  /// library, or does not say where it is.
  std::string QuorLocation(const std::string& vstrQuorName);

  /// The names of all libraries of the server, in the order of the list. Unset after a message when
  /// the list does not load.
  std::vector<std::string> QuorNames();

  /// The names of all books, as stored, in the order of the catalogue. Unset after a message when
  /// the catalogue does not load.
  std::vector<std::string> BookInfo(const std::string& vstrtocpath);

  /// The categories of the first book of that name, as typed. Unset, without a message, when the
  /// catalogue does not load or does not have the book.
  std::vector<std::string> CategorieInfo(const std::string& vstrtocpath,
                                         const std::string& vstrBookName);

  /// Fetches folder and link of the first book of that name, as stored; both become empty when
  /// there is none. Errors are ignored: what can't be fetched stays as it was, and so do both when
  /// the catalogue does not load.
  void strFolderLinkInfo(const std::string& vstrtocpath,
                         const std::string& vstrBookName,
                         std::string& rstrFolderName,
                         std::string& rstrFileLink);

  /// The acronym of the first book of that name, as stored; empty when it can't be had, whatever
  /// the reason.
  std::string GetBookAcro(const std::string& vstrtocpath, const std::string& vstrBookName);

  /// Renames the first book of that name, as typed, to what the boxes of the book dialog hold: its
  /// book XML file on the disk, the name and the acronym inside that, and the catalogue's entry.
  /// The host lets the user fill the dialog before, by `Quor_Book::mbGetFormInput` without a
  /// catalogue and with kind 1. Without such a book nothing happens.
  ///
  /// Stops with a message, and with every file as it was, when a box is blank, when another book
  /// has the name or the acronym in whatever letter case, and when the book XML file can't be
  /// moved. A book XML file that is not there is no reason to stop. After a rename the current name
  /// and acronym are forgotten.
  void strBookAcroInfo(const std::string& vstrtocpath, const std::string& vstrBookName);

  /// Puts name and acronym from the boxes of the book dialog into the book XML file at
  /// `vstrBookPath`. The name and acronym that are given are those that the file holds now. A file
  /// that does not load stays as it is.
  void UpdateBookNameAcro(const std::string& vstrBookPath,
                          const std::string& vstrBookName,
                          const std::string& vstrBookAcro);

  /// Takes the entry of the first book of that name, as stored, out of the catalogue. Without such
  /// a book the catalogue is saved as it is.
  void DeleteQuorNode(const std::string& vstrQuorTOcPath, const std::string& vstrBookName);

  /// Copies link and categories of every book that both catalogues have, by name and acronym, from
  /// the catalogue at `vstrtocpath` into the one at `vstrMainTocPAth` and into the book XML files
  /// of the latter's library. The order of the main catalogue is that of the work; an error ends it
  /// and leaves the main catalogue unsaved.
  void strMatchingBooksInfo(const std::string& vstrMainTocPAth, const std::string& vstrtocpath);

  /// Gives the first book of that name, as stored, another link and other categories, in the
  /// catalogue (categories alone) and in its book XML file, which is copied to the folder
  /// `vstrFolder` below the library's first when that is not where it is. The catalogue goes on
  /// naming the old folder, and the old file stays. Empty entries of `rarrsBCategories` are left
  /// out. A book whose entry has a type has no book XML file. The progress window shows the work.
  ///
  /// False when the copy failed, with both files as they were, or after an error.
  bool mbsetQuorBookProperties(const std::string& vstrtocpath,
                               const std::string& vstrBookName,
                               const TextArray& rarrsBCategories,
                               const std::string& vstrFolder,
                               const std::string& vstrFullink);

  /// Installs a document as a book of its own in the library `vstrProductName`: asks for what is
  /// missing of its name and acronym, enters it in the catalogue, copies `strTocFile` into the
  /// book's folder (named by the acronym; `vstrFolder` is ignored) as `vstrBookName`, and adds its
  /// keywords and categories to the library's side files. `vstrType` says what kind of file it is.
  /// The categories file is made anew first when `vblnChkCateFlag` is set.
  ///
  /// `strBookInfo` holds, from index 0 on, a name and an acronym (either may be empty), then
  /// keywords and categories, each a list separated by `;`, else by `,`. Fewer entries are an
  /// error. The current name and acronym are forgotten at the end, whatever it was.
  void CreateQuorBookNodeForSEntry(const std::string& strTocFile,
                                   const std::string& vstrBookName,
                                   const std::string& vstrFolder,
                                   const std::string& vstrType,
                                   const std::string& vstrProductName,
                                   std::int32_t vlngInstallType,
                                   bool vblnChkCateFlag,
                                   const TextArray& strBookInfo);

  // The categories file of a library. sidefiles/ tells what each operation does: category_list.h,
  // category_creation.h, category_filing.h, category_rebuild.h and category_sort.h.
  void AddBookCateToXMLFile(const std::string& vstrBookCatePath, const std::string& sBookCateName);
  void CreateBookCateXmlFile(const std::string& vstrServerPath,
                             const std::string& vstrPath,
                             std::int32_t vlngInstallType,
                             bool blnCRM = false);
  void GetBookAcroInfo(const std::string& vstrQuorBookCatePath, const std::string& vstrQuorTOcPath);
  TextArray GetBookAcroValue(const std::string& vstrCateName, const std::string& vstrQuorTOcPath);
  void AddBookAcro(const std::string& vstrCateName,
                   const TextArray& vstrarrBookAcro,
                   const std::string& vstrQuorBookCatePath);
  void Addothercategory(const std::string& vstrCateName,
                        const TextArray& vstrothCateBookAcro,
                        const std::string& vstrCategoryPath = {});
  TextArray SortArray(TextArray& rarrsBookNames,
                      TextArray& rarrsBookAcros,
                      std::int16_t ivalue = 0);
  void EditBookCateToXMLFile(const std::string& vstrBookCatePath,
                             const std::string& sBookCateName,
                             const std::string& sBookCateOLDName);
  bool bCheckIfDefaultCategory(const std::string& vstrBookCatePath,
                               const std::string& vstrCateName,
                               std::int32_t vlngInstallType);
  bool bCheckCategoryinQuorBookCategories(const std::string& vstrBookCatePath);

 private:
  Module& module_;
};

}  // namespace quorbind
