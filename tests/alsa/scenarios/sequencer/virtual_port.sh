receive frames
destinations > destinations
stripe 01:00:00:00 01:00:00:10 --destination aseqdump
endReception frames 7
