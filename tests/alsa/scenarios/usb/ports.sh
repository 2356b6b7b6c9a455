makeBox ports
plug ports 0
destinations > destinations
for port in 0 1; do
    receive frames-$port f_midi:$port
    stripe 01:00:00:00 01:00:00:10 --destination "Timecode Box MIDI $((port + 1))"
    endReception frames-$port 7
done
unplug ports
