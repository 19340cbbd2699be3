// Position files, index pairs, name lines and product blocks on a data directory made from the input.
// Parameters: a record number, a key of the ATC pair, a name line, a key of the side-effect pair.
#include <cstdint>

#include "db/DataFile.h"
#include "db/ProductIndex.h"
#include "db/StartupTables.h"
#include "fuzz/FuzzSupport.h"

using namespace rovanel;
using namespace rovanel::fuzzing;

namespace
{

// The numbers a list file of `size` bytes can hold: each takes a digit and a separator, the last
// perhaps only its digit.
std::uint64_t mostNumbersIn(std::uint64_t size) { return (size + 1) / 2; }

void checkPair(const StartupTables& tables, IndexPair pair, std::int64_t key)
{
    DataFile directory(dataFilePath(tables.dataDirectory, directoryFileName(pair)));
    DataFile list(dataFilePath(tables.dataDirectory, listFileName(pair)));
    const auto record = keyRecord(directory, key);
    const auto products = productsOfKey(tables.dataDirectory, pair, key);
    if (!record) {
        ROVANEL_FUZZ_CHECK(products.empty());
        return;
    }
    ROVANEL_FUZZ_CHECK(record->offset >= 0 && record->count >= 0);
    ROVANEL_FUZZ_CHECK(products.size() <= static_cast<std::size_t>(record->count));
    ROVANEL_FUZZ_CHECK(products.size() <= mostNumbersIn(list.size()));
    const auto again = readRecordList(list, record->offset, record->count, pair == IndexPair::SideEffect);
    ROVANEL_FUZZ_CHECK(again == products);
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    const std::string_view input(reinterpret_cast<const char*>(data), size);
    const auto segments = splitSegments(input);
    const Parameters parameters(segments.front());
    FuzzDirectory& directory = fuzzDirectory();
    directory.populate(segments, layoutFiles("index_fuzz"));

    const StartupTables tables = loadStartupTables(directory.path(), directory.path() / "RV.INI");
    const std::int64_t record = parameters.at(0);
    DataFile nevpos(dataFilePath(directory.path(), "nevpos.dat"));
    DataFile gyful(dataFilePath(directory.path(), "gy.ful"));

    const auto position = textPosition(nevpos, record);
    ROVANEL_FUZZ_CHECK(!position || (record >= 0 && static_cast<std::uint64_t>(record) * 10 < nevpos.size()));
    for (const std::size_t lineBuffer : {std::size_t{1254}, std::size_t{255}, std::size_t{1}}) {
        const auto block = productBlock(gyful, nevpos, record, lineBuffer);
        if (!block) continue;
        ROVANEL_FUZZ_CHECK(position && *position < gyful.size());
        std::size_t bytes = 0;
        for (const auto& line : *block) {
            ROVANEL_FUZZ_CHECK(line.size() <= std::max<std::size_t>(lineBuffer - 1, 1));
            bytes += line.size() + 1;
        }
        ROVANEL_FUZZ_CHECK(bytes <= 64000 + 1);
        if (!block->empty()) {
            const std::int32_t identified = identifyProduct(tables, block->front());
            ROVANEL_FUZZ_CHECK(identified >= -1 &&
                               identified < static_cast<std::int64_t>(tables.productCodes.size()));
        }
    }
    if (const auto location = locateProduct(tables, record)) {
        ROVANEL_FUZZ_CHECK(record >= 0 && static_cast<std::uint64_t>(record) < tables.productCodes.size());
        ROVANEL_FUZZ_CHECK(position && location->offset == *position);
        ROVANEL_FUZZ_CHECK(location->name == tables.productName(record));
    }

    checkPair(tables, IndexPair::Atc, parameters.at(1));
    checkPair(tables, IndexPair::SideEffect, parameters.at(3));

    DataFile names(dataFilePath(directory.path(), "ellnrend.dat"));
    const std::int64_t nameIndex = parameters.at(2);
    if (const auto name = nameLine(names, nameIndex)) {
        ROVANEL_FUZZ_CHECK(nameIndex >= 0 && static_cast<std::uint64_t>(nameIndex) * 128 < names.size());
        ROVANEL_FUZZ_CHECK(name->size() <= 254);
        ROVANEL_FUZZ_CHECK(contraindicationName(directory.path(), nameIndex) == name);
    }
    return 0;
}
