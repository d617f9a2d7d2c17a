# What a user's Windows machine gets: the programs, their pages, and the replacements in a folder of
# their own. script/package makes the zip.
option(QVX_PAGES "Convert the package's pages to HTML; needs pandoc" OFF)

install(TARGETS QVXSolverLauncher start_launcher RUNTIME DESTINATION .)
install(TARGETS impiexec fake_solver RUNTIME DESTINATION replacements)
if(NOT QVX_CLOSED_LIBRARIES)
  install(TARGETS QVXSolverArgumentTool QVXMPITool QVXUnicodeTool RUNTIME DESTINATION replacements)
endif()

if(QVX_PAGES)
  find_program(QVX_PANDOC pandoc REQUIRED)
  set(pages)
  # The folders stay, so that links from page to page hold.
  foreach(page docs/windows docs/manual docs/glossary CHANGELOG replacements/README)
    set(source ${PROJECT_SOURCE_DIR}/${page}.md)
    set(html ${CMAKE_BINARY_DIR}/pages/${page}.html)
    cmake_path(GET page PARENT_PATH folder)
    file(MAKE_DIRECTORY ${CMAKE_BINARY_DIR}/pages/${folder})
    file(STRINGS ${source} title LIMIT_COUNT 1)
    string(REPLACE "# " "" title ${title})
    add_custom_command(OUTPUT ${html}
      COMMAND ${QVX_PANDOC} --from=gfm --to=html5 --standalone --variable=maxwidth:60em
              "--metadata=pagetitle:${PROJECT_NAME}: ${title}" --metadata=lang:en
              --lua-filter=${PROJECT_SOURCE_DIR}/cmake/link_to_html.lua --output=${html} ${source}
      DEPENDS ${source} ${PROJECT_SOURCE_DIR}/cmake/link_to_html.lua
      VERBATIM)
    install(FILES ${html} DESTINATION ./${folder})
    list(APPEND pages ${html})
  endforeach()
  add_custom_target(pages ALL DEPENDS ${pages})
endif()

set(CPACK_GENERATOR ZIP)
set(CPACK_PACKAGE_FILE_NAME ${PROJECT_NAME}-${PROJECT_VERSION}-win64)
set(CPACK_PACKAGE_CHECKSUM SHA256)
set(CPACK_POST_BUILD_SCRIPTS ${PROJECT_SOURCE_DIR}/cmake/sort_package.cmake)
set(CPACK_STRIP_FILES ON)
set(CPACK_VERBATIM_VARIABLES ON)
include(CPack)
