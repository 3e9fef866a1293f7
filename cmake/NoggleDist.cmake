# The program's folder is laid out in the build tree, as it is delivered: ${NOGGLE_DIST}.
# Every file in it is put there by noggle_dist_file or noggle_dist_folder; the program runs from there.
set(NOGGLE_DIST ${CMAKE_BINARY_DIR}/dist)
file(MAKE_DIRECTORY ${NOGGLE_DIST})
add_custom_target(dist ALL)

# Where tests and benches look for the library that they load with their first chart.
# The old kind of run path: the sanitizers load libraries in the program's stead, and the new kind is no help to them.
set(CMAKE_BUILD_RPATH ${NOGGLE_DIST})
add_link_options(LINKER:--disable-new-dtags)

# noggle_dist_file(SOURCE PATH-IN-DIST): copied whenever the source is newer. The name of a helper target
# is made from the path.
function(noggle_dist_file source path)
  add_custom_command(OUTPUT ${NOGGLE_DIST}/${path}
    COMMAND ${CMAKE_COMMAND} -E copy ${source} ${NOGGLE_DIST}/${path}
    DEPENDS ${source} VERBATIM)
  string(MAKE_C_IDENTIFIER "dist_${path}" name)
  add_custom_target(${name} DEPENDS ${NOGGLE_DIST}/${path})
  add_dependencies(dist ${name})
endfunction()

# noggle_dist_folder(SOURCE-FOLDER PATH-IN-DIST): every file below the folder, each with a rule of its own.
# Files that the program writes first-read defaults to are never copied back over the source.
function(noggle_dist_folder source path)
  file(GLOB_RECURSE files RELATIVE ${source} CONFIGURE_DEPENDS ${source}/*)
  foreach(file IN LISTS files)
    noggle_dist_file(${source}/${file} ${path}/${file})
  endforeach()
endfunction()
