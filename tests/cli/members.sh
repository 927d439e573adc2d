#!/bin/sh
# The member table.
vandpublic members | wc -l
vandpublic members | grep -n 'HexToDec('
vandpublic members HEXTODEC
echo ----
vandpublic members debugmode
echo ----
vandpublic members --json HexToDec
vandpublic members --json | tr -d ' \n' | cut -c1-120
vandpublic --version | sed 's/[0-9][0-9.]*/VERSION/'
