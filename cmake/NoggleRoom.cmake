# noggle_room(TARGET FOLDER SOURCES a.cpp ... USES other targets ...)
# Sources are named from the room's folder.
#
# One room of the house: a static library made of one folder. A header is included by its room,
# "domain/CPlayer.h", and is found only by who links the room: each room has an include folder of its
# own in the build tree, which holds nothing but a link to that room. A wrong arrow does not compile.
function(noggle_room target folder)
  cmake_parse_arguments(ROOM "" "" "SOURCES;USES" ${ARGN})
  set(forest ${CMAKE_BINARY_DIR}/rooms/${target})
  cmake_path(GET folder PARENT_PATH above)
  file(MAKE_DIRECTORY ${forest}/${above})
  if(NOT EXISTS ${forest}/${folder})
    file(CREATE_LINK ${CMAKE_SOURCE_DIR}/${folder} ${forest}/${folder} SYMBOLIC)
  endif()

  if(NOT ROOM_SOURCES) # a room of headers alone
    file(WRITE ${forest}/empty.cpp "")
    set(ROOM_SOURCES ${forest}/empty.cpp)
  endif()
  list(TRANSFORM ROOM_SOURCES PREPEND ${CMAKE_SOURCE_DIR}/${folder}/ REGEX "^[^/]")
  add_library(${target} STATIC ${ROOM_SOURCES})
  target_include_directories(${target} PUBLIC $<BUILD_INTERFACE:${forest}>)
  target_link_libraries(${target} PUBLIC ${ROOM_USES} PRIVATE $<BUILD_INTERFACE:noggle_build>)
  noggle_header_check(${target} ${folder})
endfunction()

# Every header of the room compiles alone: one generated source a header, built by the target check_headers.
function(noggle_header_check target folder)
  file(GLOB_RECURSE headers RELATIVE ${CMAKE_SOURCE_DIR} CONFIGURE_DEPENDS ${CMAKE_SOURCE_DIR}/${folder}/*.h)
  if(NOT headers)
    return()
  endif()
  set(sources)
  foreach(header IN LISTS headers)
    if(header MATCHES "^shell/program/|^domain/upload/" AND NOT header MATCHES "^${folder}/[^/]*$")
      continue() # a room of its own inside this folder
    endif()
    set(source ${CMAKE_BINARY_DIR}/headers/${target}/${header}.cpp)
    file(GENERATE OUTPUT ${source} CONTENT "#include \"${header}\"\n#include \"${header}\"\n")
    list(APPEND sources ${source})
  endforeach()
  if(NOT sources) # all of them belong to rooms inside this one
    return()
  endif()
  add_library(headers_${target} OBJECT EXCLUDE_FROM_ALL ${sources})
  set_target_properties(headers_${target} PROPERTIES AUTOMOC OFF)
  target_link_libraries(headers_${target} PRIVATE ${target} noggle_build)
  if(NOT TARGET check_headers)
    add_custom_target(check_headers)
  endif()
  add_dependencies(check_headers headers_${target})
endfunction()
