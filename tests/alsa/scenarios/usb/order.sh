# Two boxes without serial numbers, one of them the remembered destination. Then the boxes swap
# their plug-in order; then the buses of their sockets swap theirs.
makeBox order-0
makeBox order-1
plug order-0 0
plug order-1 1
destinations > destinations-01
unplug order-0
unplug order-1

remember destinations-01
plug order-1 1
plug order-0 0
destinations > destinations-10
receive frames "$(inside 1 1)"
stripe 01:00:00:00 01:00:00:10
endReception frames 7
unplug order-0
unplug order-1

for step in unbind/0 unbind/1 bind/1 bind/0; do
    echo "dummy_hcd.${step#*/}" > "/sys/bus/platform/drivers/dummy_hcd/${step%/*}"
done
plug order-0 0
plug order-1 1
destinations > destinations-buses
unplug order-0
unplug order-1
