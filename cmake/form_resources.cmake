# The forms as dialog resources: printed from their one layout by a program of the building machine,
# compiled into the object library quorbind_form_resources.
find_program(QUORBIND_HOST_CXX NAMES c++ g++ clang++ REQUIRED)

set(forms_rc ${CMAKE_CURRENT_BINARY_DIR}/forms.rc)
set(print_forms_rc ${CMAKE_CURRENT_BINARY_DIR}/print_forms_rc)
add_custom_command(
  OUTPUT ${forms_rc}
  COMMAND ${QUORBIND_HOST_CXX} -std=c++20 -I ${PROJECT_SOURCE_DIR} -o ${print_forms_rc}
          ${PROJECT_SOURCE_DIR}/resources/print_forms_rc.cpp
  COMMAND ${print_forms_rc} > ${forms_rc}
  DEPENDS ${PROJECT_SOURCE_DIR}/resources/print_forms_rc.cpp
          ${PROJECT_SOURCE_DIR}/resources/form_ids.h
          ${PROJECT_SOURCE_DIR}/resources/form_layouts.h
  COMMENT "Printing the forms' dialog resources"
  VERBATIM)
add_library(quorbind_form_resources OBJECT ${forms_rc})
