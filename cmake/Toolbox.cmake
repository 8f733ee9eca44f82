# Faster builds where the machine has the tools; nothing here changes what is built.

find_program(KOLIBRI_CCACHE ccache)
if(KOLIBRI_CCACHE AND NOT CMAKE_CXX_COMPILER_LAUNCHER)
  # Without this sloppiness ccache refuses every file that uses a precompiled header.
  set(CMAKE_CXX_COMPILER_LAUNCHER
      ${CMAKE_COMMAND} -E env CCACHE_SLOPPINESS=pch_defines,time_macros,include_file_mtime,include_file_ctime
      ${KOLIBRI_CCACHE})
endif()

find_program(KOLIBRI_MOLD mold)
if(KOLIBRI_MOLD AND CMAKE_CXX_COMPILER_ID STREQUAL "GNU" AND CMAKE_CXX_COMPILER_VERSION VERSION_GREATER_EQUAL 12.1)
  add_link_options(-fuse-ld=mold)
endif()
