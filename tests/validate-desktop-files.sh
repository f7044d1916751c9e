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
