// OpenConnAsSQLDNS, OpenConnAsMDB and OpenConnAsFoxpro: connection strings for three kinds of data
// sources. They are built by plain concatenation; clients may compare them, so every blank and
// semicolon stays where it is.
#include <string>

#include "db/object_ref.h"
#include "frame/trap.h"
#include "members/messages.h"
#include "platform/database.h"
#include "platform/platform.h"

namespace vandpublic {

bool clsPublic::OpenConnAsSQLDNS(ConnectionRef& adoConn, const String& sDsn,
                                 const String& sDatabaseName, const String& sUserid,
                                 const String& sPwd, OptionalRef<String> rstr_ErrDesc) {
  return Trapped(*this, Member::OpenConnAsSQLDNS, rstr_ErrDesc, [&] {
    std::u16string text = u"Provider=MSDASQL.1;User ID=";
    text += sUserid.view();
    text += u";Password=";
    text += sPwd.view();
    text += u"; Data Source=";  // with the blank
    text += sDsn.view();
    text += u";Initial Catalog=";
    text += sDatabaseName.view();
    Connection& connection = ObjectIn(adoConn);
    connection.SetConnectionString(text);
    connection.Open(u"", u"", u"", kUnspecified);
    return true;
  });
}

bool clsPublic::OpenConnAsMDB(ConnectionRef& DB_Conn, const String& istr_MDBPath,
                              const String& istr_Password, OptionalRef<String> rstr_ErrDesc) {
  return Trapped(*this, Member::OpenConnAsMDB, rstr_ErrDesc, [&] {
    if (DB_Conn == nullptr) Reject(messages::kConnectionNotSet);
    const std::u16string_view path = TrimSpaces(istr_MDBPath.view());
    if (path.empty()) Reject(messages::kMdbPathMissing);
    // Nothing is left for this check after the one above.
    if (FstrIsNullExt(istr_MDBPath, true, true)) Reject(messages::kFileNameMissing);
    if (!platform().files->FindsNormalFile(path)) Reject(messages::kMdbNotFound);
    std::u16string text = u"Provider=Microsoft.Jet.OLEDB.4.0;Data Source=";
    text += path;
    text += u';';
    const std::u16string_view password = TrimSpaces(istr_Password.view());
    if (!password.empty()) {
      text += u"Jet OLEDB:Database password=";
      text += password;
      text += u';';
    }
    DB_Conn->Open(text, u"", u"", kUnspecified);
    return true;
  });
}

bool clsPublic::OpenConnAsFoxpro(ConnectionRef& DB_Conn, const String& istr_DBFDirectory,
                                 OptionalRef<String> rstr_ErrDesc) {
  return Trapped(*this, Member::OpenConnAsFoxpro, rstr_ErrDesc, [&] {
    if (DB_Conn == nullptr) Reject(messages::kConnectionNotSet);
    const std::u16string_view folder = TrimSpaces(istr_DBFDirectory.view());
    if (folder.empty()) Reject(messages::kDbfFolderMissing);
    if (!platform().files->FindsFileOrFolder(folder)) Reject(messages::kDbfNotFound);
    std::u16string text = u"Driver={Microsoft Visual FoxPro Driver};SourceType=DBF;SourceDB=";
    text += folder;
    text += u";Exclusive=No";  // without a final semicolon
    DB_Conn->Open(text, u"", u"", kUnspecified);
    return true;
  });
}

}  // namespace vandpublic
