#!/bin/sh
# What the built library offers and needs, and whether each public header stands alone.
#   exports.sh NM READELF CC CXX LIBRARY DEVICE_DIR SANITIZERS
set -u
nm=$1 readelf=$2 cc=$3 cxx=$4 library=$5 device=$6 sanitizers=$7
status=0
fail() { echo "$*" >&2; status=1; }

symbols=$("$nm" -D --defined-only "$library") || exit 1
names=$(echo "$symbols" | awk '{print $NF}' | LC_ALL=C sort)
[ "$names" = "$(LC_ALL=C sort "$device/osd_menu/exports.txt")" ] || fail "exported names differ from exports.txt: $names"
echo "$symbols" | grep -q ' W osdmenu_helpline_type_set_from_version$' || fail "the version hook is not weak"

# A sanitizer brings a runtime of its own.
needed=$("$readelf" -d "$library" | sed -n 's/.*(NEEDED).*\[\(.*\)\.so.*/\1/p' | LC_ALL=C sort | tr '\n' ' ')
[ -n "$sanitizers" ] || [ "$needed" = "libc libcjson " ] || fail "needs more than libc and libcjson: $needed"

for header in osd_menu/osd_menu.h osd_menu/osd_menu_post.h osd_menu/list.h \
    base/lib_dbgout.h base/lib_common.h base/host_settings.h; do
    set -- -fsyntax-only -Wall -Wextra -Wpedantic -Werror -I "$device/osd_menu" -include "$device/$header"
    "$cc" -std=c11 "$@" -x c /dev/null || fail "$header does not compile alone as C11"
    "$cxx" -std=c++17 "$@" -x c++ /dev/null || fail "$header does not compile alone as C++17"
done
exit $status
