# Two receivers with the same name. The chosen one ends during a stripe, and a third one starts.
receive frames-chosen
chosen=$receiver
receive frames-twin
twin=$receiver
await haveReceivers 2
stripe 01:00:00:00 01:00:05:00 --destination \
    "$(destinations | grep aseqdump | head -n 1 | cut -f 2)" &
run=$!
await received frames-chosen 5
kill "$chosen"
wait "$chosen" || true
receive frames-third
await haveReceivers 2
wait $run
kill "$twin"
endReception frames-third 0
