#!/bin/bash
# Makes the pictures in docs/pictures from a build's programs, on a virtual screen, with the keys that a
# person would press and the service that comes with the programs.
#
# usage: scripts/make-pictures.sh [BUILD-FOLDER]      (default: build)
#
# Needs Debian's xvfb xdotool imagemagick poppler-utils python3.
set -euo pipefail
cd "$(dirname "$0")/.."
bin="${1:-build}/bin"
pictures=docs/pictures
input=scripts/pictures
service_port=8479
slow_port=8480
town_port=8481

work=$(mktemp -d)
started=()
finish() {
  for process in "${started[@]}"; do
    kill "$process" 2>/dev/null || true
  done
  wait
  rm -rf "$work"
}
trap finish EXIT

start() {
  "$@" >"$work/log" 2>&1 &
  started+=($!)
}

# The screen has no window manager, so a window has no frame and the one under the pointer has focus.
start Xvfb :77 -screen 0 2000x1500x24
export DISPLAY=:77 no_proxy='*' XDG_RUNTIME_DIR="$work" LANG=C.UTF-8
export XDG_CONFIG_HOME="$work/config" XDG_DATA_HOME="$work/data"  # as for a new user
unset QT_SCALE_FACTOR QT_QPA_PLATFORM
start "$bin/postwright-verifyd" --listen "127.0.0.1:$service_port"
start "$input/slow-service.py" "$slow_port" "$service_port" 0.08
"$bin/postwright-base" import "$work/town.base" data/sample/town.csv --source 'Made-up town' \
  --licence 'public domain' 2>"$work/log"
start "$bin/postwright-verifyd" --listen "127.0.0.1:$town_port" --base data/us-zips.tsv \
  --base data/sample/zips.tsv --base "$work/town.base"
until xdotool getmouselocation >/dev/null 2>&1; do sleep 0.1; done
for port in "$service_port" "$slow_port" "$town_port"; do
  until (exec 3<>"/dev/tcp/127.0.0.1/$port") 2>/dev/null; do sleep 0.1; done
done

# shot NAME [WINDOW]: a picture of the window, without the pointer.
shot() {
  sleep 0.6
  import -window "${2:-$window}" "$pictures/$1.png"
  echo "$pictures/$1.png"
}

keys() {
  xdotool key --delay 60 "$@"
}

# await TITLE: waits for the window with that title to be ready for keys.
await() {
  window=$(xdotool search --sync --onlyvisible --name "$1" | tail -1)
  xdotool windowfocus --sync "$window"
  sleep 1
}

# host [OPTION...] FILE: opens the batch window.
host() {
  "$bin/batch-host" --case mixed "$@" >"$work/out" 2>&1 &
  program=$!
  started+=($program)
  await "Fix Addresses"
}

leave() {
  kill "$program"
  wait "$program" 2>/dev/null || true
}

# 340 labels, for a run that lasts.
awk -F'\t' 'NR <= 340 {
  sub(/ St /, " Street "); sub(/ Ave /, " Avenue "); sub(/ Ste /, ", Suite ")
  print "The Office\n" $1 "\n" $2 ", " $3 " " $4 "\n"
}' \
  tests/client/data/labels.tsv >"$work/many.txt"
host --server "127.0.0.1:$slow_port" "$work/many.txt"
keys Down Down Down
sleep 6
shot batch-running
leave

batch=(--server "127.0.0.1:$service_port" --candidates "$input/candidates.json" "$input/labels.txt")
host "${batch[@]}"
keys Home Down Down Down
shot batch-finished
keys F8 Return Home Down
xdotool type --delay 30 "1200 "
shot batch-error
keys Escape F8 Return Down
shot batch-choice
keys Up Return
await "Choose One Address"
xdotool type C
shot designation-dialog
leave

host --dark "${batch[@]}"
keys Home Down Down Down
shot batch-dark
leave

QT_SCALE_FACTOR=2 host "${batch[@]}"
keys Home Down Down Down
shot batch-200-percent
leave

