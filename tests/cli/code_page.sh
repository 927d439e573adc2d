#!/bin/sh
# The ANSI code page, selected before or after the command.
vandpublic call FstrVbStrToHexStr 'é中'
vandpublic call FstrVbStrToHexStr 'é中' --codepage 936
vandpublic --codepage=932 call FstrVbStrToHexStr 'é中'
echo '{"member":"FstrVbStrToHexStr","args":["é中"]}' | vandpublic pipe --codepage 950
