#include "pricelist/ColumnWidths.h"

#include <gtest/gtest.h>

#include "app/RegistrySettings.h"
#include "tests/support/ScratchDirectory.h"

namespace rovanel
{
namespace
{

// Without the keys a save writes nothing and the designed widths come back; with them (as the start
// creates them) show-all then save stores every shown width.
TEST(ColumnWidths, SaveStoresOnlyIntoKeysThatExist)
{
    testing::ScratchDirectory directory;
    const auto file = directory.path() / "registry.ini";
    {
        auto store = openRegistryFile(file);
        ASSERT_FALSE(saveColumnWidths(*store, showAllColumnWidths()));
        EXPECT_FALSE(store->keyExists(columnWidthPath(0)));
    }
    auto store = openRegistryFile(file);
    ColumnWidths widths = designedColumnWidths();
    EXPECT_FALSE(restoreColumnWidths(*store, widths));
    EXPECT_EQ(widths, designedColumnWidths());

    ASSERT_FALSE(EnsureRegistryDefaults(*store));  // creates RefColWidth\0 .. \40
    ColumnWidths shown = showAllColumnWidths();
    shown[2] = 0;  // a hidden column keeps what was stored
    ASSERT_FALSE(saveColumnWidths(*store, shown));
    EXPECT_FALSE(restoreColumnWidths(*store, widths));
    EXPECT_EQ(widths[0], 150);
    EXPECT_EQ(widths[2], 50);
    for (int i = 3; i < kDetailedColumnCount; ++i) EXPECT_EQ(widths[static_cast<std::size_t>(i)], 40) << i;
}

}  // namespace
}  // namespace rovanel