# Labels for a person to decide on, with an address base.
host --server "127.0.0.1:$town_port" "$input/town.txt"
keys Home F8
shot batch-candidates
keys Return Return
await "Choose One Address"
xdotool type 121
shot candidate-dialog
keys Escape
await "Fix Addresses"
keys alt+b Escape Home
shot batch-doubtful
keys alt+b alt+y
await "Address Check"
shot batch-summary
leave

# Whose streets to fetch, when there are none yet.
"$bin/postwright-addressbook" >"$work/out" 2>&1 &
program=$!
started+=($program)
await "Postwright Address Book"
keys alt+t
await "Fetch Streets"
xdotool type Tex
shot address-book-streets
keys Escape
leave

# How to read a file when that cannot be guessed.
cp "$input/old-mac.csv" "$work"
"$bin/postwright-addressbook" "$work/old-mac.csv" >"$work/out" 2>&1 &
program=$!
started+=($program)
await "Columns of"
keys alt+e
xdotool type M
shot address-book-encoding
leave

# A workbook with the list on its second sheet.
"$input/workbook.py" "$work/parish.xlsx"
"$bin/postwright-addressbook" "$work/parish.xlsx" >"$work/out" 2>&1 &
program=$!
started+=($program)
await "Columns of"
keys alt+s Down
shot address-book-workbook
leave

# The address book: choosing columns, fixing addresses, printing labels.
sed 's/,wa,98247,/,wa,98247-1234,/' examples/books/friends.csv >"$work/friends.csv"
echo "Eli Abbott,,7431 Monroe Boulevard,,Torreon,NM,87061,555-0120," >>"$work/friends.csv"
"$bin/postwright-addressbook" --server "127.0.0.1:$service_port" "$work/friends.csv" \
  >"$work/out" 2>&1 &
program=$!
started+=($program)
await "Columns of"
shot address-book-columns
keys Return
await "friends.csv"
book=$window
keys F7
await "Fix Addresses"
keys alt+l
xdotool type M  # mixed case
shot address-book-fix
keys Return
sleep 10  # the next window has the same title
await "Fix Addresses"
keys alt+a
sleep 2
window=$book
xdotool windowfocus --sync "$window"
keys Down Down Down Down
shot address-book
keys alt+f k
await "Addresses to Ask About"
shot address-book-ask
keys Escape
await "friends.csv"
keys alt+v s ctrl+Home shift+Down
shot address-book-same
keys alt+e g
await "Merge Entries"
shot address-book-merge
keys Escape
await "friends.csv"
keys alt+v f ctrl+Home Down Down Down Down
keys ctrl+p
await "Print Labels"
keys alt+b
xdotool type 4
shot address-book-print
keys alt+y alt+g
keys alt+d
await "Save the sheets"
xdotool type "$work/labels.pdf"
keys Return
sleep 2
pdftoppm -r 80 -png -singlefile "$work/labels.pdf" "$pictures/label-sheet"
echo "$pictures/label-sheet.png"

# Measures that do not fit; then an envelope with everything that can be on it.
await "friends.csv"
keys ctrl+p
await "Print Labels"
keys alt+o
await "Own Measures"
keys alt+n
xdotool type "Herbarium"
keys alt+f ctrl+a
xdotool type "2.5"
keys Tab
shot address-book-measures
keys Escape
await "Print Labels"
keys alt+s ctrl+a
xdotool type "No. 10"
keys Tab Tab alt+n alt+a
for line in "Rosa Ortega" "40 Elm St" "Reno, NV 89501"; do
  xdotool type --delay 30 "$line"
  keys Return
done
keys alt+i
xdotool type "$PWD/apps/addressbook/icons/addressbook.svg"
keys Tab alt+e alt+m alt+i
xdotool type "123456"
keys alt+v
xdotool type "040"
keys Tab
shot address-book-barcode
keys alt+d
await "Save the sheets"
keys ctrl+a
xdotool type "$work/envelopes.pdf"
keys Return
sleep 4
leave
pdftoppm -r 80 -png -f 7 -singlefile "$work/envelopes.pdf" "$pictures/envelope"
echo "$pictures/envelope.png"
