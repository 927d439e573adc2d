// A look-up, and a picture in a binary column.
#include <vandpublic/database.h>

#include <cstdlib>
#include <fstream>
#include <iostream>
#include <iterator>
#include <vector>

#include "demo.h"

using vandpublic::AutomationError;
using vandpublic::clsPublic;
using vandpublic::ConnectionRef;
using vandpublic::FieldRef;
using vandpublic::LockTypeEnum;
using vandpublic::RecordsetRef;
using vandpublic::String;
using vandpublic::Variant;

namespace {

// ODBC finds data sources by name in odbc.ini; this one is the demo's own.
void DescribeSource(const std::string& folder) {
  std::ofstream(folder + "/odbc.ini")
      << "[Staff]\nDriver=SQLite3\nDatabase=" << folder << "/staff.db\n";
  setenv("ODBCINI", (folder + "/odbc.ini").c_str(), 1);
}

void Run(const ConnectionRef& connection, const char* statement) {
  std::vector<Variant> arguments{Variant(statement)};
  connection->Call("Execute", arguments);
}

void MakeTable(const ConnectionRef& connection) {
  Run(connection, "CREATE TABLE Staff (Code INTEGER PRIMARY KEY, Name VARCHAR(40), Photo BLOB)");
  Run(connection, "INSERT INTO Staff VALUES (7, 'Aoife O''Brien', NULL), (8, 'Li Wei', NULL)");
}

void LookUp(clsPublic& component, ConnectionRef& connection) {
  Variant value;
  const String name = component.EncodeStrSQL("Aoife O'Brien");
  component.SelectField(connection, "Code", value, "Staff", "Name", String(name));
  std::cout << "SelectField(DB_Connection, \"Code\", rstr_ReturnValue, \"Staff\", \"Name\", \""
            << name.ToUtf8() << "\")\n    -> rstr_ReturnValue = " << *value.Get<vandpublic::Long>()
            << "\n\n";
}

// A picture that any program shows: 96 by 96 dots, three bytes each, a red and a blue ramp.
void DrawPicture(const std::string& file_name) {
  constexpr int kSide = 96;
  std::ofstream picture(file_name, std::ios::binary);
  picture << "P6\n" << kSide << ' ' << kSide << "\n255\n";
  for (int y = 0; y < kSide; ++y) {
    for (int x = 0; x < kSide; ++x)
      picture << static_cast<char>(x * 2) << '\x20' << static_cast<char>(y * 2);
  }
}

std::string Content(const std::string& file_name) {
  std::ifstream file(file_name, std::ios::binary);
  return {std::istreambuf_iterator<char>(file), {}};
}

bool SendPicture(clsPublic& component, ConnectionRef& connection, const std::string& folder) {
  String sent = folder + "/picture.ppm";
  String returned = folder + "/returned.ppm";
  DrawPicture(sent.ToUtf8());

  RecordsetRef rows = vandpublic::MakeRecordset();
  LockTypeEnum lock = vandpublic::adLockOptimistic;
  component.OpenADORecordSet(connection, rows, "Select * From Staff Where Code=7", lock);
  FieldRef photo = rows->GetFields()->GetItem(u"Photo");
  const bool stored = component.FileToColumn(photo, sent);
  rows->Call("Update", {});
  rows->Close();

  component.OpenADORecordSet(connection, rows, "Select Photo From Staff Where Code=7");
  photo = rows->GetFields()->GetItem(u"Photo");
  const vandpublic::Long size = photo->GetActualSize();
  const bool fetched = component.ColumnToFile(photo, returned);
  const bool same = Content(sent.ToUtf8()) == Content(returned.ToUtf8());
  std::cout << "FileToColumn(Photo, \"picture.ppm\")   -> " << (stored ? "True" : "False")
            << "\n    Update; the column now holds " << size << " bytes\n"
            << "ColumnToFile(Photo, \"returned.ppm\")  -> " << (fetched ? "True" : "False")
            << "\n    the two files are " << (same ? "the same" : "DIFFERENT") << "\n\n";
  return stored && fetched && same;
}

}  // namespace

bool ShowDatabases(clsPublic& component, const std::string& folder) {
  DescribeSource(folder);
  ConnectionRef connection = vandpublic::MakeConnection();
  try {
    component.OpenConnAsSQLDNS(connection, "Staff", "", "", "");
    std::cout << "OpenConnAsSQLDNS(adoConn, \"Staff\", \"\", \"\", \"\")   an SQLite file\n\n";
    MakeTable(connection);
    LookUp(component, connection);
    return SendPicture(component, connection, folder);
  } catch (const AutomationError& error) {
    std::cout << "the database cannot be used: " << String(error.description()).ToUtf8() << "\n\n";
    return false;
  }
}
