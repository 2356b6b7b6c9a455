# What the status line says of the box while it is unplugged and plugged in again.
makeBox words
plug words 0
receive frames-before f_midi:1
mkfifo requests
destination_words alsa < requests > words &
exec 3> requests
ask() { echo "$*" >&3; }
say() { tail -n 1 words | cut -f 2 | grep "^$1"; }

await say "f_midi f_midi-0" # the first destination
ask destination Timecode Box MIDI 2
await say "Timecode Box MIDI 2 · stop · "
ask start 01:00:00:00
await say "Timecode Box MIDI 2 · start 01:00:00:00 · "
await received frames-before 3
unplug words
kill "$receiver"
await say "Timecode Box MIDI 2 is not there"
ask start 02:00:00:00

plug words 0
receive frames-after f_midi:1
await say "Timecode Box MIDI 2 · start 01:00:00:00 · "
ask start 03:00:00:00
await say "Timecode Box MIDI 2 · start 03:00:00:00 · "
ask destination
await say "no destination"
ask stop
ask destination Timecode Box MIDI 2
await say "Timecode Box MIDI 2 · stop · "
endReception frames-after 3
exec 3>&-
unplug words
