# Builds for Windows with the distribution's mingw-w64; TRADEFORMS_TARGET is x86_64 or i686,
# TRADEFORMS_ROOTS where further libraries are installed.
list(APPEND CMAKE_TRY_COMPILE_PLATFORM_VARIABLES TRADEFORMS_TARGET TRADEFORMS_ROOTS)
if(NOT TRADEFORMS_TARGET)
    set(TRADEFORMS_TARGET x86_64)
endif()
set(triple ${TRADEFORMS_TARGET}-w64-mingw32)

set(CMAKE_SYSTEM_NAME Windows)
set(CMAKE_SYSTEM_PROCESSOR ${TRADEFORMS_TARGET})
set(CMAKE_C_COMPILER ${triple}-gcc-posix)
set(CMAKE_CXX_COMPILER ${triple}-g++-posix)
set(CMAKE_RC_COMPILER ${triple}-windres)

# Of an inline function that stands in several objects the linker keeps one. This compiler takes its
# own copy's use of registers for the one that will be kept, which another object's need not be.
set(CMAKE_C_FLAGS_INIT -fno-ipa-ra)
set(CMAKE_CXX_FLAGS_INIT -fno-ipa-ra)

set(CMAKE_FIND_ROOT_PATH ${TRADEFORMS_ROOTS} /usr/${triple})
list(APPEND CMAKE_PREFIX_PATH ${TRADEFORMS_ROOTS})
set(CMAKE_FIND_ROOT_PATH_MODE_PROGRAM NEVER)
set(CMAKE_FIND_ROOT_PATH_MODE_LIBRARY ONLY)
set(CMAKE_FIND_ROOT_PATH_MODE_INCLUDE ONLY)
set(CMAKE_FIND_ROOT_PATH_MODE_PACKAGE ONLY)
