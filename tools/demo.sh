#!/usr/bin/env bash
# Shows the main job with the program: demo.sh PROGRAM [FOLDER for what it makes].
set -euo pipefail
program=$(realpath "$1")
cd "$(dirname "${BASH_SOURCE[0]}")/.."
folder=${2:-demo}
base=$folder/pine-ridge.well2
input=data/demo

bold='' dim='' plain=''
[ ! -t 1 ] || bold=$'\033[1m' dim=$'\033[36m' plain=$'\033[0m'

step() { printf '\n%s%s%s\n' "$bold" "$*" "$plain"; }
welldb() {
    printf '%s$ welldb' "$dim"
    printf ' %s' "${@@Q}" | sed "s/'\([^' ]*\)'/\1/g"
    printf '%s\n' "$plain"
    "$program" "$@"
}

rm -rf "$folder"
mkdir -p "$folder"

step "1. A new well database"
welldb create "$base"

step "2. What is in a log file, before it is taken: a Cyrillic one, its encoding found out"
welldb las $input/severnaya-7-cp1251.las

step "3. Five log files go in: metres, feet, wrapped lines, two encodings"
welldb import las "$base" $input --object Demo

step "4. The survey of the deviated well"
welldb import survey "$base" --well PR-2D $input/pr-2d-survey.lst

step "5. The wells, and the logs of one"
welldb wells "$base"
welldb props "$base" --well PR-2D

step "6. The gamma ray at a reservoir: measured depth, absolute depth, value"
welldb data "$base" --well PR-2D --prop GR --from 1762 --to 1763

step "7. Where the hole is: by measured depth, and by absolute depth (elevation)"
welldb depth "$base" --well PR-2D --md 400 1000 1762
welldb depth "$base" --well PR-2D --abs -1300

step "8. Two logs go out again"
welldb export las "$base" --well PR-2D --prop GR --prop RT --exact -o "$folder/pr-2d-out.las"
printf '%s$ head -n 25 %s%s\n' "$dim" "$folder/pr-2d-out.las" "$plain"
head -n 25 "$folder/pr-2d-out.las"

step "9. The whole database"
welldb info "$base"

cat <<TEXT

${bold}Everything lies in $folder/${plain}
  $base        the database, one SQLite file
  ${base%.well2}/             the samples of the logs, a folder for each well
  $folder/pr-2d-out.las           the exported logs
The program is ${program#"$PWD/"}; welldb --help tells what else it does.
TEXT
