#!/usr/bin/env bash
# Installs a build into a throw-away DESTDIR and checks the result as a desktop
# would see it: the launcher and the software-centre record validate, and every
# file they name (program, icon sizes, launcher, screenshot) is where they say.
#   scripts/check-install.sh BUILD_DIR
# Needs desktop-file-validate and appstreamcli (scripts/install-deps.sh).
set -euo pipefail

build=${1:?usage: check-install.sh BUILD_DIR}
# /usr, where a distribution package would put it and where validate-tree looks.
prefix=/usr
id=org.larderkeep.Larderkeep

for tool in desktop-file-validate appstreamcli; do
  command -v "$tool" >/dev/null || { echo "$tool is missing: run scripts/install-deps.sh" >&2; exit 1; }
done

dest=$(mktemp -d)
# An install rewrites the build's install_manifest.txt, the list a real install
# is uninstalled by; the one that was there is put back.
manifest=$build/install_manifest.txt
saved=
if [ -f "$manifest" ]; then
  saved=$dest.manifest
  cp "$manifest" "$saved"
fi
restore() {
  if [ -n "$saved" ]; then mv "$saved" "$manifest"; else rm -f "$manifest"; fi
  rm -rf "$dest"
}
trap restore EXIT
DESTDIR=$dest cmake --install "$build" --prefix "$prefix" >/dev/null
root=$dest$prefix
failures=0
fail() { echo "FAIL: $*" >&2; failures=$((failures + 1)); }

desktop=$root/share/applications/$id.desktop
metainfo=$root/share/metainfo/$id.metainfo.xml
[ -f "$desktop" ] || { echo "FAIL: no launcher at ${desktop#"$dest"}" >&2; exit 1; }
[ -f "$metainfo" ] || { echo "FAIL: no metainfo at ${metainfo#"$dest"}" >&2; exit 1; }

echo "== desktop-file-validate"
desktop-file-validate "$desktop" || fail "desktop-file-validate"
echo "== appstreamcli validate --no-net"
appstreamcli validate --no-net "$metainfo" || fail "appstreamcli validate"
echo "== appstreamcli validate-tree --no-net"
appstreamcli validate-tree --no-net "$dest" || fail "appstreamcli validate-tree"

# One key of the launcher's [Desktop Entry] group.
entry() { sed -n "s/^$1=//p" "$desktop" | head -1; }
# The text of the first element of the record with this name (one per line there).
element() { sed -n "s:.*<$1[^>]*>\([^<]*\)</$1>.*:\1:p" "$metainfo" | head -1; }

# The launcher's program, looked up as the desktop would: on PATH, that is in bin/.
for key in Exec TryExec; do
  program=$(entry "$key" | awk '{print $1}')
  [ -n "$program" ] || { fail "launcher has no $key"; continue; }
  [ -x "$root/bin/$program" ] || fail "$key=$program is not an installed program in bin/"
done

icon=$(entry Icon)
[ "$icon" = "$id" ] || fail "launcher icon '$icon' is not named after the application id $id"
[ -f "$root/share/icons/hicolor/scalable/apps/$icon.svg" ] || fail "no scalable icon $icon.svg"
for size in 48 128 256; do
  png=$root/share/icons/hicolor/${size}x${size}/apps/$icon.png
  if [ ! -f "$png" ]; then
    fail "no ${size}x${size} icon $icon.png"
    continue
  fi
  # A PNG's width and height are the big-endian words at bytes 16 and 20.
  read -r w h < <(od -An -tu1 -j16 -N8 "$png" |
    awk '{print $1*16777216+$2*65536+$3*256+$4, $5*16777216+$6*65536+$7*256+$8}')
  [ "$w" = "$size" ] && [ "$h" = "$size" ] || fail "$size icon is ${w}x${h}"
done

[ "$(element id)" = "$id" ] || fail "metainfo id '$(element id)' is not $id"
launchable=$(element launchable)
[ "$launchable" = "$id.desktop" ] || fail "metainfo launches '$launchable', not the launcher $id.desktop"
[ -f "$root/share/applications/$launchable" ] || fail "launchable $launchable is not installed"
[ "$(element icon)" = "$icon" ] || fail "metainfo icon '$(element icon)' differs from the launcher's '$icon'"
binary=$(element binary)
[ -x "$root/bin/$binary" ] || fail "provided binary '$binary' is not installed in bin/"

# The screenshot's address keeps the path the picture has in the sources, and
# the installed README shows the same picture beside it.
shot=$(element image)
case "$shot" in
  https://*/docs/main-window.png) ;;
  *) fail "screenshot '$shot' is not the https address of docs/main-window.png" ;;
esac
readme=$(find "$root/share/doc" -name README.md | head -1)
if [ -z "$readme" ]; then
  fail "README.md is not installed under share/doc"
elif [ ! -f "$(dirname "$readme")/docs/main-window.png" ]; then
  fail "docs/main-window.png is not installed beside the README"
fi

# The newest release in the record is the version the program reports.
release=$(sed -n 's:.*<release version="\([^"]*\)".*:\1:p' "$metainfo" | head -1)
reported=$("$root/bin/$binary" --version)
[ "$reported" = "Larderkeep $release" ] || fail "program says '$reported', newest release is '$release'"

if [ "$failures" -ne 0 ]; then
  echo "$failures check(s) failed" >&2
  exit 1
fi
echo "installed tree is complete: $(cd "$dest" && find . -type f | sort | tr '\n' ' ')"
