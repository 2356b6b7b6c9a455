#pragma once

#include "interchange/DelimitedReader.h"

#include <QStringView>

#include <array>
#include <cstddef>
#include <optional>

namespace vexa {

/// In which cells of a row the fields of an item stand.
class RowColumns {
public:
    enum Field : std::size_t { reel, title, start, stop, rate, type };
    static constexpr std::size_t fieldCount = 6;

    /// The columns that a header names, by the names of the batch table or others in use. Nothing
    /// for a row that is no header: one that names fewer than two.
    static std::optional<RowColumns> namedBy(const DelimitedReader::Cells& header);
    /// As in the batch table.
    static RowColumns inOrder();

    bool has(Field field) const { return m_places[field].has_value(); }
    /// Empty where the row has no such cell.
    QStringView cell(const DelimitedReader::Cells& cells, Field field) const;

private:
    std::array<std::optional<std::size_t>, fieldCount> m_places{};
};

} // namespace vexa
