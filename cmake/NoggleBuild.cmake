# Compiler settings that hold for every target of this project: warnings are errors, with g++ and clang++.
find_program(CCACHE_PROGRAM ccache)
if(CCACHE_PROGRAM)
  set(CMAKE_CXX_COMPILER_LAUNCHER ${CCACHE_PROGRAM})
endif()

add_library(noggle_build INTERFACE)
target_compile_options(noggle_build INTERFACE
  -Wall -Wextra -Wpedantic -Wconversion -Wno-sign-conversion -Wnon-virtual-dtor -Woverloaded-virtual
  -Wold-style-cast -Wnull-dereference -Wimplicit-fallthrough -Werror
  $<$<CXX_COMPILER_ID:GNU>:-Wshadow=local -Wduplicated-cond -Wlogical-op -Wno-null-dereference>
  $<$<CXX_COMPILER_ID:Clang>:-Wno-unknown-warning-option>)
target_compile_definitions(noggle_build INTERFACE
  QT_NO_CAST_FROM_ASCII QT_NO_CAST_TO_ASCII QT_NO_KEYWORDS QT_NO_FOREACH QT_DISABLE_DEPRECATED_BEFORE=0x060000)

# What nothing is called of is not loaded at each start: Qt's own settings would name the OpenGL libraries.
add_link_options(LINKER:--as-needed)

if(NOGGLE_SANITIZE)
  add_compile_options(-fsanitize=address,undefined -fno-sanitize-recover=undefined -fno-omit-frame-pointer)
  add_link_options(-fsanitize=address,undefined)
endif()
