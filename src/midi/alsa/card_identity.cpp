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

/// The device below which the card is made. Empty where there is none.
fs::path deviceOf(const fs::path& cardFolder) {
    std::error_code none;
    return fs::canonical(cardFolder / "device", none);
}

/// The controller, and the ports from there on: "0000:00:14.0-1.4" for port 4 of the hub in its
/// port 1. Without the bus's number, "3" in "3-1.4", which is given as the buses are found.
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
    // FireWire nodes are numbered anew at each plugging in, and know a number of their own.
    if (const auto guid = lineOf(device.parent_path() / "guid"); !guid.empty())
        return {"firewire:" + guid, {}, "GUID " + guid};
    // This machine as a USB device: numbered as it comes, below a controller that is not.
    const bool isGadget = device.filename().string().starts_with("gadget");
    const auto place = (isGadget ? device.parent_path() : device).filename().string();
    return {"bus:" + place, {}, "at " + place};
}

} // namespace

CardIdentity cardIdentity(int card, const std::string& soundClass) {
    const fs::path cardFolder = fs::path(soundClass) / ("card" + std::to_string(card));
    const auto device = deviceOf(cardFolder);
    // Cards made in software hang below a platform device that is numbered as it comes.
    if (device.empty() || device.string().find("/platform/snd_") != std::string::npos) {
        const auto id = lineOf(cardFolder / "id");
        return {"card:" + id, {}, "card " + id};
    }
    const bool isUsb = !lineOf(device.parent_path() / "idVendor").empty();
    return isUsb ? usbIdentity(device) : otherBusIdentity(device);
}

CardIdentity cardIdentity(int card) { return cardIdentity(card, "/sys/class/sound"); }

} // namespace vexa
