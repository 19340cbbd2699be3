// The found-drug table: the rows of a result list in order, (record number, flag) each. The interaction
// engine, the same-ATC fill and the side-effect and ingredient searches write it; their result lists map
// line i to entry i. It is one table shared by the windows, as the original's: a list still showing an
// older result maps its lines to whatever was written last.
#pragma once

#include <cstdint>
#include <vector>

namespace rovanel
{

struct FoundDrug {
    std::int32_t record = -1;
    std::int32_t flag = 0;  // the interaction engine's care flag; 0 elsewhere
    friend bool operator==(const FoundDrug&, const FoundDrug&) = default;
};

// Growable, so that a listing without a limit (the drug list window's same-ATC fill) never overflows;
// the limits of 600 are the writers' own. "Empty" means no entries; readers stop at the first negative
// record number, as the original's end marker -1 makes them stop.
class FoundDrugTable
{
public:
    void clear() { m_entries.clear(); }
    void append(FoundDrug entry) { m_entries.push_back(entry); }
    void assign(std::vector<FoundDrug> entries) { m_entries = std::move(entries); }
    [[nodiscard]] const std::vector<FoundDrug>& entries() const { return m_entries; }
    // Record number of entry `row`, or -1 when there is no such entry.
    [[nodiscard]] std::int32_t recordAt(std::int64_t row) const
    {
        if (row < 0 || static_cast<std::uint64_t>(row) >= m_entries.size()) return -1;
        return m_entries[static_cast<std::size_t>(row)].record;
    }

private:
    std::vector<FoundDrug> m_entries;
};

}  // namespace rovanel
