// The chapters of the demo, and how a transcript line looks. Each chapter is a file of its own and
// reads as a client's program would.
#ifndef VANDPUBLIC_EXAMPLES_DEMO_DEMO_H
#define VANDPUBLIC_EXAMPLES_DEMO_DEMO_H

#include <vandpublic/clsPublic.h>

#include <string>

// "    what = "value"".
void Show(const std::string& what, const vandpublic::String& value);
// A byte array as display text.
void Show(vandpublic::clsPublic& component, const std::string& what, vandpublic::ByteArray& bytes);

// Hex text enciphered and deciphered.
void ShowCiphers(vandpublic::clsPublic& component);
// A card key from a master key, a retail MAC under it, a protected text and back.
void ShowKeys(vandpublic::clsPublic& component);
// An SQLite source made in the folder: a value looked up, and a picture in a binary column and
// back. Needs SQLite's ODBC driver (libsqliteodbc). False where something did not work.
bool ShowDatabases(vandpublic::clsPublic& component, const std::string& folder);
// An error caught, and the log that it left in the folder.
void ShowFailure(vandpublic::clsPublic& component, const std::string& folder);

#endif
