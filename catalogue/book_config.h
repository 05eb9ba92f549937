#pragma once

#include <cstdint>
#include <string>

#include "platform/text_array.h"
#include "workflow/forms/module.h"

namespace quorbind {

/// The public class through which a host works on a library's catalogue. Each operation reads the
/// files it names afresh and saves what it changed before it returns; an unexpected error ends it
/// with a message box.
class Book_Config {
 public:
  /// Kept by reference.
  explicit Book_Config(Module& module) : module_(module) {}

  /// Takes the entry of the first book of that name, in the form in which names are stored, out of
  /// the catalogue. Without such a book the catalogue is saved as it is.
  void DeleteQuorNode(const std::string& vstrQuorTOcPath, const std::string& vstrBookName);

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
