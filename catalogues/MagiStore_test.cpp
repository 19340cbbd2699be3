#include "catalogues/MagiStore.h"

#include <gtest/gtest.h>

#include "db/Cp1250.h"
#include "tests/support/ScratchDirectory.h"

namespace rovanel
{
namespace
{

std::string cp(std::string_view utf8) { return utf8ToCp1250(utf8); }
std::string utf8(std::string_view text) { return cp1250ToUtf8(text); }

TEST(RecipeName, NamesThatCannotBeFilesOnWindowsOrLinuxAreRefusedWithTheirReason)
{
    struct Case {
        const char* what;
        std::string name;
        const char* reason;  // UTF-8; nullptr when the name is taken
    };
    const char* forbidden =
        "A recept neve nem tartalmazhatja a következő karakterek egyikét: \\ / : * ? \" < > |";
    const Case cases[] = {
        {"plain Hungarian name", cp("Kenőcs szalicilsavval 5%"), nullptr},
        {"dots inside", "Sol. 0.5", nullptr},
        {"120 characters", std::string(120, 'a'), nullptr},
        {"121 characters", std::string(121, 'a'), "A recept neve legfeljebb 120 karakter lehet."},
        {"empty", "", "Adja meg a recept nevét!"},
        {"slash", "../x", forbidden},
        {"tab", "a\tb", "A recept neve nem tartalmazhat vezérlőkaraktert."},
        {"trailing dot", "recept.", "A recept neve nem végződhet ponttal vagy szóközzel."},
        {"dot dot", "..", "A recept neve nem végződhet ponttal vagy szóközzel."},
        {"trailing blank", "recept ", "A recept neve nem végződhet ponttal vagy szóközzel."},
        {"reserved", "con", "A recept neve nem lehet CON, PRN, AUX, NUL, COM1-COM9 vagy LPT1-LPT9."},
        {"reserved with extension", "NUL.txt",
         "A recept neve nem lehet CON, PRN, AUX, NUL, COM1-COM9 vagy LPT1-LPT9."},
        {"reserved port", "LPT9", "A recept neve nem lehet CON, PRN, AUX, NUL, COM1-COM9 vagy LPT1-LPT9."},
        {"not reserved", "COM0", nullptr},
        {"the list's own name", "magilist.TXT",
         "A recept neve nem lehet MagiList.txt, és nem végződhet .tmp~ véggel."},
    };
    std::vector<Case> all(std::begin(cases), std::end(cases));
    for (const char bad : std::string_view("\\/:*?\"<>|"))
        all.push_back({"forbidden character", std::string("a") + bad + "b", forbidden});
    for (const Case& c : all) {
        SCOPED_TRACE(c.what + (": " + c.name));
        const auto refused = checkRecipeName(c.name);
        if (!c.reason) {
            EXPECT_EQ(refused, std::nullopt);
            continue;
        }
        ASSERT_TRUE(refused);
        EXPECT_EQ(utf8(refused->text), c.reason);
        EXPECT_EQ(utf8(refused->caption), "Saját Magi receptek");
    }
}

TEST(MagiStore, FirstOpenMakesTheFolderAndAnEmptyListThenKeepsWhatWasTyped)
{
    testing::ScratchDirectory root;
    const auto folder = root.path() / "update" / "magi";
    MagiStore store(folder);
    EXPECT_EQ(store.open(), std::nullopt);
    EXPECT_EQ(root.read("update/magi/MagiList.txt"), "");
    EXPECT_EQ(store.add(cp("Kenőcs"), "Rp.\r\nAcidi salicylici 5,0\r\n"), std::nullopt);
    EXPECT_EQ(store.add("Oldat", "x"), std::nullopt);
    EXPECT_EQ(root.read("update/magi/MagiList.txt"), cp("Kenőcs\r\nOldat\r\n"));

    MagiStore reopened(folder);
    EXPECT_EQ(reopened.open(), std::nullopt);
    EXPECT_EQ(reopened.names(), (std::vector<std::string>{cp("Kenőcs"), "Oldat"}));
    EXPECT_EQ(reopened.recipe(cp("Kenőcs")), "Rp.\r\nAcidi salicylici 5,0\r\n");
    EXPECT_EQ(reopened.modify("Oldat", "új"), std::nullopt);
    EXPECT_EQ(reopened.recipe("Oldat"), "új");
    EXPECT_EQ(reopened.names().size(), 2u) << "modify leaves the list alone";
    EXPECT_EQ(reopened.recipe("nincs ilyen"), std::nullopt);
    EXPECT_EQ(reopened.recipe("../MagiList.txt"), std::nullopt) << "a refused name reads nothing";
    for (const auto& entry : std::filesystem::directory_iterator(folder))
        EXPECT_FALSE(entry.path().filename().string().ends_with(".tmp~")) << "no temporary file is left";
}

TEST(MagiStore, DuplicateNamesShareOneFileAndDeleteRemovesTheFileOfTheShownText)
{
    testing::ScratchDirectory root;
    MagiStore store(root.path());
    ASSERT_EQ(store.open(), std::nullopt);
    ASSERT_EQ(store.add("A", "első"), std::nullopt);
    ASSERT_EQ(store.add("B", "bé"), std::nullopt);
    ASSERT_EQ(store.add("A", "második"), std::nullopt);
    EXPECT_EQ(root.read("MagiList.txt"), "A\r\nB\r\nA\r\n");
    EXPECT_EQ(store.recipe("A"), "második");

    // The box shows "B" after line 0 is deleted: the file of "B" goes, "A"'s stays.
    EXPECT_EQ(store.removeLine(0), std::nullopt);
    EXPECT_EQ(store.removeFile("B"), std::nullopt);
    EXPECT_EQ(root.read("MagiList.txt"), "B\r\nA\r\n");
    EXPECT_EQ(store.recipe("B"), std::nullopt);
    EXPECT_EQ(store.recipe("A"), "második");
    EXPECT_EQ(store.removeLine(2), std::nullopt);
    EXPECT_EQ(store.removeLine(-1), std::nullopt);
    EXPECT_EQ(store.names().size(), 2u);
    EXPECT_EQ(store.removeFile("../MagiList.txt"), std::nullopt) << "a refused name deletes nothing";
    EXPECT_EQ(root.read("MagiList.txt"), "B\r\nA\r\n");
}

TEST(MagiStore, AFailingWriteSaysWhyAndLosesNothing)
{
    testing::ScratchDirectory root;
    MagiStore store(root.path() / "magi");
    ASSERT_EQ(store.open(), std::nullopt);
    ASSERT_EQ(store.add("A", "első"), std::nullopt);

    // The folder replaced by a file: nothing can be written into it (even for root).
    std::filesystem::rename(root.path() / "magi", root.path() / "saved");
    root.write("magi", "not a folder");
    const auto refused = store.add("B", "bé");
    ASSERT_TRUE(refused);
    EXPECT_TRUE(utf8(refused->text).starts_with("A saját receptek listája nem menthető: "))
        << utf8(refused->text);
    EXPECT_EQ(store.names(), std::vector<std::string>{"A"})
        << "the name is not listed when the list was not saved";
    const auto notModified = store.modify("A", "más");
    ASSERT_TRUE(notModified);
    EXPECT_TRUE(utf8(notModified->text).starts_with("A recept nem menthető: "));
    EXPECT_EQ(root.read("saved/A"), "első");

    MagiStore unusable(root.path() / "magi");
    const auto notOpened = unusable.open();
    ASSERT_TRUE(notOpened);
    EXPECT_TRUE(utf8(notOpened->text).starts_with("A saját receptek mappája nem hozható létre: "));
    EXPECT_TRUE(unusable.names().empty());

    // A recipe file that is a folder: the list is saved, the recipe is refused, the folder stays.
    std::filesystem::remove(root.path() / "magi");
    std::filesystem::rename(root.path() / "saved", root.path() / "magi");
    std::filesystem::create_directory(root.path() / "magi" / "C");
    const auto recipeRefused = store.add("C", "cé");
    ASSERT_TRUE(recipeRefused);
    EXPECT_TRUE(utf8(recipeRefused->text).starts_with("A recept nem menthető: "));
    EXPECT_EQ(root.read("magi/MagiList.txt"), "A\r\nC\r\n");
    EXPECT_TRUE(std::filesystem::is_directory(root.path() / "magi" / "C"));
}

TEST(MagiStore, ListLinesKeepTheirBytesAndALastLineWithoutLineEndCounts)
{
    EXPECT_EQ(parseRecipeList("A\r\nB\nC"), (std::vector<std::string>{"A", "B", "C"}));
    EXPECT_EQ(parseRecipeList("A\r\n\r\n"), (std::vector<std::string>{"A", ""}));
    EXPECT_TRUE(parseRecipeList("").empty());
}

}  // namespace
}  // namespace rovanel
