# noggle_module(OUTPUT SCRIPT [BITS 32] [FILES folder] [DEPENDS files ...])
#
# A resource-only module made from a resource script, for 64 bit unless told otherwise. Files named in the script
# are looked for in the folder given as FILES. The bytes depend on the script, those files and the module's name alone:
# no time is written into the module.
find_program(NOGGLE_WINDRES x86_64-w64-mingw32-windres REQUIRED)
find_program(NOGGLE_MODULE_LD x86_64-w64-mingw32-ld REQUIRED)

function(noggle_module output script)
  cmake_parse_arguments(MODULE "" "BITS;FILES" "DEPENDS" ${ARGN})
  set(windres ${NOGGLE_WINDRES})
  set(ld ${NOGGLE_MODULE_LD})
  if(MODULE_BITS EQUAL 32)
    find_program(NOGGLE_WINDRES_32 i686-w64-mingw32-windres REQUIRED)
    find_program(NOGGLE_MODULE_LD_32 i686-w64-mingw32-ld REQUIRED)
    set(windres ${NOGGLE_WINDRES_32})
    set(ld ${NOGGLE_MODULE_LD_32})
  endif()
  if(NOT MODULE_FILES)
    cmake_path(GET script PARENT_PATH MODULE_FILES)
  endif()
  add_custom_command(OUTPUT ${output}
    # All there is to preprocess are lines of comment, and the resource compiler's own preprocessor is another package.
    COMMAND ${windres} --preprocessor=sed --preprocessor-arg=s,^//.*,, -c 65001 -O coff ${script} ${output}.o
    COMMAND ${ld} -shared -e 0 -s --no-insert-timestamp ${output}.o -o ${output}
    COMMAND ${CMAKE_COMMAND} -E rm ${output}.o
    DEPENDS ${script} ${MODULE_DEPENDS} WORKING_DIRECTORY ${MODULE_FILES} VERBATIM)
endfunction()
