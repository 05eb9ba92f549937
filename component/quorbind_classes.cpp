#include <array>

#include "component/book_config_object.h"
#include "component/component_module.h"
#include "component/quor_book_object.h"
#include "component/server/server.h"
#include "component/sort_object.h"
#include "component/toc_to_xml_object.h"

namespace quorbind {

namespace {

const std::array kClasses{
#define QUOR_CLASS(name, object, description) \
  ServedClass{__uuidof(::name), L"Quorbind." L## #name, L##description, &create<object>},
#include "component/classes.def"
#undef QUOR_CLASS
};

}  // namespace

const ServerDescription& serverDescription() {
  static const ServerDescription description{LIBID_Quorbind, kClasses, &releaseComponentModule};
  return description;
}

}  // namespace quorbind
