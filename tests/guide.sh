#!/bin/sh
# Does what a new user does: runs the commands of a guide, in their order, in an empty directory.
# usage: guide.sh GUIDE DIRECTORY_OF_THE_TOOL
set -eu
guide=$1
PATH=$2:$PATH
place=$(mktemp -d)
trap 'rm -rf "$place"' EXIT
cd "$place"
sed -n '/^```sh$/,/^```$/{/^```/d;p}' "$guide" >commands
sh -eu ./commands >told
file page.png page-ja.png | grep -c 'PNG image data, 1760 x 1160' | grep -qx 2
! cmp -s page.png page-ja.png
grep -q '\[untranslated\]' told
grep -q 'brightness' told
