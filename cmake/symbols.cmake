# Symbols of what is shipped: functions and lines, for those who look into a crash. They stand beside
# the program, which names them and goes without.

set(QUORBIND_SYMBOLS "$<$<AND:$<CONFIG:Release>,$<COMPILE_LANGUAGE:C,CXX>>:-g1>")
if(NOT WIN32)
  # Nothing tells where it was built. Windows programs are made so anyway.
  list(APPEND QUORBIND_SYMBOLS
       "$<$<AND:$<CONFIG:Release>,$<COMPILE_LANGUAGE:C,CXX>>:-ffile-prefix-map=${PROJECT_SOURCE_DIR}/=>"
       "$<$<AND:$<CONFIG:Release>,$<COMPILE_LANGUAGE:C,CXX>>:-ffile-prefix-map=${PROJECT_BINARY_DIR}/=>")
endif()

# quorbind_symbols_beside(TARGET): moves the symbols of a Release build's program or DLL into a file
# beside it, called like it with .debug at the end.
function(quorbind_symbols_beside target)
  target_compile_options(${target} PRIVATE ${QUORBIND_SYMBOLS})
  if(NOT CMAKE_BUILD_TYPE STREQUAL Release)
    return()
  endif()
  # Both tools would write the time of their run into a DLL.
  set(timeless ${CMAKE_COMMAND} -E env SOURCE_DATE_EPOCH=0)
  set(file $<TARGET_FILE_NAME:${target}>)
  add_custom_command(
    TARGET ${target} POST_BUILD
    COMMAND ${timeless} ${CMAKE_OBJCOPY} --only-keep-debug ${file} ${file}.debug
    COMMAND ${timeless} ${CMAKE_STRIP} -o ${file}.stripped ${file}
    COMMAND ${timeless} ${CMAKE_OBJCOPY} --add-gnu-debuglink=${file}.debug ${file}.stripped
    # Somebody may be running the program that was there.
    COMMAND ${CMAKE_COMMAND} -E rename ${file}.stripped ${file}
    WORKING_DIRECTORY $<TARGET_FILE_DIR:${target}>
    VERBATIM)
endfunction()
