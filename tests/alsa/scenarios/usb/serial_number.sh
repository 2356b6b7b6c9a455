# Two boxes with different serial numbers, which swap sockets.
makeBox serial-a A1
makeBox serial-b B2
plug serial-a 0
plug serial-b 1
destinations > destinations-ab
unplug serial-a
unplug serial-b
plug serial-b 0
plug serial-a 1
destinations > destinations-ba
receive frames "$(inside 1 1)"
stripe 01:00:00:00 01:00:00:10 --destination \
    "$(grep 'Timecode Box MIDI 2' destinations-ab | head -n 1 | cut -f 2)"
endReception frames 7
unplug serial-a
unplug serial-b
