# The warnings of our own code, on one interface target that every target of ours links.
add_library(vandpublic_warnings INTERFACE)
target_compile_options(vandpublic_warnings INTERFACE
  -Wall -Wextra -Wpedantic -Wconversion -Wsign-conversion
  $<IF:$<CXX_COMPILER_ID:GNU>,-Wshadow=local,-Wshadow>
  $<$<BOOL:${VANDPUBLIC_WERROR}>:-Werror>)
