#include "app/RegistrySettings.h"

#include <gtest/gtest.h>

#include <fstream>

#include "db/Cp1250.h"
#include "db/DataFile.h"
#include "tests/support/ScratchDirectory.h"

namespace rovanel
{
namespace
{

class RegistryFile : public ::testing::Test
{
protected:
    [[nodiscard]] std::filesystem::path file() const { return m_scratch.path() / "registry.ini"; }
    [[nodiscard]] std::string content() const { return readWholeFile(file()).value_or(""); }

    testing::ScratchDirectory m_scratch;
    std::unique_ptr<RegistryStore> m_store = openRegistryFile(file());
};

// The Windows system's own texts for the failures.
const std::string kNotFound = utf8ToCp1250("A rendszer nem találja a megadott fájlt.");
const std::string kWrongType = utf8ToCp1250("Az adat érvénytelen.");

// A clean profile gets every default, one section a key with the value named by the full path; a second
// start finds everything and changes nothing.
TEST_F(RegistryFile, CleanProfileGetsOneSectionPerKeyWithTheValueNamedByTheFullPath)
{
    ASSERT_FALSE(EnsureRegistryDefaults(*m_store).has_value());
    const std::string text = content();
    for (const std::string_view expected :
         {"[Software\\Rovanel]\r\nSoftware\\Rovanel=sz:\"\"\r\n",
          "[Software\\Rovanel\\Version]\r\n\\Software\\Rovanel\\Version=sz:\"1.0\"\r\n",
          "[Software\\Rovanel\\CheckUpg]\r\n\\Software\\Rovanel\\CheckUpg=dword:1\r\n",
          "[Software\\Rovanel\\RefColWidth\\8]\r\n\\Software\\Rovanel\\RefColWidth\\8=dword:102\r\n",
          "\\Software\\Rovanel\\RpData\\KgyTxtPath=sz:\"c:\\rovanelw\\kgy.txt\"\r\n"})
        EXPECT_NE(text.find(expected), std::string::npos) << expected;
    EXPECT_LT(text.find("CheckUpg]"), text.find("UpgShow]"));  // the order of creation
    EXPECT_FALSE(EnsureRegistryDefaults(*m_store).has_value());
    EXPECT_EQ(content(), text);
}

TEST_F(RegistryFile, KeyWithoutItsValueIsNotRepairedAndReadsGiveTheError)
{
    for (const char* key : {"UpgShow", "HttpProxy", "Version"})
        ASSERT_FALSE(m_store->createKey(std::string("\\Software\\Rovanel\\") + key).has_value());
    ASSERT_FALSE(RegWriteString(*m_store, "\\Software\\Rovanel\\Version", "20240131").has_value());
    ASSERT_FALSE(EnsureRegistryDefaults(*m_store).has_value());
    EXPECT_EQ(RegReadString(*m_store, "\\Software\\Rovanel\\Version").value, "20240131")
        << "an existing value is never overwritten by its default";

    const BoolRead flag = RegReadBool(*m_store, "\\Software\\Rovanel\\UpgShow");
    EXPECT_FALSE(flag.value);
    EXPECT_EQ(flag.error, (Message{kNotFound, "Rovanel", MessageIcon::Stop}));

    EXPECT_EQ(RegReadString(*m_store, "\\Software\\Rovanel\\HttpProxy").error->text, kNotFound);

    // The neighbours were created as usual.
    EXPECT_TRUE(RegReadBool(*m_store, "\\Software\\Rovanel\\CheckUpg").value);
}

TEST_F(RegistryFile, OwnTablesStopAtAConversionErrorOrTheEmptyPathAndKeepWhatWasMade)
{
    const RegistryDefault table[] = {{"\\Software\\Test\\A", "1", 1},
                                     {"\\Software\\Test\\B", "x1", 1},
                                     {"\\Software\\Test\\C", "1", 2},
                                     {"", "", 0}};
    const auto error = EnsureRegistryDefaults(*m_store, table);
    ASSERT_TRUE(error.has_value());
    EXPECT_EQ(cp1250ToUtf8(error->text), "'x1' nem érvényes egész szám.");
    EXPECT_EQ(RegReadInteger(*m_store, "\\Software\\Test\\A").value, 1);
    EXPECT_TRUE(m_store->keyExists("\\Software\\Test\\B"));  // created before its conversion failed
    EXPECT_FALSE(m_store->keyExists("\\Software\\Test\\C"));

    // An unknown type creates the key without its value, and the table ends at the empty path.
    const RegistryDefault odd[] = {
        {"\\Software\\Test\\Odd", "1", 7}, {"", "", 0}, {"\\Software\\Test\\After", "1", 1}};
    EXPECT_FALSE(EnsureRegistryDefaults(*m_store, odd).has_value());
    EXPECT_TRUE(m_store->keyExists("\\Software\\Test\\Odd"));
    EXPECT_EQ(RegReadInteger(*m_store, "\\Software\\Test\\Odd").error->text, kNotFound);
    EXPECT_FALSE(m_store->keyExists("\\Software\\Test\\After"));
}

TEST_F(RegistryFile, ReadsAndWritesFollowTheRegistryRules)
{
    ASSERT_FALSE(EnsureRegistryDefaults(*m_store).has_value());
    // A reader of another type fails.
    EXPECT_EQ(RegReadString(*m_store, "\\Software\\Rovanel\\CheckUpg").error->text, kWrongType);
    EXPECT_EQ(RegReadBool(*m_store, "\\Software\\Rovanel\\RtfFontSize").error->text, kWrongType);
    // A missing key fails, and a writer does not create it.
    EXPECT_EQ(RegReadBool(*m_store, "\\Software\\Rovanel\\Nincs").error->text, kNotFound);
    EXPECT_EQ(RegWriteBool(*m_store, "\\Software\\Rovanel\\Nincs", true),
              (Message{kNotFound, "Rovanel", MessageIcon::Stop}));
    EXPECT_FALSE(m_store->keyExists("\\Software\\Rovanel\\Nincs"));
    // Keys and value names match without regard to case; a leading backslash names the same key.
    EXPECT_TRUE(RegReadBool(*m_store, "\\SOFTWARE\\rovanel\\checkupg").value);
    EXPECT_TRUE(m_store->keyExists("Software\\Rovanel\\RpData"));  // a parent of created keys
    EXPECT_FALSE(m_store->keyExists("Software\\Rovanel\\RpDat"));
    // Any text survives the file: blanks at both ends, quotes, line ends, the escape character.
    for (const std::string& text : {std::string("  proxy.example.hu  "), std::string("a\"b\"c"),
                                    std::string("1\r\n2%41"), std::string("\xE1rv\xED"), std::string()}) {
        SCOPED_TRACE(text);
        ASSERT_FALSE(RegWriteString(*m_store, "\\Software\\Rovanel\\HttpProxy", text).has_value());
        EXPECT_EQ(openRegistryFile(file())
                      ->readValue("\\Software\\Rovanel\\HttpProxy", "\\Software\\Rovanel\\HttpProxy")
                      .value->text,
                  text);
    }
    ASSERT_FALSE(RegWriteInteger(*m_store, "\\Software\\Rovanel\\RefColWidth\\3", -5).has_value());
    EXPECT_EQ(RegReadInteger(*m_store, "\\Software\\Rovanel\\RefColWidth\\3").value, -5);
}

TEST_F(RegistryFile, DamagedLinesAreIgnoredAndUnknownDataReadsAsTheWrongType)
{
    m_scratch.write("registry.ini",
                    "garbage without section\r\n"
                    "[Software\\Rovanel\\UpgShow]\r\n"
                    "\\Software\\Rovanel\\UpgShow=dword:12x\r\n"
                    "line without equals\r\n"
                    "[Software\\Rovanel\\Version]\r\n"
                    "\\Software\\Rovanel\\Version=sz:\"2.0\"\r\n"
                    "\\Software\\Rovanel\\Version=sz:\"3.0\"\r\n"
                    "[Software\\Rovanel\\HttpProxy\r\n"
                    "\\Software\\Rovanel\\HttpProxy=sz:\"1.0\"\r\n"
                    "[Software\\Rovanel\\ProxyPort]\r\n"
                    "\\Software\\Rovanel\\ProxyPort=sz:\"unterminated\r\n");
    EXPECT_EQ(RegReadBool(*m_store, "\\Software\\Rovanel\\UpgShow").error->text, kWrongType);
    EXPECT_EQ(RegReadString(*m_store, "\\Software\\Rovanel\\Version").value, "2.0");  // first line wins
    // A header without its closing bracket is no key.
    EXPECT_EQ(RegReadString(*m_store, "\\Software\\Rovanel\\HttpProxy").error->text, kNotFound);
    EXPECT_EQ(RegReadString(*m_store, "\\Software\\Rovanel\\ProxyPort").error->text, kWrongType);
}

// A registry.ini of many thousands of sections once took seconds for every read (each read loads the file,
// and the load compared every section with every other); the merging rules are pinned here.
TEST_F(RegistryFile, ManySectionsMergeByNameWithoutRegardToCaseAndTheFirstValueWins)
{
    {
        std::ofstream out(file(), std::ios::binary);
        out << "[Software\\Rovanel\\Version]\r\n\\Software\\Rovanel\\Version=sz:\"2.0\"\r\n";
        for (int i = 0; i < 20000; ++i)
            out << "[Software\\Other\\" << i << "]\r\nv" << i << "=dword:" << i << "\r\n";
        out << "[\\SOFTWARE\\ROVANEL\\version]\r\n\\Software\\Rovanel\\VERSION=sz:\"3.0\"\r\n"
               "\\Software\\Rovanel\\Language=sz:\"hu\"\r\n";
    }
    EXPECT_EQ(RegReadString(*m_store, "\\Software\\Rovanel\\Version").value, "2.0");
    EXPECT_EQ(m_store->readValue("Software\\Rovanel\\Version", "\\Software\\Rovanel\\Language").value->text,
              "hu")
        << "a later section of the same key adds to it";
    EXPECT_EQ(m_store->readValue("Software\\Other\\19999", "V19999").value->number, 19999u);
}

TEST_F(RegistryFile, StoreThatCannotBeWrittenGivesAccessDeniedAndTheFirstErrorEndsStartUpWork)
{
    std::filesystem::create_directories(file());  // a directory where the file should be
    const auto error = EnsureRegistryDefaults(*m_store);
    ASSERT_TRUE(error.has_value());
    EXPECT_EQ(cp1250ToUtf8(error->text), "A hozzáférés megtagadva.");
    EXPECT_EQ(RegReadBool(*m_store, "\\Software\\Rovanel\\CheckUpg").error->text, kNotFound);
}

}  // namespace
}  // namespace rovanel
