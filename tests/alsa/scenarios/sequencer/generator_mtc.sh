# Two MTC stripes, the second right after the first, received from the generator's output.
vexa-generator --log log &
generator=$!
await grep ready log
receive mtc "Vexa Generator:1"
for second in 00 10; do
    timeout 60 vexa-remote --stripe --rate "30 df" --type MTC --start 00:00:59:$second \
        --stop 00:01:01:$second --destination "Vexa Generator" > shown 2> errors
done
stopped() { [ "$(grep -c "stop at" log)" -eq "$1" ]; }
await stopped 2
sleep 0.5
kill $receiver $generator
wait $receiver $generator || true
