#!/usr/bin/env bash
# Builds the Debian package from a copy of the source tree, as a user or a build daemon would,
# checks it with lintian, unpacks it into a throwaway root and runs both programs from there.
# Usage: build_package.sh SOURCE_DIR
set -euo pipefail
source_dir=$(cd "$1" && pwd)
work=$(mktemp -d "${TMPDIR:-/tmp}/nivalis-package.XXXXXX")
trap 'rm -rf "$work"' EXIT
fail() { echo "FAIL: $*" >&2; exit 1; }

# A copy of the tree without build outputs: the tracked and unignored files of a checkout, or
# everything but build folders elsewhere.
mkdir "$work/nivalis"
if git -C "$source_dir" rev-parse --is-inside-work-tree >/dev/null 2>&1; then
    (cd "$source_dir" && git ls-files -z --cached --others --exclude-standard |
        xargs -0 -r sh -c 'for f; do [ -e "$f" ] && printf "%s\0" "$f"; done' sh |
        tar --null -T - -cf -) | tar -xf - -C "$work/nivalis"
else
    tar -C "$source_dir" --exclude='./build*' -cf - . | tar -xf - -C "$work/nivalis"
fi

echo "== dpkg-buildpackage"
jobs=$(nproc)
(cd "$work/nivalis" &&
    DEB_BUILD_OPTIONS="parallel=$jobs nocheck" dpkg-buildpackage -b -us -uc >"$work/build.log" 2>&1) ||
    { tail -50 "$work/build.log"; fail "dpkg-buildpackage"; }
deb=$(ls "$work"/nivalis_*.deb)
dpkg-deb --info "$deb" | sed -n '/Depends/p'

echo "== lintian"
lintian --fail-on error "$deb" | tee "$work/lintian.log" ||
    fail "lintian reports errors"

echo "== contents"
root="$work/root"
dpkg -x "$deb" "$root"
for path in usr/bin/nivalis usr/bin/nivalis-render usr/share/man/man1/nivalis.1.gz \
    usr/share/man/man1/nivalis-render.1.gz usr/share/applications/io.github.nivalis.Nivalis.desktop \
    usr/share/metainfo/io.github.nivalis.Nivalis.metainfo.xml \
    usr/share/icons/hicolor/scalable/apps/io.github.nivalis.Nivalis.svg \
    usr/share/icons/hicolor/48x48/apps/io.github.nivalis.Nivalis.png \
    usr/share/nivalis/fonts usr/share/nivalis/nivalis usr/share/nivalis/betonia usr/share/nivalis/example; do
    [ -e "$root/$path" ] || fail "the package lacks /$path"
done
dpkg-deb --field "$deb" Depends | grep -q 'libqt6widgets6' || fail "Depends lacks the Qt libraries"

echo "== desktop entry and metainfo"
desktop-file-validate "$root/usr/share/applications/io.github.nivalis.Nivalis.desktop" || fail "desktop entry"
appstreamcli validate-tree --no-net "$root/usr" || fail "AppStream metainfo"

echo "== the programs"
version=$(env -u DISPLAY -u WAYLAND_DISPLAY "$root/usr/bin/nivalis" --version) || fail "nivalis --version"
[[ "$version" =~ ^nivalis\ [0-9]+\.[0-9]+\.[0-9]+$ ]] || fail "nivalis --version said '$version'"
"$root/usr/bin/nivalis-render" --size 320x180 --out "$work/frame.png" || fail "nivalis-render"
[ "$(head -c 8 "$work/frame.png" | od -An -tx1 | tr -d ' \n')" = 89504e470d0a1a0a ] || fail "no PNG written"
# A picture of the scene compresses far worse than a flat or empty frame would.
[ "$(stat -c %s "$work/frame.png")" -gt 20000 ] || fail "the frame looks empty ($(stat -c %s "$work/frame.png") bytes)"
echo "package ok: $(basename "$deb"), $version"
