// Consistency check of a whole data directory against docs/data-format.md: counts and the files they
// size, record widths, line ends and forbidden bytes, the gy.ful block grammar, code uniqueness and every
// index list against what the product blocks say. Used by the tests on generated databases and by
// `rvcli check`-style tooling.
#pragma once

#include <filesystem>
#include <string>
#include <vector>

namespace rovanel
{

// Human-readable problems (file name first), at most a few per kind; empty when the directory is
// consistent. An 11-character line in one careful or avoid section of the whole database is accepted:
// it is the generator's planted over-long code line.
[[nodiscard]] std::vector<std::string> checkDatabase(const std::filesystem::path& directory);

}  // namespace rovanel
