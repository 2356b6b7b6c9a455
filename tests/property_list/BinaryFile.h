#pragma once

#include <QByteArray>

#include <cstdint>
#include <string>
#include <vector>

namespace vexa {

/// The low bytes of a number in big-endian order.
inline std::string bigEndianBytes(std::uint64_t number, std::size_t size) {
    std::string bytes(size, '\0');
    for (; size-- > 0; number >>= 8)
        bytes[size] = static_cast<char>(number);
    return bytes;
}

/// A hand-made binary property list, in which any part can be wrong.
struct BinaryFile {
    std::vector<std::string> objects; ///< with first byte, in the order of their references
    std::size_t offsetSize = 2;
    std::size_t referenceSize = 1;
    std::uint64_t root = 0;
    std::string header = "bplist00";

    std::string references(const std::vector<std::uint64_t>& targets) const {
        std::string bytes;
        for (const auto target : targets)
            bytes += bigEndianBytes(target, referenceSize);
        return bytes;
    }

    QByteArray bytes() const {
        std::string file = header;
        std::string table;
        for (const auto& object : objects) {
            table += bigEndianBytes(file.size(), offsetSize);
            file += object;
        }
        return withTrailer(file, table, objects.size());
    }

    QByteArray withTrailer(const std::string& start, const std::string& table,
                           std::uint64_t count) const {
        const auto file = start + table + std::string(6, '\0') + bigEndianBytes(offsetSize, 1) +
                          bigEndianBytes(referenceSize, 1) + bigEndianBytes(count, 8) +
                          bigEndianBytes(root, 8) + bigEndianBytes(start.size(), 8);
        return QByteArray::fromStdString(file);
    }
};

} // namespace vexa
