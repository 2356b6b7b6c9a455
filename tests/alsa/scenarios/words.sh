# The commands for writing scenarios.

trap 'kill $(jobs -p) 2> /dev/null || true' EXIT

now() { cut -d ' ' -f 1 /proc/uptime; }

# await COMMAND…: repeats the command until it succeeds, for at most ten seconds.
await() {
    tries=100
    until "$@" > /dev/null 2>&1; do
        tries=$((tries - 1))
        [ $tries -gt 0 ] || { echo "waited in vain: $*"; return 1; }
        sleep 0.1
    done
}

# receive FILE [PORT]: starts a receiver: a port "aseqdump", or a listener at PORT.
receive() {
    aseqdump ${2:+-p "$2"} > "$1" &
    receiver=$!
    await receiverShows "${2:+Connected From}"
}
haveReceivers() { [ "$(grep -c 'Port .*"aseqdump"' /proc/asound/seq/clients)" -eq "$1" ]; }
receiverShows() { grep -A 1 'Port .*"aseqdump"' /proc/asound/seq/clients | grep "$1"; }

# received FILE COUNT: whether that many frames have arrived.
received() { [ "$(grep -c 'System exclusive' "$1")" -ge "$2" ]; }

# endReception FILE COUNT: ends the receiver once that many frames have arrived or the wait is over.
# Waits a moment longer to catch extra frames.
endReception() {
    await received "$1" "$2" || true
    sleep 0.3
    kill "$receiver"
    wait "$receiver" || true
}

destinations() { vexa-remote --destinations; }

# remember DESTINATIONS: makes the last port of a box in that list the remembered destination.
remember() {
    mkdir -p "$HOME/.config/vexa-remote"
    grep 'Timecode Box' "$1" | tail -n 1 |
        awk '{ print "vexamididest=" $2 }' > "$HOME/.config/vexa-remote/vexa-remote.ini"
}

# stripe START STOP [--destination NAME]: leaves the program's `status`, `shown` and `errors`, and
# its run time in `seconds`.
stripe() {
    began=$(now)
    status=0
    timeout 60 vexa-remote --stripe --rate "25 fps" --type DTL --start "$1" --stop "$2" \
        ${3:+"$3" "$4"} > shown 2> errors || status=$?
    echo $status > status
    echo "$(now) $began" | awk '{ print $1 - $2 }' > seconds
}

# A Timecode Box is a software USB MIDI interface with two ports. Its inside is also a card, which
# outputs whatever the box is sent. Boxes can be plugged into two sockets, 0 and 1.
boxes=/sys/kernel/config/usb_gadget
devices=/sys/bus/platform/devices

# makeBox NAME [SERIAL]
makeBox() (
    mkdir "$boxes/$1"
    cd "$boxes/$1"
    echo 0x1d6b > idVendor
    echo 0x0104 > idProduct
    mkdir strings/0x409 functions/midi.usb0 configs/c.1
    echo "Timecode Box" > strings/0x409/product
    echo "${2-}" > strings/0x409/serialnumber
    echo 2 > functions/midi.usb0/in_ports
    echo 2 > functions/midi.usb0/out_ports
    ln -s functions/midi.usb0 configs/c.1
)

# plug NAME SOCKET
plug() {
    echo "dummy_udc.$2" > "$boxes/$1/UDC"
    await isPlugged "$2"
}
isPlugged() {
    card=$(echo $devices/dummy_hcd.$1/usb*/*/*/sound/card*)
    [ -d "$card" ] &&
        grep -A 2 "Client  *$(clientOf "$card") :" /proc/asound/seq/clients | grep 'Port   1'
}

# unplug NAME
unplug() {
    left=$(($(cards) - 2))
    echo > "$boxes/$1/UDC"
    await haveCards $left
}
cards() { ls /sys/class/sound | grep -c '^card'; }
haveCards() { [ "$(cards)" -eq "$1" ]; }

# clientOf CARD: the sequencer client of the card with that folder.
clientOf() { echo $((16 + 4 * ${1##*/card})); }

# inside SOCKET PORT: the port that outputs what is sent to this port, counted from 0, of the box in
# that socket.
inside() { echo "$(clientOf $devices/dummy_udc.$1/gadget*/sound/card*):$2"; }

# song FILE: a MIDI file of 300 stop frames, more than a receiver's queue holds.
song() {
    {
        printf 'MThd\000\000\000\006\000\000\000\001\000\140MTrk\000\000\014\350'
        for _ in $(seq 300); do printf '\000\360\010\175\102\000\000\000\000\000\367'; done
        printf '\000\377\057\000'
    } > "$1"
}
