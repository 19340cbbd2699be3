// The found-drug table: the rows of a result list in order, (record number, flag) each. The interaction
// engine, the same-ATC fill and the side-effect and ingredient searches write it; their result lists map
// line i to entry i. It is one table shared by the windows: a list still showing an older result maps its
// lines to whatever was written last (kept on purpose, see Interaction_test).
#pragma once

#include <cstdint>
#include <vector>

#include "db/ProductRecord.h"

namespace rovanel
{

struct FoundDrug {
    ProductRecord record = kNoProduct;
    std::int32_t flag = 0;  // the interaction engine's care flag; 0 elsewhere
    friend bool operator==(const FoundDrug&, const FoundDrug&) = default;
};

// Growable, so that a listing without a limit (the drug list window's same-ATC fill) never overflows;
// the limits of 600 are the writers' own. "Empty" means no entries; readers stop at the first negative
// record number, the table's end marker.
class FoundDrugTable
{
public:
    void clear() { m_entries.clear(); }
    void append(FoundDrug entry) { m_entries.push_back(entry); }
    void assign(std::vector<FoundDrug> entries) { m_entries = std::move(entries); }
    [[nodiscard]] const std::vector<FoundDrug>& entries() const { return m_entries; }
    // Record number of entry `row`, or kNoProduct when there is no such entry.
    [[nodiscard]] ProductRecord recordAt(std::int64_t row) const
    {
        if (row < 0 || static_cast<std::uint64_t>(row) >= m_entries.size()) return kNoProduct;
        return m_entries[static_cast<std::size_t>(row)].record;
    }

private:
    std::vector<FoundDrug> m_entries;
};

}  // namespace rovanel
