// The part of the demo that works with a database.
#ifndef VANDPUBLIC_EXAMPLES_DEMO_DATABASES_H
#define VANDPUBLIC_EXAMPLES_DEMO_DATABASES_H

#include <vandpublic/clsPublic.h>

#include <string>

// Makes an SQLite source in the folder, looks a value up with SelectField, and sends a picture into
// a binary column and back. Needs SQLite's ODBC driver (libsqliteodbc); without it, says so. False
// where something did not work.
bool ShowDatabases(vandpublic::clsPublic& component, const std::string& folder);

#endif
