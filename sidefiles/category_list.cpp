#include "sidefiles/category_list.h"

#include "platform/error_trap.h"
#include "platform/first_element.h"
#include "platform/xml_document.h"
#include "platform/xpath_query.h"
#include "sidefiles/category_creation.h"
#include "sidefiles/category_file.h"
#include "sidefiles/names.h"

namespace quorbind {

void AddBookCateToXMLFile(const Platform& platform,
                          ProcessState& state,
                          const std::string& vstrBookCatePath,
                          const std::string& sBookCateName) {
  trapped(platform.ui, source::kAddBookCateToXmlFile, [&] {
    state.currentCategoriesPath = vstrBookCatePath;
    CategoryFile file(platform, vstrBookCatePath);
    if (file.load() && !sBookCateName.empty()) {
      file.addCategory(sBookCateName);
    }
    file.save();
  });
}

void EditBookCateToXMLFile(const Platform& platform,
                           ProcessState& state,
                           const std::string& vstrBookCatePath,
                           const std::string& sBookCateName,
                           const std::string& sBookCateOLDName) {
  trapped(platform.ui, source::kEditBookCateToXmlFile, [&] {
    state.currentCategoriesPath = vstrBookCatePath;
    const auto document = platform.xml.createDocument();
    if (document->load(vstrBookCatePath)) {
      const XmlNode name = document->select(
          categoryQuery(sBookCateOLDName).append("/").append(category_names::kName));
      if (name) {
        name.setText(sBookCateName);
      }
    }
    document->save(vstrBookCatePath);
  });
}

bool bCheckIfDefaultCategory(const Platform& platform,
                             const std::string& vstrBookCatePath,
                             const std::string& vstrCateName,
                             std::int32_t vlngInstallType) {
  return trapped(platform.ui, source::kCheckIfDefaultCategory, false, [&] {
    FirstElement name([](const XmlNode& /*name*/) {});
    const bool isLoaded = name.lookFor(platform.xml, vstrBookCatePath, [&] {
      return defaultCategoriesQuery(vlngInstallType)
          .append("[.=")
          .append(quotedForQuery(vstrCateName, '\''))
          .append("]");
    });
    return isLoaded && name.isFound();
  });
}

bool bCheckCategoryinQuorBookCategories(const Platform& platform,
                                        const std::string& vstrBookCatePath) {
  return trapped(platform.ui, source::kCheckCategoryInQuorBookCategories, false, [&] {
    const auto document = platform.xml.createDocument();
    return document->load(vstrBookCatePath) && !document->select(category_names::kSet).firstChild();
  });
}

}  // namespace quorbind
