receive frames
for second in $(seq 10 29); do
    stripe 01:00:$second:00 01:00:$second:02 --destination aseqdump
done
endReception frames 140
