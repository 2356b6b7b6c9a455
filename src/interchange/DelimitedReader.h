#pragma once

#include <QString>
#include <QStringView>

#include <cstddef>
#include <vector>

namespace vexa {

/// Reads delimited text row by row. A cell in double quotes may contain delimiters, line breaks and
/// doubled quotes. A quote inside an unquoted cell is an ordinary character. Lines end with LF, CR
/// LF or CR. Reads any text, in linear time.
class DelimitedReader {
public:
    using Cells = std::vector<QStringView>;
    static constexpr std::size_t mostCells = 1000;

    DelimitedReader(QString text, QChar delimiter);

    /// Moves to the next row; false if there is none. A row has at least one cell.
    bool next();
    /// The row's cells, up to mostCells, as a row of only delimiters could exhaust the memory.
    /// Valid as long as the reader.
    const Cells& cells() const { return m_cells; }
    /// The line on which the row begins, from 1.
    std::size_t line() const { return m_line; }

private:
    QStringView plainCell();
    QStringView quotedCell();
    void passLineBreak();
    bool atEnd() const { return m_at == m_end; }
    bool atLineBreak() const { return *m_at == u'\n' || *m_at == u'\r'; }

    QString m_text; ///< doubled quotes become single ones in place
    QChar m_delimiter;
    QChar* m_at;
    QChar* m_end;
    std::size_t m_line = 0;
    std::size_t m_nextLine = 1;
    Cells m_cells;
};

} // namespace vexa
