# Generates the kernel-language lexer and parser from zelt.g with the ANTLR 3
# tool and builds them into zlc_zelt.  The generated files are compiled as
# C++ because the grammar's actions call the kernel model directly.
find_program(ANTLR3_TOOL antlr3 REQUIRED)
find_library(ANTLR3C_LIBRARY antlr3c REQUIRED)

set(ZELT_GRAMMAR ${CMAKE_SOURCE_DIR}/ZELT_ZLC/zelt.g)
set(ZELT_VOCAB ${CMAKE_SOURCE_DIR}/ZELT_ZLC/zelt_vocab.tokens)
set(ZELT_GEN_DIR ${CMAKE_BINARY_DIR}/zelt_generated)
set(ZELT_GEN_SOURCES ${ZELT_GEN_DIR}/zeltLexer.c ${ZELT_GEN_DIR}/zeltParser.c)
set(ZELT_GEN_HEADERS ${ZELT_GEN_DIR}/zeltLexer.h ${ZELT_GEN_DIR}/zeltParser.h)

add_custom_command(
  OUTPUT ${ZELT_GEN_SOURCES} ${ZELT_GEN_HEADERS}
  COMMAND ${CMAKE_COMMAND} -E make_directory ${ZELT_GEN_DIR}
  # The tool's template warnings for the C target go to a log; on failure
  # the log is shown.
  COMMAND sh -c "\"$0\" -fo \"$1\" -lib \"$2\" \"$3\" > \"$1/antlr3.log\" 2>&1 || { cat \"$1/antlr3.log\"; exit 1; }"
          ${ANTLR3_TOOL} ${ZELT_GEN_DIR} ${CMAKE_SOURCE_DIR}/ZELT_ZLC ${ZELT_GRAMMAR}
  DEPENDS ${ZELT_GRAMMAR} ${ZELT_VOCAB}
  COMMENT "Generating the kernel-language lexer and parser"
  VERBATIM)

set_source_files_properties(${ZELT_GEN_SOURCES} PROPERTIES
  GENERATED TRUE
  LANGUAGE CXX
  COMPILE_OPTIONS "-w")
target_sources(zlc_zelt PRIVATE ${ZELT_GEN_SOURCES} ${ZELT_GEN_HEADERS})
target_include_directories(zlc_zelt PUBLIC ${ZELT_GEN_DIR})
target_link_libraries(zlc_zelt PUBLIC ${ANTLR3C_LIBRARY})
