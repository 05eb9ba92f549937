#include <array>

#include "component/server/server.h"
#include "component/toolset/objects.h"

namespace quorbind {

namespace {

const std::array kClasses{
#define QUOR_CLASS(name, progId, object, description) \
  ServedClass{__uuidof(::name), L##progId, L##description, &create<object>},
#include "component/toolset/classes.def"
#undef QUOR_CLASS
};

void stayAsItIs() noexcept {}

}  // namespace

const ServerDescription& serverDescription() {
  static const ServerDescription description{LIBID_QuorToolset, kClasses, &stayAsItIs};
  return description;
}

}  // namespace quorbind
