# Two boxes with a serial number each, and each in the socket of the other.
makeBox serial-a A1
makeBox serial-b B2
plug serial-a 0
plug serial-b 1
destinations > destinations-ab
unplug serial-a
unplug serial-b
plug serial-b 0
plug serial-a 1
destinations > destinations-ba
unplug serial-a
unplug serial-b
