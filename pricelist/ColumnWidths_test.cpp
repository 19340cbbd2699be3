#include "pricelist/ColumnWidths.h"

#include <gtest/gtest.h>

#include "app/RegistrySettings.h"
#include "tests/support/ScratchDirectory.h"

namespace rovanel
{
namespace
{

TEST(ColumnWidths, RestoredFromTheKeysThatExist)
{
    testing::ScratchDirectory directory;
    auto store = openRegistryFile(directory.path() / "registry.ini");
    ASSERT_FALSE(store->createKey(columnWidthPath(0)));
    ASSERT_FALSE(RegWriteInteger(*store, columnWidthPath(0), 229));
    ASSERT_FALSE(store->createKey(columnWidthPath(34)));
    ASSERT_FALSE(RegWriteInteger(*store, columnWidthPath(34), 0));
    ColumnWidths widths = designedColumnWidths();
    EXPECT_FALSE(restoreColumnWidths(*store, widths));
    EXPECT_EQ(widths[0], 229);
    EXPECT_EQ(widths[34], 0);
    EXPECT_EQ(widths[5], 30);  // no key: the designed width
    EXPECT_EQ(widths[1], 50);
    EXPECT_EQ(widths[32], 0);
}

TEST(ColumnWidths, AKeyWithoutItsValueKeepsTheWidthAndReportsTheRead)
{
    testing::ScratchDirectory directory;
    auto store = openRegistryFile(directory.path() / "registry.ini");
    ASSERT_FALSE(store->createKey(columnWidthPath(3)));
    ColumnWidths widths = designedColumnWidths();
    const auto error = restoreColumnWidths(*store, widths);
    ASSERT_TRUE(error);
    EXPECT_EQ(error->caption, "Rovanel");
    EXPECT_EQ(widths[3], 50);
}

TEST(ColumnWidths, ShowAllThenSaveStoresOnlyIntoKeysThatExist)
{
    testing::ScratchDirectory directory;
    auto store = openRegistryFile(directory.path() / "registry.ini");
    ASSERT_FALSE(EnsureRegistryDefaults(*store));  // creates RefColWidth\0 .. \40
    ASSERT_FALSE(saveColumnWidths(*store, showAllColumnWidths()));
    ColumnWidths widths{};
    EXPECT_FALSE(restoreColumnWidths(*store, widths));
    EXPECT_EQ(widths[0], 150);
    for (int i = 1; i < kDetailedColumnCount; ++i) EXPECT_EQ(widths[static_cast<std::size_t>(i)], 40) << i;
}

TEST(ColumnWidths, HiddenColumnsKeepTheirStoredWidth)
{
    testing::ScratchDirectory directory;
    auto store = openRegistryFile(directory.path() / "registry.ini");
    ASSERT_FALSE(EnsureRegistryDefaults(*store));
    ColumnWidths widths = showAllColumnWidths();
    widths[2] = 0;
    ASSERT_FALSE(saveColumnWidths(*store, widths));
    EXPECT_EQ(RegReadInteger(*store, columnWidthPath(2)).value, 50);  // the default stands
    EXPECT_EQ(RegReadInteger(*store, columnWidthPath(3)).value, 40);
}

TEST(ColumnWidths, WithoutTheKeysSaveWritesNothingAndTheDesignedWidthsComeBack)
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
}

}  // namespace
}  // namespace rovanel
