#!/bin/sh
# The end of the conversation, and streams that fail.
vandpublic pipe </dev/null
echo "no input: $?"
vandpublic pipe <.
echo "a folder as input: $?"
vandpublic pipe <&-
echo "input closed: $?"
echo '{}' | vandpublic pipe >/dev/full
echo "output full: $?"
echo '{}' | vandpublic pipe >&-
echo "output closed: $?"
vandpublic call IsHex 1F >/dev/full
echo "result lost: $?"
(
  (while echo '{}'; do :; done) 2>/dev/null | {
    vandpublic pipe
    echo "reader gone: $?" >&2
  }
) | head -n 1
