# Toolchain file: compiles for macOS on Linux, with the clang of a zig distribution. VOLTMERE_ZIG
# names its program, VOLTMERE_CROSS_CPU is aarch64 or x86_64. tools/check_macos sets both.

set(CMAKE_TRY_COMPILE_PLATFORM_VARIABLES
  VOLTMERE_ZIG VOLTMERE_CROSS_CPU VOLTMERE_OLDEST_MACOS)
set(CMAKE_SYSTEM_NAME Darwin)
set(CMAKE_SYSTEM_PROCESSOR ${VOLTMERE_CROSS_CPU})

set(target -target ${VOLTMERE_CROSS_CPU}-macos.${VOLTMERE_OLDEST_MACOS})
set(CMAKE_C_COMPILER ${VOLTMERE_ZIG} cc ${target})
set(CMAKE_CXX_COMPILER ${VOLTMERE_ZIG} c++ ${target})
set(CMAKE_OBJCXX_COMPILER ${VOLTMERE_ZIG} c++ ${target})

# The target above says all that CMake would say with flags of Apple's compiler.
set(CMAKE_OSX_SYSROOT "")
set(CMAKE_OSX_DEPLOYMENT_TARGET "")

# zig's archiver is a subcommand, which CMake knows no variable for.
foreach(language IN ITEMS C CXX OBJCXX)
  set(CMAKE_${language}_ARCHIVE_CREATE "\"${VOLTMERE_ZIG}\" ar qc <TARGET> <LINK_FLAGS> <OBJECTS>")
  set(CMAKE_${language}_ARCHIVE_APPEND "\"${VOLTMERE_ZIG}\" ar q <TARGET> <LINK_FLAGS> <OBJECTS>")
  set(CMAKE_${language}_ARCHIVE_FINISH "\"${VOLTMERE_ZIG}\" ranlib <TARGET>")
endforeach()
set(CMAKE_INSTALL_NAME_TOOL /bin/true)

# Libraries of this machine are no use; the packages beside this file stand in for them.
set(CMAKE_FIND_ROOT_PATH ${CMAKE_CURRENT_LIST_DIR}/packages)
set(CMAKE_FIND_ROOT_PATH_MODE_PACKAGE ONLY)
set(CMAKE_FIND_ROOT_PATH_MODE_LIBRARY ONLY)
set(CMAKE_FIND_ROOT_PATH_MODE_INCLUDE ONLY)
set(CMAKE_FIND_ROOT_PATH_MODE_PROGRAM NEVER)

# Headers and link stubs of our own stand in for the system's frameworks.
set(frameworks ${CMAKE_CURRENT_LIST_DIR}/frameworks)
# (zig passes its clang a flag of its own, -ObjC++, which that finds needless.)
set(CMAKE_OBJCXX_FLAGS_INIT "-isystem ${frameworks}/include -Wno-unused-command-line-argument")
set(CMAKE_EXE_LINKER_FLAGS_INIT "-F ${frameworks} -L${frameworks} -lobjc")
