# One interface target carries the warnings and sanitizers of all our code.
add_library(compiler_settings INTERFACE)
target_compile_options(compiler_settings INTERFACE
  -Wall -Wextra -Wpedantic -Wshadow -Wconversion -Wsign-conversion -Wold-style-cast
  -Wnon-virtual-dtor -Woverloaded-virtual -Wcast-align -Wdouble-promotion -Wformat=2
  $<$<BOOL:${QUARNEL02_WERROR}>:-Werror>)
# GCC 12 sees overlapping copies in "text" + std::string where there are none.
target_compile_options(compiler_settings INTERFACE
  $<$<AND:$<CXX_COMPILER_ID:GNU>,$<VERSION_LESS:$<CXX_COMPILER_VERSION>,13>>:-Wno-restrict>)
# Results must not depend on the optimiser: no fused multiply-add.
target_compile_options(compiler_settings INTERFACE -ffp-contract=off)

# Instrumented code makes GCC doubt initialised members of its own <regex>.
if(QUARNEL02_SANITIZE)
  target_compile_options(compiler_settings INTERFACE
    $<$<CXX_COMPILER_ID:GNU>:-Wno-maybe-uninitialized>
    -fsanitize=${QUARNEL02_SANITIZE} -fno-sanitize-recover=all -fno-omit-frame-pointer)
  target_link_options(compiler_settings INTERFACE -fsanitize=${QUARNEL02_SANITIZE})
endif()
