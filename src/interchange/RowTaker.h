#pragma once

#include "interchange/ReadRows.h"
#include "interchange/field_texts.h"

#include <QString>

#include <cstdint>
#include <optional>
#include <utility>

namespace vexa {

/// A row as it stands in a text.
struct WrittenRow {
    std::size_t line = 0;
    std::optional<std::uint64_t> reel; ///< none: the hours of the start time
    QString title;
    WrittenTime start;
    WrittenTime stop;
    std::optional<std::uint64_t> rate; ///< none: by how the times are written, or the assumed one
    std::optional<std::uint64_t> type;
    QString refusal; ///< why it can be no row; null so far
};

/// Takes rows as they are read, and refuses those with times that their rate does not have.
class RowTaker {
public:
    explicit RowTaker(const ReadingOptions& options) : m_options(options) {}

    /// False once there are more rows than a list may have: then nothing of the text is taken.
    bool hasRoom() const { return m_result.fault.isNull(); }

    /// lineText: called for the text of a row that is refused.
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
