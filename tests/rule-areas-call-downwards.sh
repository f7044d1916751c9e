#!/bin/sh
# The rule areas call one another downwards only: no area includes, through any chain, an area
# that includes it back, so each can be read and changed from the bottom up. tsort fails on a loop.
cd "$1" || exit 1
pairs=$(for file in *.h *.cpp; do
    sed -n 's/^#include "rules\/\([A-Za-z]*\)\.h"$/\1/p' "$file" | sed "/^${file%.*}\$/d; s/^/${file%.*} /"
done)
[ "$(echo "$pairs" | wc -l)" -gt 10 ] || { echo "too few includes read in $1"; exit 1; }
echo "$pairs" | tsort > /dev/null
