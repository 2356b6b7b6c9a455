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

} // namespace

std::string cardIdentity(int card, const std::string& soundClass) {
    const fs::path cardFolder = fs::path(soundClass) / ("card" + std::to_string(card));
    std::error_code none;
    const auto device = fs::canonical(cardFolder / "device", none);
    // Cards made in software hang below a platform device that is numbered as it comes.
    if (none || device.string().find("/platform/snd_") != std::string::npos)
        return "card:" + lineOf(cardFolder / "id");

    const auto usbDevice = device.parent_path();
    const auto vendor = lineOf(usbDevice / "idVendor");
    if (vendor.empty())
        return "bus:" + device.filename().string();
    const auto serial = lineOf(usbDevice / "serial");
    return "usb:" + vendor + ':' + lineOf(usbDevice / "idProduct") + ':' +
           (serial.empty() ? "at " + usbDevice.filename().string() : serial) + ':' +
           lineOf(device / "bInterfaceNumber");
}

std::string cardIdentity(int card) { return cardIdentity(card, "/sys/class/sound"); }

} // namespace vexa
