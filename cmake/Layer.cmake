# add_layer(NAME SOURCES ... LINKS ... [PRIVATE_LINKS ...])
# One folder of src/ as one static library that includes by "folder/Header.h".
function(add_layer name)
  cmake_parse_arguments(LAYER "" "" "SOURCES;LINKS;PRIVATE_LINKS" ${ARGN})
  add_library(${name} STATIC ${LAYER_SOURCES})
  target_include_directories(${name} PUBLIC ${CMAKE_SOURCE_DIR}/src)
  target_link_libraries(${name}
    PUBLIC ${LAYER_LINKS}
    PRIVATE compiler_settings ${LAYER_PRIVATE_LINKS})
endfunction()
