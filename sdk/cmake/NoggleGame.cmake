# noggle_game(FOLDER [SOURCES a.cpp ...] [USES targets ...] [FILES patterns ...] [INTO path])
#
# Lays out a game as it is delivered: the folder FOLDER with "GameSettings.ini", "Instructions.rtf", "sounds/*.wav" and
# the FILES, which may be patterns such as "pictures/*.png"; and beside them the plug-in library made of the SOURCES.
# A game without SOURCES is played by a shared component. The folder lies in INTO; else in the program's folder,
# NOGGLE_PROGRAM_FOLDER; else, outside the program's own tree, in "games" of the build folder.
# The target is game_FOLDER with "_" for "-"; the library carries the folder's name.
#
# noggle_component(NAME SOURCES a.cpp ... [USES targets ...] [INTO path])
#
# A library that several games share, laid out as "components/NAME.so".
#
# Everything of a game stays inside its library: two games may well have classes of one name.
function(noggle_library target name home)
  cmake_parse_arguments(GAME "" "" "SOURCES;USES" ${ARGN})
  add_library(${target} MODULE ${GAME_SOURCES})
  target_link_libraries(${target} PRIVATE ${GAME_USES} NoggleSdk::Controls)
  if(TARGET noggle_build)
    target_link_libraries(${target} PRIVATE noggle_build)
  endif()
  target_compile_features(${target} PRIVATE cxx_std_20)
  target_compile_options(${target} PRIVATE $<$<CXX_COMPILER_ID:GNU>:-fno-gnu-unique>)
  target_link_options(${target} PRIVATE $<$<PLATFORM_ID:Linux>:LINKER:--exclude-libs,ALL>)
  set_target_properties(${target} PROPERTIES
    AUTOMOC ON AUTOMOC_MACRO_NAMES "Q_OBJECT;Q_GADGET;Q_NAMESPACE"
    PREFIX "" OUTPUT_NAME ${name} CXX_VISIBILITY_PRESET hidden VISIBILITY_INLINES_HIDDEN ON
    LIBRARY_OUTPUT_DIRECTORY ${home})
endfunction()

# Where a delivered folder lies, into the variable.
function(noggle_home variable into path)
  if(into)
    set(${variable} ${into}/${path} PARENT_SCOPE)
  elseif(NOGGLE_DIST)
    set(${variable} ${NOGGLE_DIST}/${path} PARENT_SCOPE)
  elseif(NOGGLE_PROGRAM_FOLDER)
    set(${variable} ${NOGGLE_PROGRAM_FOLDER}/${path} PARENT_SCOPE)
  else()
    set(${variable} ${CMAKE_BINARY_DIR}/games/${path} PARENT_SCOPE)
  endif()
endfunction()

function(noggle_component name)
  cmake_parse_arguments(GAME "" "INTO" "SOURCES;USES" ${ARGN})
  string(MAKE_C_IDENTIFIER "component_${name}" target)
  noggle_home(home "${GAME_INTO}" components)
  noggle_library(${target} ${name} ${home} SOURCES ${GAME_SOURCES} USES ${GAME_USES})
  if(TARGET dist AND NOT GAME_INTO)
    add_dependencies(dist ${target})
  endif()
endfunction()

function(noggle_game folder)
  cmake_parse_arguments(GAME "" "INTO" "SOURCES;USES;FILES" ${ARGN})
  string(MAKE_C_IDENTIFIER "game_${folder}" target)
  noggle_home(home "${GAME_INTO}" ${folder})
  set(copies)
  foreach(pattern GameSettings.ini Instructions.rtf sounds/*.wav ${GAME_FILES})
    file(GLOB files RELATIVE ${CMAKE_CURRENT_SOURCE_DIR} CONFIGURE_DEPENDS ${CMAKE_CURRENT_SOURCE_DIR}/${pattern})
    foreach(file IN LISTS files)
      add_custom_command(OUTPUT ${home}/${file}
        COMMAND ${CMAKE_COMMAND} -E copy ${CMAKE_CURRENT_SOURCE_DIR}/${file} ${home}/${file}
        DEPENDS ${CMAKE_CURRENT_SOURCE_DIR}/${file} VERBATIM)
      list(APPEND copies ${home}/${file})
    endforeach()
  endforeach()

  if(GAME_SOURCES)
    noggle_library(${target} ${folder} ${home} SOURCES ${GAME_SOURCES} USES ${GAME_USES})
    if(copies)
      add_custom_target(${target}_files DEPENDS ${copies})
      add_dependencies(${target} ${target}_files)
    endif()
  else()
    add_custom_target(${target} ALL DEPENDS ${copies})
  endif()
  if(TARGET dist AND NOT GAME_INTO)
    add_dependencies(dist ${target})
  endif()
endfunction()
