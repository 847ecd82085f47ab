# Installation and the Debian package.  `cmake --install` puts the tool in
# bin/, its compressed manual page in share/man/man1/, and the guides, the
# copyright notice and the gallery of examples in share/doc/zlc9k/;
# `cpack -G DEB` wraps the same files in a package whose dependencies
# dpkg-shlibdeps reads off the binary, so that they name the ANTLR 3 C runtime
# package it links against.
include(GNUInstallDirs)

# The manual page is compressed without a name or time stamp in the gzip
# header, so that the same page always gives the same bytes.
set(zlc_man_page ${CMAKE_BINARY_DIR}/zlc9k.1.gz)
add_custom_command(
  OUTPUT ${zlc_man_page}
  COMMAND sh -c "gzip -9n -c \"$0\" > \"$1\"" ${CMAKE_SOURCE_DIR}/docs/zlc9k.1 ${zlc_man_page}
  DEPENDS ${CMAKE_SOURCE_DIR}/docs/zlc9k.1
  COMMENT "Compressing the manual page"
  VERBATIM)
add_custom_target(man_page ALL DEPENDS ${zlc_man_page})

install(TARGETS zlc9k RUNTIME DESTINATION ${CMAKE_INSTALL_BINDIR})
install(FILES ${zlc_man_page} DESTINATION ${CMAKE_INSTALL_MANDIR}/man1)
install(FILES ${CMAKE_SOURCE_DIR}/docs/language.md ${CMAKE_SOURCE_DIR}/docs/messages.md
              ${CMAKE_SOURCE_DIR}/docs/copyright
        DESTINATION ${CMAKE_INSTALL_DOCDIR})
install(DIRECTORY ${CMAKE_SOURCE_DIR}/examples/ DESTINATION ${CMAKE_INSTALL_DOCDIR}/examples
        FILES_MATCHING PATTERN "*.k")

# The package carries the version that the tool reports, read from the one
# place that holds it.
file(READ ${CMAKE_SOURCE_DIR}/support/identity.cpp zlc_identity)
foreach(part major minor patch)
  if(NOT zlc_identity MATCHES "int version_${part}\\(\\) { return ([0-9]+); }")
    message(FATAL_ERROR "support/identity.cpp: no version_${part}() returning a number")
  endif()
  set(zlc_version_${part} ${CMAKE_MATCH_1})
endforeach()

set(CPACK_PACKAGE_NAME zlc9k)
set(CPACK_PACKAGE_VERSION "${zlc_version_major}.${zlc_version_minor}.${zlc_version_patch}")
set(CPACK_PACKAGE_DESCRIPTION_SUMMARY "translator of ZELT vector kernels into C++ for the Q9k processor")
set(CPACK_PACKAGE_DESCRIPTION "zlc9k reads a source file of ZELT kernels, checks each kernel against the rules of the vector coprocessor and writes a C++ source file, and optionally a header, for the Q9k processor. It is one step of a compiler driver's build.")
set(CPACK_PACKAGE_CONTACT "zlc9k developers <zlc9k@localhost>")
set(CPACK_STRIP_FILES ON)
set(CPACK_DEBIAN_FILE_NAME DEB-DEFAULT)
set(CPACK_DEBIAN_PACKAGE_SECTION devel)
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS ON)
include(CPack)
