#include "interchange/edit_list_reader.h"
#include "interchange/text_encoding.h"
#include "row_checks.h"

#include <cstddef>
#include <cstdint>

using namespace vexa;

/// Files of any encoding, read by reel times and by programme times.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* bytes, std::size_t size) {
    const auto text =
        decodedText(QByteArray(reinterpret_cast<const char*>(bytes), static_cast<qsizetype>(size)));
    isEditList(text);
    for (const auto times : {EditTimes::source, EditTimes::record})
        checkRows(readEditList(text, {rate::fps24, 0, times}));
    return 0;
}
