#pragma once

#include <QString>
#include <QStringView>

#include <cstddef>
#include <vector>

namespace vexa {

/// Reads delimited text row by row. A cell in double quotes may hold delimiters and line breaks,
/// and a quote written twice. A quote that stands inside a cell without quotes is a letter. Lines
/// end with LF, CR LF or CR. Every text can be read, in linear time.
class DelimitedReader {
public:
    using Cells = std::vector<QStringView>;
    static constexpr std::size_t mostCells = 1000;

    DelimitedReader(QString text, QChar delimiter);

    /// Whether there is another row; then cells() are its, at least one.
    bool next();
    /// The first of them; those of a row that is nothing but delimiters would fill the memory.
    /// Valid as long as the reader.
    const Cells& cells() const { return m_cells; }
    /// Where the row begins, counted from 1.
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
