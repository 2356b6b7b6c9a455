#include "midi/alsa/card_identity.h"

#include <filesystem>
#include <fstream>

namespace vexa {

namespace {

namespace fs = std::filesystem;

std::string lineOf(const fs::path& file) {
    std::string line;
    std::ifstream stream(file);
    std::getline(stream, line);
    return line;
}

/// The card's parent device; empty if there is none.
fs::path deviceOf(const fs::path& cardFolder) {
    std::error_code none;
    return fs::canonical(cardFolder / "device", none);
}

/// The controller and the ports below it: "0000:00:14.0-1.4" is port 4 of the hub in its port 1.
/// Omits the bus number, "3" in "3-1.4", which depends on the order in which buses are found.
std::string usbSocket(const fs::path& usbDevice) {
    auto bus = usbDevice;
    while (bus.has_relative_path() && !bus.filename().string().starts_with("usb"))
        bus = bus.parent_path();
    auto name = usbDevice.filename().string();
    name.erase(0, name.find('-'));
    return bus.parent_path().filename().string() + name;
}

CardIdentity usbIdentity(const fs::path& interface) {
    const auto usbDevice = interface.parent_path();
    const auto serial = lineOf(usbDevice / "serial");
    const auto socket = usbSocket(usbDevice);
    const auto name = "usb:" + lineOf(usbDevice / "idVendor") + ':' +
                      lineOf(usbDevice / "idProduct") + ':' + serial + ':' +
                      lineOf(interface / "bInterfaceNumber");
    const auto exact = name + " at " + socket;
    if (serial.empty())
        return {exact, {}, "socket " + socket};
    return {exact, name, "serial number " + serial + ", socket " + socket};
}

CardIdentity otherBusIdentity(const fs::path& device) {
    // FireWire nodes are renumbered whenever they are plugged in, but have a unique number.
    if (const auto guid = lineOf(device.parent_path() / "guid"); !guid.empty())
        return {"firewire:" + guid, {}, "GUID " + guid};
    // This machine as a USB device: the gadget's number varies, that of its controller does not.
    const bool isGadget = device.filename().string().starts_with("gadget");
    const auto place = (isGadget ? device.parent_path() : device).filename().string();
    return {"bus:" + place, {}, "at " + place};
}

} // namespace

CardIdentity cardIdentity(int card, const std::string& soundClass) {
    const fs::path cardFolder = fs::path(soundClass) / ("card" + std::to_string(card));
    const auto device = deviceOf(cardFolder);
    // Software cards belong to a platform device whose number varies.
    if (device.empty() || device.string().find("/platform/snd_") != std::string::npos) {
        const auto id = lineOf(cardFolder / "id");
        return {"card:" + id, {}, "card " + id};
    }
    const bool isUsb = !lineOf(device.parent_path() / "idVendor").empty();
    return isUsb ? usbIdentity(device) : otherBusIdentity(device);
}

CardIdentity cardIdentity(int card) { return cardIdentity(card, "/sys/class/sound"); }

} // namespace vexa
