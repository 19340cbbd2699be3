// The medical aids catalogue (se*.dat, docs/data-format.md "Medical aids"): the group tree with its
// parallel per-node lists, the notes by code prefix, the aids of a group and one aid's description text.
// All text is Windows-1250.
#pragma once

#include <cstdint>
#include <filesystem>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "db/TreeFile.h"

namespace rovanel
{

class MessageTable;

// One line of semegj.dat: the code (cut to 10 characters), the kind of note and its text with every
// "~~" turned into CR LF.
struct AidNote {
    std::string code;
    int kind = 0;
    std::string text;
    friend bool operator==(const AidNote&, const AidNote&) = default;
};

struct AidCatalogue {
    std::filesystem::path directory;
    std::vector<TreeNode> tree;          // senrend2.dat
    std::vector<std::string> codes;      // sekod2.dat, per node
    std::vector<std::string> positions;  // sepos.dat, per node, as written
    std::vector<std::string> iso;        // seiso.dat, per node
    std::vector<std::string> names;      // senev.dat: "name packaging<TAB>code"
    std::vector<AidNote> notes;          // semegj.dat, in file order

    // The byte offset in se.dat where node `node`'s aids begin; nothing for a node without a number.
    [[nodiscard]] std::optional<std::uint64_t> groupOffset(int node) const;
    // The node's code from sekod2.dat; empty for a node without one.
    [[nodiscard]] std::string_view groupCode(int node) const;
};

// Reads the six per-catalogue files; a missing file leaves its part empty.
[[nodiscard]] AidCatalogue loadAidCatalogue(const std::filesystem::path& directory);

// The lines of semegj.dat; a line without its tabs gives empty fields, a kind that is no number 0.
[[nodiscard]] std::vector<AidNote> parseAidNotes(std::string_view content);

// An aid of a group's list: its code and "name packaging".
struct AidEntry {
    std::string code;
    std::string text;
    friend bool operator==(const AidEntry&, const AidEntry&) = default;
};

// The aids of node `node`: the se.dat lines from the node's offset whose code begins with the node's
// code; the run ends at the first line whose code does not. Empty for a node without code or offset.
[[nodiscard]] std::vector<AidEntry> listAidGroup(const AidCatalogue& catalogue, int node);

// The description of the aid `code`, searched in se.dat from node `node`'s offset (from the start of
// the file when the node has none); nothing when no line from there has that code.
[[nodiscard]] std::optional<std::string> aidDescription(const AidCatalogue& catalogue,
                                                        const MessageTable& messages, int node,
                                                        std::string_view code);

// The description text of one se.dat line (without its line end), with CR LF line breaks.
[[nodiscard]] std::string describeAid(std::string_view seLine, const std::vector<AidNote>& notes,
                                      const MessageTable& messages);

// The headings of the note kinds 1 to 5; other kinds have an empty heading.
[[nodiscard]] std::string_view aidNoteHeading(int kind);

// The first node from `from` whose text, upper-cased, contains `text` upper-cased; -1 when none does.
[[nodiscard]] int findInAidTree(const AidCatalogue& catalogue, std::string_view text, int from);

// An aid found by name: the senev.dat line's name, its code, and the group that holds it (-1: none).
struct AidNameHit {
    std::string name;
    std::string code;
    int node = -1;
};

// The aids whose name, upper-cased, contains `text` upper-cased, in file order.
[[nodiscard]] std::vector<AidNameHit> findAidNames(const AidCatalogue& catalogue, std::string_view text);

// The deepest node whose code is a prefix of `code` (nodes with an offset only); -1 when none is.
[[nodiscard]] int groupOfAid(const AidCatalogue& catalogue, std::string_view code);

}  // namespace rovanel
