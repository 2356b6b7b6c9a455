#pragma once

#include "interchange/ReadRows.h"
#include "interchange/field_texts.h"

#include <QString>

#include <cstdint>
#include <optional>
#include <utility>

namespace vexa {

/// A row as written in a text.
struct WrittenRow {
    std::size_t line = 0;
    std::optional<std::uint64_t> reel; ///< none: the hours of the start time
    QString title;
    WrittenTime start;
    WrittenTime stop;
    std::optional<std::uint64_t> rate; ///< none: from the format of the times, or the assumed rate
    std::optional<std::uint64_t> type;
    QString refusal; ///< why the row is invalid; null if valid so far
};

/// Collects rows, and refuses those with times that do not exist at their rate.
class RowTaker {
public:
    explicit RowTaker(const ReadingOptions& options) : m_options(options) {}

    /// False once there are more rows than a list may have; the result then has none.
    bool hasRoom() const { return m_result.fault.isNull(); }

    /// lineText: returns the text of a refused row.
    template<typename LineText>
    void take(const WrittenRow& written, LineText lineText) {
        if (auto reason = takeOrRefuse(written); !reason.isNull())
            m_result.refused.push_back({written.line, lineText(), std::move(reason)});
        keepWithinBounds();
    }

    ReadRows result() { return std::move(m_result); }

private:
    QString takeOrRefuse(const WrittenRow& written);
    void keepWithinBounds();

    ReadingOptions m_options;
    ReadRows m_result;
};

} // namespace vexa
