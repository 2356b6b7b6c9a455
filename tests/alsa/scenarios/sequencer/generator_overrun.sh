# The generator stops reading for a while, reports the loss, and then understands a stripe.
vexa-generator --log log &
generator=$!
await grep ready log
kill -STOP $generator
song song.mid
aplaymidi -d 0 -p "Vexa Generator" song.mid
kill -CONT $generator
await grep lost log
stripe 01:00:00:00 01:00:00:10 --destination "Vexa Generator"
await grep 'stop at' log
kill $generator
wait $generator || true
