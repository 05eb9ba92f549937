// Prints what the type library of a DLL publishes, as the golden files have it:
//   print_type_library DLL

#include <iostream>

#include "platform/windows/com_types.h"
#include "tests/component/type_library_text.h"

int main(int count, char** arguments) {
  if (count != 2) {
    std::cerr << "usage: print_type_library DLL\n";
    return 2;
  }
  quorbind::ComPtr<ITypeLib> library;
  const std::wstring path = quorbind::toWide(arguments[1]);
  if (FAILED(::LoadTypeLibEx(path.c_str(), REGKIND_NONE, library.put()))) {
    std::cerr << "no type library in " << arguments[1] << '\n';
    return 1;
  }
  std::cout << quorbind::testing::describe(*library.get());
  return 0;
}
