# Two boxes with the same serial number.
makeBox same-a 0001
makeBox same-b 0001
plug same-a 0
plug same-b 1
destinations > destinations-01
unplug same-a
unplug same-b
plug same-b 1
plug same-a 0
destinations > destinations-10
unplug same-a
unplug same-b
