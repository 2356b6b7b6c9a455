#pragma once

#include "interchange/DelimitedReader.h"

#include <QStringView>

#include <array>
#include <cstddef>
#include <optional>

namespace vexa {

/// Which cells of a row hold the fields of an item.
class RowColumns {
public:
    enum Field : std::size_t { reel, title, start, stop, rate, type };
    static constexpr std::size_t fieldCount = 6;

    /// The columns named in a header, by the batch table's names or other common ones. Returns
    /// nothing for a row that names fewer than two columns, as it is no header.
    static std::optional<RowColumns> namedBy(const DelimitedReader::Cells& header);
    /// The column order of the batch table.
    static RowColumns inOrder();

    bool has(Field field) const { return m_places[field].has_value(); }
    /// Empty if the row has no such cell.
    QStringView cell(const DelimitedReader::Cells& cells, Field field) const;

private:
    std::array<std::optional<std::size_t>, fieldCount> m_places{};
};

} // namespace vexa
