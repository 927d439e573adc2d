// Libraries that are looked for when they are first needed, so that the component itself loads
// where they are not installed.
#ifndef VANDPUBLIC_PLATFORM_POSIX_ADO_LOADED_LIBRARY_H
#define VANDPUBLIC_PLATFORM_POSIX_ADO_LOADED_LIBRARY_H

namespace vandpublic::ado {

// A shared library, loaded for the rest of the process: a library may leave threads, exit handlers
// or cached memory behind, so none is unloaded.
//
//   const LoadedLibrary library("libsqlite3.so.0");
//   auto* open = library.Function<decltype(sqlite3_open_v2)>("sqlite3_open_v2");
class LoadedLibrary {
 public:
  // Error 3706, "Provider cannot be found. ...", where the library is not installed.
  explicit LoadedLibrary(const char* file_name);

  // The function of that name; 3706 where the library has none.
  template <class F>
  F* Function(const char* name) const {
    return reinterpret_cast<F*>(Symbol(name));
  }

 private:
  void* Symbol(const char* name) const;

  void* handle_;
};

}  // namespace vandpublic::ado

#endif
