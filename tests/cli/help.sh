#!/bin/sh
# Help texts, to standard output when they are asked for.
vandpublic --help
echo ----
vandpublic call -h
echo ----
vandpublic pipe --help
echo ----
vandpublic --help members
echo ----
vandpublic registry --help
