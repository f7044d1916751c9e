#!/bin/sh
# Validates the desktop entry, the AppStream metainfo and the MIME package in the folder $1 with
# the freedesktop tools; exits 77 (the test is skipped) when one of them is not installed.
set -eu
folder="$1"
id=org.example.Zephalon
for tool in desktop-file-validate appstreamcli update-mime-database; do
  command -v "$tool" >/dev/null || { echo "$tool is not installed"; exit 77; }
done
desktop-file-validate "$folder/$id.desktop"
appstreamcli validate --no-net "$folder/$id.metainfo.xml"
# update-mime-database exits 0 whatever it finds wrong, so what it reports is the verdict.
data=$(mktemp -d)
trap 'rm -rf "$data"' EXIT
mkdir -p "$data/mime/packages"
cp "$folder/$id.mime.xml" "$data/mime/packages/$id.xml"
report=$(XDG_DATA_DIRS="$data" update-mime-database "$data/mime" 2>&1)
[ -z "$report" ] || { echo "$report"; exit 1; }
# The character type that the desktop entry opens is the one the package defines.
grep -qx "MimeType=application/x-zephalon-character;" "$folder/$id.desktop"
grep -q "^ character application/x-zephalon-character$" "$data/mime/XMLnamespaces"
# A file manager gives a character file the character type and leaves other XML alone.
system=/usr/share/mime/packages/freedesktop.org.xml
if command -v gio >/dev/null && [ -f "$system" ]; then
  cp "$system" "$data/mime/packages/"
  XDG_DATA_DIRS="$data" update-mime-database "$data/mime"
  printf '<?xml version="1.0"?>\n<!-- note -->\n<character>\n</character>\n' > "$data/bob.xml"
  printf '<?xml version="1.0"?>\n<zephalondata><character/></zephalondata>\n' > "$data/rules.xml"
  type() { XDG_DATA_DIRS="$data" gio info -a standard::content-type "$data/$1" | sed -n 's/.*content-type: //p'; }
  [ "$(type bob.xml)" = application/x-zephalon-character ] || { echo "bob.xml: $(type bob.xml)"; exit 1; }
  [ "$(type rules.xml)" = application/xml ] || { echo "rules.xml: $(type rules.xml)"; exit 1; }
fi
