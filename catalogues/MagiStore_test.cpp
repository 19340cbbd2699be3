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
// A refusal's text in UTF-8, "" for none.
std::string refusal(const std::optional<Message>& message) { return message ? utf8(message->text) : ""; }

TEST(RecipeName, NamesThatCannotBeFilesOnWindowsOrLinuxAreRefusedWithTheirReason)
{
    // What the name is, the name, and why it is refused (UTF-8; nullptr when the name is taken).
    using Case = std::tuple<const char*, std::string, const char*>;
    const char* forbidden =
        "A recept neve nem tartalmazhatja a következő karakterek egyikét: \\ / : * ? \" < > |";
    const char* ending = "A recept neve nem végződhet ponttal vagy szóközzel.";
    const char* reserved = "A recept neve nem lehet CON, PRN, AUX, NUL, COM1-COM9 vagy LPT1-LPT9.";
    const Case cases[] = {
        {"plain Hungarian name", cp("Kenőcs szalicilsavval 5%"), nullptr},
        {"dots inside", "Sol. 0.5", nullptr},
        {"120 characters", std::string(120, 'a'), nullptr},
        {"121 characters", std::string(121, 'a'), "A recept neve legfeljebb 120 karakter lehet."},
        {"empty", "", "Adja meg a recept nevét!"},
        {"slash", "../x", forbidden},
        {"tab", "a\tb", "A recept neve nem tartalmazhat vezérlőkaraktert."},
        {"trailing dot", "recept.", ending},
        {"dot dot", "..", ending},
        {"trailing blank", "recept ", ending},
        {"reserved", "con", reserved},
        {"reserved with extension", "NUL.txt", reserved},
        {"reserved port", "LPT9", reserved},
        {"not reserved", "COM0", nullptr},
        {"the list's own name", "magilist.TXT",
         "A recept neve nem lehet MagiList.txt, és nem végződhet .tmp~ véggel."},
    };
    std::vector<Case> all(std::begin(cases), std::end(cases));
    for (const char bad : std::string_view("\\/:*?\"<>|"))
        all.push_back({"forbidden character", std::string("a") + bad + "b", forbidden});
    for (const auto& [what, name, reason] : all) {
        SCOPED_TRACE(what + (": " + name));
        const auto refused = checkRecipeName(name);
        if (!reason) {
            EXPECT_EQ(refused, std::nullopt);
            continue;
        }
        ASSERT_TRUE(refused);
        EXPECT_EQ(utf8(refused->text), reason);
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

    // List lines keep their bytes, and a last line without line end counts.
    EXPECT_EQ(parseRecipeList("A\r\nB\nC"), (std::vector<std::string>{"A", "B", "C"}));
    EXPECT_EQ(parseRecipeList("A\r\n\r\n"), (std::vector<std::string>{"A", ""}));
    EXPECT_TRUE(parseRecipeList("").empty());
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
    EXPECT_TRUE(refusal(store.add("B", "bé")).starts_with("A saját receptek listája nem menthető: "));
    EXPECT_EQ(store.names(), std::vector<std::string>{"A"})
        << "the name is not listed when the list was not saved";
    EXPECT_TRUE(refusal(store.modify("A", "más")).starts_with("A recept nem menthető: "));
    EXPECT_EQ(root.read("saved/A"), "első");

    MagiStore unusable(root.path() / "magi");
    EXPECT_TRUE(refusal(unusable.open()).starts_with("A saját receptek mappája nem hozható létre: "));
    EXPECT_TRUE(unusable.names().empty());

    // A recipe file that is a folder: the list is saved, the recipe is refused, the folder stays.
    std::filesystem::remove(root.path() / "magi");
    std::filesystem::rename(root.path() / "saved", root.path() / "magi");
    std::filesystem::create_directory(root.path() / "magi" / "C");
    EXPECT_TRUE(refusal(store.add("C", "cé")).starts_with("A recept nem menthető: "));
    EXPECT_EQ(root.read("magi/MagiList.txt"), "A\r\nC\r\n");
    EXPECT_TRUE(std::filesystem::is_directory(root.path() / "magi" / "C"));
}

}  // namespace
}  // namespace rovanel
