#include "batch/VexaBatchStripeData.h"
#include "check/list_check.h"
#include "interchange/delimited_rows.h"
#include "interchange/read_rows.h"
#include "interchange/text_encoding.h"

#include <QFile>

#include <cinttypes>
#include <cstdio>

using namespace vexa;

/// Reads rows from standard input and writes them to standard output as comma-separated text. For
/// each reel, writes its number, its length in units and the units per second to standard error.
/// Exits with 1 if a line is refused.
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
