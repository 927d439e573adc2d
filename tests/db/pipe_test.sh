#!/bin/sh
# A file of a megabyte into a binary column and back through `vandpublic pipe`, on an SQLite source:
# the files are compared by cmp, and what is stored is read by SQLite's own client. Exit status 77
# where its driver or client is not installed.
#
#   tests/db/pipe_test.sh build/release/bin
set -eu
tool=$(cd "$1" && pwd)/vandpublic
driver=$(find /usr/lib -name libsqlite3odbc.so -print -quit 2>/dev/null)
if [ -z "$driver" ] || ! command -v sqlite3 >/dev/null; then
  echo "libsqliteodbc or sqlite3 is not installed"
  exit 77
fi
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT
cd "$work"
head -c 1048576 /dev/urandom >picture
printf '[Pictures]\nDriver=%s\nDatabase=%s/pictures.db\n' "$driver" "$work" >odbc.ini
export ODBCINI="$work/odbc.ini"
sqlite3 pictures.db "CREATE TABLE p (id INTEGER PRIMARY KEY, photo BLOB); INSERT INTO p VALUES (1, NULL)"

"$tool" pipe >replies <<END
{"new":"ADODB.Connection","as":"db"}
{"new":"ADODB.Recordset","as":"rows"}
{"member":"OpenConnAsSQLDNS","args":[{"var":"db"},"Pictures","","",""]}
{"member":"OpenADORecordSet","args":[{"var":"db"},{"var":"rows"},"Select * From p",3]}
{"on":"rows","get":"Fields","as":"fields"}
{"on":"fields","get":"Item","args":["photo"],"as":"photo"}
{"member":"FileToColumn","args":[{"var":"photo"},"$work/picture"]}
{"on":"rows","member":"Update"}
{"on":"rows","member":"Requery"}
{"on":"photo","get":"ActualSize"}
{"member":"ColumnToFile","args":[{"var":"photo"},"$work/returned"]}
{"on":"rows","member":"Close"}
{"on":"db","member":"Close"}
END
if grep error replies; then exit 1; fi
grep -q '"value":1048576' replies
cmp picture returned
sqlite3 pictures.db "SELECT writefile('stored', photo) FROM p" >/dev/null
cmp picture stored
echo "a megabyte there and back, and the same in the file"

# Where the driver manager knows no driver, a source without a driver of its own has no provider.
mkdir none
: >none/odbcinst.ini
ODBCSYSINI="$work/none" "$tool" pipe >replies <<END
{"new":"ADODB.Connection","as":"db"}
{"member":"OpenConnAsSQLDNS","args":[{"var":"db"},"Nowhere","","",""]}
END
[ "$(grep -c 'Provider cannot be found. It may not be properly installed.' replies)" -eq 1 ]
echo "no provider without drivers"
