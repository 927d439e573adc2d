# The warnings of our own code, on one interface target that every target of ours links.
add_library(vandpublic_warnings INTERFACE)
target_compile_options(vandpublic_warnings INTERFACE
  -Wall -Wextra -Wpedantic -Wconversion -Wsign-conversion
  # g++ 12 warns of -Wrestrict inside its own std::string (GCC bug 105651); its full -Wshadow
  # takes an enumerator that is named like a type for a shadow.
  $<$<CXX_COMPILER_ID:GNU>:-Wno-restrict;-Wshadow=local>
  $<$<CXX_COMPILER_ID:Clang>:-Wshadow>
  $<$<BOOL:${VANDPUBLIC_WERROR}>:-Werror>)
