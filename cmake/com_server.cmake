# DLLs that serve COM classes.

find_program(QUORBIND_WIDL ${QUORBIND_TARGET}-widl REQUIRED)
# Wine's: the toolchain has the headers made from the first, and none of the second.
find_path(QUORBIND_IDL_FOLDER oaidl.idl
          PATHS /usr/include/wine/wine/windows /usr/include/wine/windows
          REQUIRED NO_CMAKE_FIND_ROOT_PATH)
find_path(QUORBIND_TYPE_LIBRARY_FOLDER stdole2.tlb
          PATHS /usr/lib/x86_64-linux-gnu/wine/x86_64-windows /usr/lib/wine/x86_64-windows
          REQUIRED NO_CMAKE_FIND_ROOT_PATH)

# quorbind_type_library(NAME IDL): the type library NAME.tlb and the header NAME_com.h from an IDL
# file, in the current build folder. The library tells the local time of its making; that is fixed, so
# that its bytes are.
function(quorbind_type_library name idl)
  set(widl ${QUORBIND_WIDL} -I ${QUORBIND_IDL_FOLDER} -L ${QUORBIND_TYPE_LIBRARY_FOLDER})
  if(CMAKE_SIZEOF_VOID_P EQUAL 8)
    list(APPEND widl --win64)
  else()
    list(APPEND widl --win32)
  endif()
  add_custom_command(
    OUTPUT ${name}.tlb ${name}_com.h
    COMMAND ${CMAKE_COMMAND} -E env TZ=UTC WIDL_TIME_OVERRIDE=0 ${widl} -t -o ${name}.tlb ${idl}
    COMMAND ${widl} -h -o ${name}_com.h ${idl}
    DEPENDS ${idl}
    VERBATIM)
  add_custom_target(${name}_type_library DEPENDS ${name}.tlb ${name}_com.h)
endfunction()

# quorbind_com_server(TARGET NAME FILE SOURCES ... USES ...): FILE.dll at the root of the build
# folder, serving the classes of the type library NAME. SOURCES hold its definition file and its
# resources, which embed NAME.tlb.
function(quorbind_com_server target name file)
  cmake_parse_arguments(SERVER "" "" "SOURCES;USES" ${ARGN})
  # In the DLL itself, since nothing but the definition file asks for what it exports.
  # The run-time finds what is in the DLL itself before what is in the system's libraries.
  add_library(${target} SHARED ${PROJECT_SOURCE_DIR}/component/server/entry_points.cpp
                               ${PROJECT_SOURCE_DIR}/component/server/thread_slots.cpp
                               ${SERVER_SOURCES})
  add_dependencies(${target} ${name}_type_library)
  set_target_properties(${target} PROPERTIES PREFIX "" OUTPUT_NAME ${file}
                        RUNTIME_OUTPUT_DIRECTORY ${PROJECT_BINARY_DIR})
  target_include_directories(${target} SYSTEM PRIVATE ${CMAKE_CURRENT_BINARY_DIR})
  target_link_libraries(${target} PRIVATE quorbind_server ${SERVER_USES})
  if(CMAKE_SIZEOF_VOID_P EQUAL 4)
    # Entry points have decorated names there, under which they are also looked for in a library.
    target_link_options(${target} PRIVATE -Wl,--enable-stdcall-fixup -Wl,-u,_DllCanUnloadNow@0)
  endif()
  set_property(SOURCE ${SERVER_SOURCES} APPEND PROPERTY OBJECT_DEPENDS
               ${CMAKE_CURRENT_BINARY_DIR}/${name}.tlb)
  quorbind_symbols_beside(${target})
endfunction()
