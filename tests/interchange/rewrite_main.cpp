#include "batch/VexaBatchStripeData.h"
#include "check/list_check.h"
#include "interchange/delimited_rows.h"
#include "interchange/read_rows.h"
#include "interchange/text_encoding.h"

#include <QFile>

#include <cinttypes>
#include <cstdio>

using namespace vexa;

/// Reads rows on standard input and writes them on standard output as comma-separated text. The
/// length of each reel goes to standard error: its number, a count of units, and how many of them
/// make a second. Exits with 1 when a line is refused.
int main() {
    QFile input;
    if (!input.open(stdin, QIODevice::ReadOnly))
        return 1;
    const auto read = readRows(decodedText(input.readAll()), {});
    VexaBatchStripeData list(nullptr);
    const auto items = itemsOfRows(read, list);
    std::fputs(delimitedText(items, u',').toUtf8().constData(), stdout);
    for (const auto& [reel, rows, time] : reelTotals(items))
        std::fprintf(stderr, "%" PRIu64 " %" PRId64 " %" PRIdMAX "\n", reel, time.count(),
                     ClockTime::period::den);
    for (const auto& [line, text, reason] : read.refused)
        std::fprintf(stderr, "line %zu: %s\n", line, qUtf8Printable(reason));
    return read.refused.empty() && read.fault.isNull() ? 0 : 1;
}
