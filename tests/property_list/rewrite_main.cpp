#include "property_list/property_list_reader.h"
#include "property_list/property_list_xml_writer.h"

#include <QtEndian>

#include <cstdint>
#include <iostream>

using namespace vexa;

/// Reads property lists from standard input, each preceded by its length in four big-endian bytes.
/// Writes them as XML in the same format; an unreadable one gets length 0. Exits with 1 if its
/// output does not read back as the same value.
int main() {
    std::ios::sync_with_stdio(false);
    std::uint32_t length = 0;
    while (std::cin.read(reinterpret_cast<char*>(&length), sizeof length)) {
        QByteArray file(static_cast<qsizetype>(qFromBigEndian(length)), Qt::Uninitialized);
        std::cin.read(file.data(), file.size());
        const auto value = readPropertyList(file);
        const auto xml = value ? xmlPropertyList(*value) : QByteArray();
        if (value && readPropertyList(xml) != value)
            return 1;
        length = qToBigEndian(static_cast<std::uint32_t>(xml.size()));
        std::cout.write(reinterpret_cast<const char*>(&length), sizeof length);
        std::cout.write(xml.constData(), xml.size());
    }
    return std::cout.flush() ? 0 : 1;
}
