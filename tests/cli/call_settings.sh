#!/bin/sh
# The object's settings, and where the log goes.
mkdir LOG other
vandpublic call HexToDec G --app-path . 2>/dev/null
vandpublic call HexToBit G --log-path other --log-name my.log 2>/dev/null
vandpublic call HexToDec G --app-path . --debug-mode 0 2>/dev/null
vandpublic call HexToDec G --app-path . --debug-mode DEBUG_MODE_MSGBOX
for log in LOG/ERROR.log other/my.log; do
  echo "$log"
  cut -c21- $log | tr '\r' '$'
done
vandpublic call LogFileFullName --app-path '/srv/app '
vandpublic call DebugMode --app-path /srv --debug-mode 7
vandpublic call AppPath
find . | sort
