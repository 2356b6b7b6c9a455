# The receiver goes away during a stripe.
receive frames
stripe 01:00:00:00 01:00:03:00 --destination aseqdump &
await received frames 5
kill "$receiver"
wait $!
