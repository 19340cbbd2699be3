#include <gtest/gtest.h>

#include "certs/PublicCareCertificate.h"
#include "db/DataFile.h"
#include "db/TextList.h"
#include "tests/support/ScratchDirectory.h"

namespace rovanel
{
namespace
{

const PublicCareEntry kAmlodipin{"C08CA-01", "210751477", "AMLODIPIN 5 MG TABLETTA 30X", "3", "amlodipin "};

TEST(PublicCareList, ARefusedWriteSaysWhyAndLosesNothing)
{
    testing::ScratchDirectory directory;
    directory.write("kgy.txt", "A;1;X;2;y\r\n");
    directory.write("blocker", "a file where a folder should be");
    const auto error = appendPublicCareEntry(directory.path() / "blocker" / "kgy.txt", kAmlodipin);
    ASSERT_TRUE(error);
    EXPECT_EQ(error->rfind("A k\xF6zgy\xF3gy lista nem \xEDrhat\xF3: ", 0), 0u);
    EXPECT_EQ(readWholeFile(directory.path() / "kgy.txt").value_or(""), "A;1;X;2;y\r\n");
}

TEST(PublicCareList, IngredientIsTheTreeTextBeforeItsParenthesis)
{
    const std::vector<TreeNode> tree = {
        {0, "Kardiovaszkul\xE1ris rendszer (C)"}, {1, "amlodipin (C08CA01)"}, {1, "valami"}};
    TextList codes;
    for (const char* code : {"C", "C08CA-01", "C08CA-02", "C08CA-03"}) codes.push_back(code);
    EXPECT_EQ(publicCareIngredient(tree, codes, "C08CA-01"), "amlodipin ");
    EXPECT_EQ(publicCareIngredient(tree, codes, "C08CA-02"), "valami");
    EXPECT_EQ(publicCareIngredient(tree, codes, "C08CA-03"), "");  // beyond the tree's nodes
    EXPECT_EQ(publicCareIngredient(tree, codes, "N"), "");
}

}  // namespace
}  // namespace rovanel
