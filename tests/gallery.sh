#!/bin/sh
# Looks at galleries in a browser: two editions of the sample menu in two languages.
# usage: gallery.sh TOOL DIRECTORY_OF_THE_MENU DIRECTORY_FOR_THE_DRIVER_OF_THE_BROWSER
set -eu
tool=$1 menu=$2 driver=$3
# Later editions want a newer Node.js than Debian has.
[ -d "$driver/node_modules/playwright-core" ] ||
    npm install --no-save --no-audit --no-fund --loglevel=error --prefix "$driver" playwright-core@1.60
place=$(mktemp -d)
trap 'rm -rf "$place"' EXIT

# edition NAME SED_COMMAND... makes NAME/ from the sample menu in English and German.
edition() {
    source=$place/$1-source made=$place/$1
    shift
    cp -r "$menu" "$source"
    sed -i -e '/^  - fr$/,/^  - ar$/d' "$@" "$source/menu.yaml"
    # It names pages that one edition or the other does not have.
    sed -i 's/"white_balance": 9, "image": 9, //' "$source/osd_menu.json"
    "$tool" build "$source/menu.yaml" -o "$made" >/dev/null
}
edition now -e '/- name: white_balance$/,/name: hue/d'
edition before -e '/- name: image$/,/name: image_style/d' -e '/name: exposure_compensation/d' \
    -e 's/text: Backlight/text: Back light/'
"$tool" gallery "$place/now" -o "$place/plain.html" >/dev/null
"$tool" gallery "$place/now" "$place/now/de" -o "$place/two.html" >/dev/null
"$tool" gallery "$place/now" --against "$place/before" -o "$place/against.html" >/dev/null
cp "$(dirname "$0")/gallery.mjs" "$driver" # a script finds its modules from where it lies
node "$driver/gallery.mjs" "$tool" "$place"
