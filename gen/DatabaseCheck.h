// Consistency check of a whole data directory against docs/data-format.md: counts and the files they
// size, record widths, line ends and forbidden bytes, the gy.ful block grammar, code uniqueness and every
// index list against what the product blocks say; and the prescription files (bno.tre, bnohr.dat,
// tamttt.dat, szvhr.dat, DsListT.txt: docs/data-format.md 6.4-6.9). Used by the tests on generated databases
// and by `rvcli check`-style tooling.
#pragma once

#include <filesystem>
#include <string>
#include <vector>

namespace rovanel
{

// Generated: the generator's planted over-long code line (one 11-character line in one careful or
// avoid section of the whole database) must be there, and the five prescription files with their planted
// cases (7.1). AnyDatabase (imported or shipped directories): no planted case is demanded, an
// 11-character code line is a problem like any other, and a prescription file is checked when it is there.
enum class CheckMode { Generated, AnyDatabase };

// Human-readable problems (file name first), at most a few per kind; empty when the directory is
// consistent.
[[nodiscard]] std::vector<std::string> checkDatabase(const std::filesystem::path& directory,
                                                     CheckMode mode = CheckMode::Generated);

}  // namespace rovanel
