# One program lists the destinations while another one stripes.
receive frames
stripe 01:00:00:00 01:00:02:00 --destination aseqdump &
await received frames 5
destinations > destinations
wait $!
