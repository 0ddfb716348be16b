#!/usr/bin/env bash
# Fails when an include goes up a floor: platform/ uses nothing of ours, core/
# only platform/, the subsystems anything but app/. Run by ctest.
set -euo pipefail
root=${1:-$(cd "$(dirname "$0")/.." && pwd)}
cd "$root"
subsystems="recipes meals lists stores coupons products measures text handheld publish messages"
status=0
check() {  # folder, allowed include roots (regex)
  local folder=$1 allowed=$2
  [ -d "$folder" ] || return 0
  while IFS= read -r hit; do
    echo "layering: $hit"
    status=1
  done < <(grep -rnE '^\s*#\s*include\s+"[a-z]+/' --include='*.cpp' --include='*.h' "$folder" |
           grep -vE "#\s*include\s+\"($allowed)/" || true)
}
check platform 'platform'
check core 'platform|core'
for s in $subsystems; do
  check "$s" "platform|core|${subsystems// /|}"
done
if [ $status -ne 0 ]; then
  echo "An include goes up a floor (platform < core < subsystems < app)."
fi
exit $status
