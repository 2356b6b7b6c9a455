# A software card, loaded before and after other cards.
modprobe snd-virmidi
destinations > destinations-first
rmmod snd-virmidi
makeBox virtual
plug virtual 0
modprobe snd-virmidi
destinations > destinations-last
rmmod snd-virmidi
unplug virtual
