// Whether this build runs many times slower than the one that is installed: with sanitizers or
// without optimisation. Long tests take fewer steps there.
#ifndef VANDPUBLIC_TESTS_SUPPORT_SLOW_BUILD_H
#define VANDPUBLIC_TESTS_SUPPORT_SLOW_BUILD_H

namespace vandpublic {

#if defined(__SANITIZE_ADDRESS__) || !defined(__OPTIMIZE__)
inline constexpr bool kSlowBuild = true;
#else
inline constexpr bool kSlowBuild = false;
#endif

}  // namespace vandpublic

#endif
