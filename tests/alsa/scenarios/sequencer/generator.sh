vexa-generator --log log &
generator=$!
await grep ready log
stripe 01:00:00:00 01:00:00:10 --destination "Vexa Generator"
await grep 'stop at' log
sleep 0.3
kill $generator
wait $generator || true
