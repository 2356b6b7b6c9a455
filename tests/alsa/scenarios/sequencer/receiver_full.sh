# The receiver does not read, and its queue is full.
receive frames
kill -STOP "$receiver"
song song.mid
aplaymidi -d 0 -p aseqdump song.mid
grep -A 4 'Port .*"aseqdump"' /proc/asound/seq/clients | grep 'Cells in use *: 200'
stripe 01:00:00:00 01:00:01:00 --destination aseqdump
kill -CONT "$receiver"
