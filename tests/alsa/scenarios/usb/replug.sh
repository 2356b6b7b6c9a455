# The box is replugged during a stripe.
makeBox replug
plug replug 0
receive frames-before f_midi:1
stripe 01:00:00:00 01:00:05:00 --destination "Timecode Box MIDI 2" &
run=$!
await received frames-before 5
unplug replug
kill "$receiver"
plug replug 0
receive frames-after f_midi:1
wait $run
endReception frames-after 2
unplug replug
