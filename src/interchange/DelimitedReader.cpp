#include "interchange/DelimitedReader.h"

#include <utility>

namespace vexa {

DelimitedReader::DelimitedReader(QString text, QChar delimiter)
    : m_text(std::move(text)),
      m_delimiter(delimiter),
      m_at(m_text.data()),
      m_end(m_at + m_text.size()) {}

bool DelimitedReader::next() {
    m_cells.clear();
    m_line = m_nextLine;
    if (atEnd())
        return false;
    while (true) {
        const auto cell = !atEnd() && *m_at == u'"' ? quotedCell() : plainCell();
        if (m_cells.size() < mostCells)
            m_cells.push_back(cell);
        if (atEnd())
            return true;
        if (atLineBreak()) {
            passLineBreak();
            return true;
        }
        ++m_at; // the delimiter
    }
}

QStringView DelimitedReader::plainCell() {
    const auto* const begin = m_at;
    while (!atEnd() && *m_at != m_delimiter && !atLineBreak())
        ++m_at;
    return {begin, m_at};
}

/// As in spreadsheets, text between the closing quote and the delimiter is part of the cell.
QStringView DelimitedReader::quotedCell() {
    auto* const begin = ++m_at;
    auto* end = begin;
    bool isOpen = true;
    while (!atEnd() && (isOpen || (*m_at != m_delimiter && !atLineBreak()))) {
        if (isOpen && *m_at == u'"') {
            ++m_at;
            isOpen = !atEnd() && *m_at == u'"';
            if (!isOpen)
                continue;
        } else if (isOpen && atLineBreak()) {
            const bool isPair = *m_at == u'\r' && m_at + 1 != m_end && m_at[1] == u'\n';
            m_nextLine += isPair ? 0 : 1; // a CR LF pair counts at its LF
        }
        *end++ = *m_at++;
    }
    return {begin, end};
}

void DelimitedReader::passLineBreak() {
    const bool isReturn = *m_at++ == u'\r';
    if (isReturn && !atEnd() && *m_at == u'\n')
        ++m_at;
    ++m_nextLine;
}

} // namespace vexa
