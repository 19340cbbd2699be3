// The input layout of each fuzz target: which data files its segments become, in order. The corpus maker
// writes its seeds from the same table, so a target and its seeds cannot drift apart.
#pragma once

#include <string_view>
#include <vector>

namespace rovanel::fuzzing
{

// Between the parameter line and each file of an input. Chosen so that no data file holds it.
inline constexpr std::string_view kSegmentSeparator = "\n=#=#=\n";

struct FuzzLayout {
    std::string_view target;
    std::vector<std::string_view> files;
};

inline const std::vector<FuzzLayout>& fuzzLayouts()
{
    static const std::vector<FuzzLayout> layouts = {
        // The start-up loader and the two name-list fills. Parameters: none.
        {"startup_fuzz", {"MSG.DAT", "inf.dat", "KOD.DAT", "xd.dat", "x.dat", "nevrend.dat", "RV.INI"}},
        // Position and index files. Parameters: record, key, name line, key of the second pair.
        {"index_fuzz",
         {"inf.dat", "KOD.DAT", "nevrend.dat", "nevpos.dat", "gy.ful", "atcindin.dat", "atcind.dat",
          "mhindin.dat", "mhind.dat", "ellnrend.dat"}},
        // The INI reader and writer on one file's content. Segments: content, section, key, value.
        {"ini_fuzz", {}},
        // KhRun in both modes. Parameters: mode, ATC node, SzedettGyCount, EllSelCount, then the
        // SzedettGy slots (21) and the EllSel slots.
        {"khrun_fuzz",
         {"MSG.DAT", "inf.dat", "KOD.DAT", "xd.dat", "x.dat", "nevrend.dat", "nevpos.dat", "gy.ful",
          "atcindin.dat", "atcind.dat", "ellindin.dat", "ellind.dat", "ellnrend.dat", "atcnrend.dat"}},
        // The side-effect and active-ingredient searches. Parameters: side effect, ingredient,
        // SzedettGyCount, then the SzedettGy slots.
        {"search_fuzz",
         {"MSG.DAT", "inf.dat", "KOD.DAT", "xd.dat", "x.dat", "nevrend.dat", "mhindin.dat", "mhind.dat",
          "haindinf.dat", "haind.dat"}},
        // The description builder and the drug list window's ATC levels and same-ATC listing.
        // Parameters: record, level length, order (0 price, 1 name), hide deleted (0 or 1).
        {"description_fuzz",
         {"MSG.DAT", "inf.dat", "KOD.DAT", "xd.dat", "x.dat", "nevrend.dat", "nevpos.dat", "gy.ful",
          "atcnrend.dat", "ellnrend.dat", "mhnrend.dat", "rend.dat", "atcnren5.dat", "atcindin.dat",
          "atcind.dat"}},
        // The portable registry store. Segments after the (unused) parameter line: registry.ini, then a
        // text the target writes into a setting.
        {"registry_fuzz", {"registry.ini"}},
        // The tree-file parser on one file's content (atcnren2.dat and the like); no parameters.
        {"treefile_fuzz", {}},
        // The prescription readers and rules. Parameters: fee-paying (0 or 1), source, days per package.
        // After the files one more segment: free key, fee key, BNO code, drug key, search text, quantity,
        // "OrvosSzakkep", one a line.
        {"prescription_fuzz", {"bnohr.dat", "tamttt.dat", "bno.tre", "szvhr.dat"}},
        // The detailed list: a fill, every column's sort, a fixed-group listing, one row. Parameters:
        // ATC node, listing mode, hide TT, selected row, record.
        {"detailed_fuzz",
         {"MSG.DAT", "inf.dat", "KOD.DAT", "xd.dat", "x.dat", "nevrend.dat", "nevpos.dat", "gy.ful",
          "atcindin.dat", "atcind.dat"}},
        // The public-care list and certificate, the specialist recommendation's fill and page.
        // Parameters: ATC group of the drug, fills in a row.
        {"certs_fuzz",
         {"MSG.DAT", "inf.dat", "KOD.DAT", "xd.dat", "x.dat", "nevrend.dat", "atcnrend.dat", "kgy.txt",
          "beteg.ini"}},
        // The update notice reply and the two ZARAS.INF files of a refresh; no parameters. Segments: the
        // reply, the data directory's ZARAS.INF, the update directory's.
        {"update_fuzz", {}},
        // The medical aids catalogue. Parameters: node, second node.
        {"aids_fuzz",
         {"MSG.DAT", "senrend2.dat", "sekod2.dat", "sepos.dat", "seiso.dat", "senev.dat", "semegj.dat",
          "se.dat"}},
        // The FoNo formulary. Parameters: item.
        {"fono_fuzz", {"fononr.txt", "fononev.dat", "fonoidx.dat", "fono.dat"}},
        // The own magistral list. Segments after the (unused) parameter line: MagiList.txt, a name.
        {"magi_fuzz", {}},
        // The NEAK source-table reader of the importer: the first byte picks the layout, the rest is
        // the table's text.
        {"neaktable_fuzz", {}},
    };
    return layouts;
}

// The files of `target`'s inputs.
inline const std::vector<std::string_view>& layoutFiles(std::string_view target)
{
    for (const FuzzLayout& layout : fuzzLayouts())
        if (layout.target == target) return layout.files;
    static const std::vector<std::string_view> none;
    return none;
}

}  // namespace rovanel::fuzzing
