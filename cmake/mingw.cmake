# What both Windows toolchains share; the including file sets QUORBIND_TARGET to the target's
# triplet.
set(CMAKE_SYSTEM_NAME Windows)
set(CMAKE_C_COMPILER ${QUORBIND_TARGET}-gcc-posix)
set(CMAKE_CXX_COMPILER ${QUORBIND_TARGET}-g++-posix)
set(CMAKE_RC_COMPILER ${QUORBIND_TARGET}-windres)
set(CMAKE_AR ${QUORBIND_TARGET}-gcc-ar-posix)
set(CMAKE_RANLIB ${QUORBIND_TARGET}-gcc-ranlib-posix)

# Nothing of this machine's own is used but its programs.
set(CMAKE_FIND_ROOT_PATH /usr/${QUORBIND_TARGET})
set(CMAKE_FIND_ROOT_PATH_MODE_PROGRAM NEVER)
set(CMAKE_FIND_ROOT_PATH_MODE_LIBRARY ONLY)
set(CMAKE_FIND_ROOT_PATH_MODE_INCLUDE ONLY)
set(CMAKE_FIND_ROOT_PATH_MODE_PACKAGE ONLY)
