# Tests that are run under Wine.

# quorbind_test_under_wine(SCRIPT): the programs that are added in this folder from now on run by
# script/SCRIPT, in a prefix of that name in the build folder. Their tests take the properties
# QUORBIND_WINE_TEST. The first of them has the prefix made, so that this is not part of its time;
# after the last one nothing may run there any more. Those in one prefix take turns, since they
# share what is registered and the screen.
macro(quorbind_test_under_wine script)
  set(run ${PROJECT_SOURCE_DIR}/script/${script} ${PROJECT_BINARY_DIR}/${script})
  add_test(NAME ${script}_begins COMMAND ${run} cmd /c exit)
  add_test(NAME ${script}_ends
           COMMAND ${PROJECT_SOURCE_DIR}/script/wine-end ${PROJECT_BINARY_DIR}/${script})
  set_tests_properties(${script}_begins PROPERTIES FIXTURES_SETUP ${script} TIMEOUT 600)
  set_tests_properties(${script}_ends PROPERTIES FIXTURES_CLEANUP ${script} TIMEOUT 120)
  set(CMAKE_CROSSCOMPILING_EMULATOR ${run})
  set(QUORBIND_WINE_TEST FIXTURES_REQUIRED ${script} RESOURCE_LOCK ${script} TIMEOUT 300)
endmacro()
