# Two boxes with the same serial number. One is remembered while it is alone; then the other comes
# and goes.
makeBox twin-a 0001
makeBox twin-b 0001
plug twin-a 0
destinations > destinations-alone
remember destinations-alone

# The other box arrives during a stripe.
receive frames-arrival "$(inside 0 1)"
stripe 01:00:00:00 01:00:05:00 &
run=$!
await received frames-arrival 5
plug twin-b 1
wait $run
endReception frames-arrival 7
destinations > destinations-both

# The remembered box goes away during a stripe, and its twin stays.
receive frames-twin "$(inside 1 1)"
rm shown
stripe 01:00:00:00 01:00:05:00 &
run=$!
await grep 01:00:01 shown
unplug twin-a
wait $run
endReception frames-twin 0

# The remembered box alone, in the other socket.
unplug twin-b
plug twin-a 1
receive frames-moved "$(inside 1 1)"
stripe 01:00:00:00 01:00:00:10
endReception frames-moved 7
unplug twin-a
