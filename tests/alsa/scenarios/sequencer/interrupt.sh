receive frames
vexa-remote --stripe --start 01:00:00:00 --destination aseqdump > shown 2> errors &
await received frames 5
kill -INT $!
status=0
wait $! || status=$?
echo $status > status
endReception frames 6
