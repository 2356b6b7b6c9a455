#include "midi/alsa/card_identity.h"

#include <QTemporaryDir>
#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>

using namespace vexa;
namespace fs = std::filesystem;

namespace {

/// A folder tree shaped like /sys, with cards in it.
class Card : public testing::Test {
protected:
    fs::path folder(const std::string& path) const {
        const auto made = root() / path;
        fs::create_directories(made);
        return made;
    }

    static void write(const fs::path& file, const std::string& line) {
        std::ofstream(file) << line << '\n';
    }

    /// A card below that device, as the kernel numbers it. Replaces a card with the same number.
    void addCard(int number, const std::string& id, const std::string& device) const {
        const auto card = folder(device + "/sound/card" + std::to_string(number));
        write(card / "id", id);
        fs::create_directory_symlink(root() / device, card / "device");
        const auto link = folder("class/sound") / card.filename();
        fs::remove(link);
        fs::create_directory_symlink(card, link);
    }

    /// A card on interface 0 of that USB device.
    void addUsbCard(int number, const std::string& usbDevice,
                    const std::string& serial = {}) const {
        const auto device = folder(usbDevice);
        write(device / "idVendor", "1d6b");
        write(device / "idProduct", "0104");
        if (!serial.empty())
            write(device / "serial", serial);
        const auto interface = usbDevice + '/' + device.filename().string() + ":1.0";
        write(folder(interface) / "bInterfaceNumber", "00");
        addCard(number, "Box", interface);
    }

    CardIdentity identity(int card) const {
        return cardIdentity(card, (root() / "class/sound").string());
    }

private:
    fs::path root() const { return m_folder.path().toStdString(); }

    QTemporaryDir m_folder;
};

const std::string controller = "devices/pci0000:00/0000:00:14.0";

TEST_F(Card, IdentityOfUsbIsVendorProductSerialNumberInterfaceAndSocket) {
    addUsbCard(0, controller + "/usb1/1-2", "A1");
    EXPECT_EQ(identity(0),
              (CardIdentity{"usb:1d6b:0104:A1:00 at 0000:00:14.0-2", "usb:1d6b:0104:A1:00",
                            "serial number A1, socket 0000:00:14.0-2"}));
}

TEST_F(Card, IdentityOfUsbWithASerialNumberIsKnownInAnySocketWithAnyNumber) {
    addUsbCard(0, controller + "/usb1/1-2", "A1");
    addUsbCard(3, controller + "/usb2/2-1/2-1.4", "B2");
    const auto before = identity(0).inAnySocket;
    addUsbCard(0, controller + "/usb1/1-1", "C3");
    addUsbCard(4, "devices/pci0000:00/0000:00:1a.0/usb3/3-1", "A1");
    EXPECT_EQ(identity(4).inAnySocket, before);
    EXPECT_NE(identity(0).inAnySocket, before);
    EXPECT_NE(identity(3).inAnySocket, before);
}

TEST_F(Card, IdentityOfUsbWithoutASerialNumberNamesTheSocketButNotTheBus) {
    addUsbCard(0, controller + "/usb1/1-2");
    addUsbCard(1, controller + "/usb1/1-3/1-3.4/1-3.4.1");
    EXPECT_EQ(identity(0),
              (CardIdentity{"usb:1d6b:0104::00 at 0000:00:14.0-2", {}, "socket 0000:00:14.0-2"}));
    EXPECT_EQ(identity(1).exact, "usb:1d6b:0104::00 at 0000:00:14.0-3.4.1");

    addUsbCard(5, controller + "/usb7/7-2");
    EXPECT_EQ(identity(5), identity(0));
}

TEST_F(Card, IdentityOfUsbDoesNotDependOnATwin) {
    addUsbCard(0, controller + "/usb1/1-2", "0001");
    const auto alone = identity(0);
    addUsbCard(1, controller + "/usb1/1-3", "0001");
    EXPECT_EQ(identity(0), alone);
    EXPECT_NE(identity(1).exact, alone.exact);
    EXPECT_EQ(identity(1).inAnySocket, alone.inAnySocket);
}

TEST_F(Card, IdentityOfFireWireIsTheGuid) {
    const auto node = controller + "/0000:04:00.0/fw1";
    write(folder(node) / "guid", "0x0011223344556677");
    addCard(2, "Box", node + "/fw1.0");
    EXPECT_EQ(identity(2),
              (CardIdentity{"firewire:0x0011223344556677", {}, "GUID 0x0011223344556677"}));
}

TEST_F(Card, IdentityOfOtherHardwareIsItsPlaceOnTheBus) {
    addCard(0, "Box", "devices/pci0000:00/0000:00:1e.0/0000:05:02.0");
    EXPECT_EQ(identity(0), (CardIdentity{"bus:0000:05:02.0", {}, "at 0000:05:02.0"}));
}

TEST_F(Card, IdentityOfThisMachineAsAUsbDeviceIsTheController) {
    addCard(0, "fmidi", "devices/platform/fe980000.usb/gadget.0");
    EXPECT_EQ(identity(0).exact, "bus:fe980000.usb");
}

TEST_F(Card, IdentityOfACardWithoutHardwareIsItsId) {
    addCard(1, "VirMIDI", "devices/platform/snd_virmidi.0");
    EXPECT_EQ(identity(1), (CardIdentity{"card:VirMIDI", {}, "card VirMIDI"}));
}

TEST_F(Card, IdentityOfAMissingCardHasNoId) { EXPECT_EQ(identity(7).exact, "card:"); }

} // namespace
