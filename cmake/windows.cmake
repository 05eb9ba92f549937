# What every target of a Windows build is made with.

# The headers show what the newest Windows has; what an older one lacks is asked for while running,
# never imported.
add_compile_definitions(UNICODE _UNICODE NOMINMAX WIN32_LEAN_AND_MEAN _WIN32_WINNT=0x0A00)

# Only Windows' own DLLs are needed. Equal sources give equal bytes, wherever they are built.
add_compile_options(
  "$<$<COMPILE_LANGUAGE:C,CXX>:-ffile-prefix-map=${PROJECT_SOURCE_DIR}/=>"
  "$<$<COMPILE_LANGUAGE:C,CXX>:-ffile-prefix-map=${PROJECT_BINARY_DIR}/=>")
add_link_options(-static -Wl,--no-insert-timestamp)

# A function calls its own copy of an inline one there as GCC sees it, and counts on the registers that
# this copy leaves alone. The linker keeps one copy of all, maybe that of a test, which is compiled
# with other options. clang-tidy, which reads no tests, does not know the option.
if(QUORBIND_TESTS)
  add_compile_options($<$<COMPILE_LANGUAGE:C,CXX>:-fno-ipa-ra>)
endif()
