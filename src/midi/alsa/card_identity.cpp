#include "midi/alsa/card_identity.h"

#include <algorithm>
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

/// Vendor, product, serial number and interface. Empty where the card is on no USB interface.
std::string usbName(const fs::path& interface) {
    const auto usbDevice = interface.parent_path();
    const auto vendor = lineOf(usbDevice / "idVendor");
    if (vendor.empty())
        return {};
    return "usb:" + vendor + ':' + lineOf(usbDevice / "idProduct") + ':' +
           lineOf(usbDevice / "serial") + ':' + lineOf(interface / "bInterfaceNumber");
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

/// Makers exist who give all their devices one serial number.
bool isOnlyCardNamed(const std::string& name, const fs::path& soundClass) {
    std::error_code none;
    const fs::directory_iterator entries(soundClass, none);
    return std::ranges::count_if(entries, [&](const fs::path& entry) {
               return entry.filename().string().starts_with("card") &&
                      usbName(deviceOf(entry)) == name;
           }) <= 1;
}

std::string otherBusIdentity(const fs::path& device) {
    // FireWire nodes are numbered anew at each plugging in, and know a number of their own.
    if (const auto guid = lineOf(device.parent_path() / "guid"); !guid.empty())
        return "firewire:" + guid;
    // This machine as a USB device: numbered as it comes, below a controller that is not.
    const bool isGadget = device.filename().string().starts_with("gadget");
    return "bus:" + (isGadget ? device.parent_path() : device).filename().string();
}

} // namespace

std::string cardIdentity(int card, const std::string& soundClass) {
    const fs::path cardFolder = fs::path(soundClass) / ("card" + std::to_string(card));
    const auto device = deviceOf(cardFolder);
    // Cards made in software hang below a platform device that is numbered as it comes.
    if (device.empty() || device.string().find("/platform/snd_") != std::string::npos)
        return "card:" + lineOf(cardFolder / "id");

    const auto name = usbName(device);
    if (name.empty())
        return otherBusIdentity(device);
    const bool hasSerial = !lineOf(device.parent_path() / "serial").empty();
    return hasSerial && isOnlyCardNamed(name, soundClass)
               ? name
               : name + " at " + usbSocket(device.parent_path());
}

std::string cardIdentity(int card) { return cardIdentity(card, "/sys/class/sound"); }

} // namespace vexa
