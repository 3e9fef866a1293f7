# noggle_game(FOLDER SOURCES a.cpp ... [USES targets ...] [INTO path])
#
# A game as it is delivered: a plug-in library beside "GameSettings.ini", "Instructions.rtf" and "sounds/", in a
# folder of its own in the program's folder, or in the folder INTO of the build tree for a game of the tests.
# The target is game_FOLDER with "_" for "-"; the library carries the folder's name.
#
# Everything of a game stays inside its library: two games may well have classes of one name.
function(noggle_game folder)
  cmake_parse_arguments(GAME "" "INTO" "SOURCES;USES" ${ARGN})
  string(MAKE_C_IDENTIFIER "game_${folder}" target)
  set(delivered GameSettings.ini Instructions.rtf)
  file(GLOB sounds RELATIVE ${CMAKE_CURRENT_SOURCE_DIR} CONFIGURE_DEPENDS ${CMAKE_CURRENT_SOURCE_DIR}/sounds/*.wav)
  list(APPEND delivered ${sounds})

  add_library(${target} MODULE ${GAME_SOURCES})
  target_link_libraries(${target} PRIVATE noggle_sdk ${GAME_USES} noggle_build)
  target_compile_options(${target} PRIVATE $<$<CXX_COMPILER_ID:GNU>:-fno-gnu-unique>)
  set_target_properties(${target} PROPERTIES
    PREFIX "" OUTPUT_NAME ${folder} CXX_VISIBILITY_PRESET hidden VISIBILITY_INLINES_HIDDEN ON
    AUTOMOC_MACRO_NAMES "Q_OBJECT;Q_GADGET;Q_NAMESPACE")

  set(home ${NOGGLE_DIST}/${folder})
  if(GAME_INTO)
    set(home ${GAME_INTO}/${folder})
  else()
    add_dependencies(dist ${target})
  endif()
  set_target_properties(${target} PROPERTIES LIBRARY_OUTPUT_DIRECTORY ${home})

  foreach(file IN LISTS delivered)
    if(NOT EXISTS ${CMAKE_CURRENT_SOURCE_DIR}/${file})
      continue()
    endif()
    add_custom_command(OUTPUT ${home}/${file}
      COMMAND ${CMAKE_COMMAND} -E copy ${CMAKE_CURRENT_SOURCE_DIR}/${file} ${home}/${file}
      DEPENDS ${CMAKE_CURRENT_SOURCE_DIR}/${file} VERBATIM)
    list(APPEND copies ${home}/${file})
  endforeach()
  if(copies)
    add_custom_target(${target}_files DEPENDS ${copies})
    add_dependencies(${target} ${target}_files)
  endif()
endfunction()
