#include "interchange/delimited_rows.h"
#include "interchange/text_encoding.h"
#include "row_checks.h"

#include <cstddef>
#include <cstdint>

using namespace vexa;

/// Files of any encoding. Accepted rows read back unchanged after they are written.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* bytes, std::size_t size) {
    const auto text =
        decodedText(QByteArray(reinterpret_cast<const char*>(bytes), static_cast<qsizetype>(size)));
    const auto read = readDelimitedRows(text, {});
    checkRows(read);

    VexaBatchStripeData list(nullptr);
    const auto items = itemsOfRows(read, list);
    for (const auto delimiter : {u',', u';', u'\t'}) {
        const auto again = readDelimitedRows(delimitedText(items, delimiter), {});
        expect(again.refused.empty() && again.rows.size() == read.rows.size());
        for (std::size_t i = 0; i < read.rows.size(); ++i)
            expect(again.rows[i].title == read.rows[i].title &&
                   again.rows[i].reel == read.rows[i].reel &&
                   again.rows[i].settings == read.rows[i].settings);
    }
    return 0;
}
