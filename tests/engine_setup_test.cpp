#include <gtest/gtest.h>

#include "engine/catalog_configuration.h"
#include "engine/codec.h"
#include "engine/state.h"
#include "tests/support/engine_store.h"
#include "tests/support/error_number.h"
#include "tests/support/memory_file_system.h"
#include "tests/support/raised.h"

namespace dg::test {
namespace {

using namespace std::string_literals;

/// The terminal id after a creation over that terminal table, as the workstation "PC7" at 10.1.2.3.
std::string terminalBy(const std::string& table) {
  EngineStore store;
  environment().computerName = "10.1.2.3";  // a dotted name is its own address
  store.files().add(EngineStore::onShare("ttymap"), table);
  store.engine();
  EXPECT_EQ(SystemInfo->IP, "10.1.2.3");
  return SystemInfo->TerminalID;
}

TEST(EngineSetup, FindsTheTerminalByNameOrAddress) {
  EngineStore store;
  store.files().add(EngineStore::onShare("ttymap"), "PC6 11\npc7  12,x\nPC7 13\n");
  store.engine();
  EXPECT_EQ(SystemInfo->ComputerName, "PC7");
  EXPECT_EQ(SystemInfo->TerminalID, "12");

  EXPECT_EQ(terminalBy("10.1.2.33 5\r\n10.1.2.3 7,8 rest\r\n10.1.2.3 9\r\n"), "7");
}

TEST(EngineSetup, ATableWithoutThisWorkstationLeavesTerminalZero) {
  EXPECT_EQ(terminalBy(""), "0");
  EXPECT_EQ(terminalBy("PC8 12\n"), "0");
  EXPECT_EQ(terminalBy("10.1.2.3\n"), "0");
  EXPECT_EQ(terminalBy("10.1.2.3   \n10.1.2.3 4"), "4");
  EXPECT_EQ(terminalBy("10.1.2.3 ,,\n"), "0");
}

TEST(EngineSetup, ANameThatDoesNotResolveHasTheBroadcastAddress) {
  EngineStore store;
  environment().computerName = "";
  store.files().add(EngineStore::onShare("ttymap"), "255.255.255.255 3\n");
  store.engine();
  EXPECT_EQ(SystemInfo->IP, "255.255.255.255");
  EXPECT_EQ(SystemInfo->TerminalID, "3");
}

TEST(EngineSetup, AnUnreachableShareIsToldAndStopsCreation) {
  EngineStore store;
  SystemInfo->mUNCDrive = "gone";
  const auto links = std::make_shared<cLinks>();
  Links = links;
  setMaskHead(" ,-.");
  EXPECT_EQ(raised([] { cBusinessBasic engine; }),
            (Raised{91, "", "Object variable or With block variable not set"}));
  ASSERT_EQ(store.messages().size(), 1U);
  EXPECT_EQ(store.messages()[0].title, "Connection Error");
  EXPECT_EQ(store.messages()[0].style, kSystemModal);
  EXPECT_EQ(store.messages()[0].text,
            "You are attempting to connect to: \\\\gone\\VLMRLNK\\ and this shows to be an invalid "
            "network share");
  EXPECT_EQ(Links, links);
  EXPECT_EQ(MaskTable, kDefaultMaskTable);
}

TEST(EngineSetup, AMissingTerminalTableShowsAsAnObjectThatIsNotSet) {
  EngineStore store;
  auto files = std::make_unique<MemoryFileSystem>();
  files->add(EngineStore::onShare("LINKSFILE"), "");
  const auto former = setFileSystem(std::move(files));
  EXPECT_EQ(raised([] { cBusinessBasic engine; }),
            (Raised{91, "", "Object variable or With block variable not set"}));
  EXPECT_TRUE(store.messages().empty());
  EXPECT_EQ(SystemInfo->TerminalID, "0");
}

TEST(EngineSetup, LoadsTheLinkTable) {
  EngineStore store;
  std::string table = linkEntry(":d:A", "d:ALK") + linkEntry("", "ignored") +
                      linkEntry("\t\n\r \0 "s, "padding") + linkEntry(":d:A", "second") +
                      linkEntry(":d:B\0x"s, "d:\0BLK"s) +
                      linkEntry(std::string(79, 'N'), std::string(79, 'R'));
  table[0] = 'x';  // the byte in front of a name is not read
  table[80] = 'y';
  table += linkEntry(":d:S", "d:SHORT").substr(0, 86);  // cut inside the second name
  store.files().add(EngineStore::onShare("LINKSFILE"), table);
  store.engine();
  ASSERT_EQ(Links->Count(), 4);
  EXPECT_EQ(Links->Item(1)->LinkFile, ":d:A");
  EXPECT_EQ(Links->Item(":D:a")->ResolutionFile, "d:ALK");
  EXPECT_EQ(Links->Item(":d:B\0x"s)->ResolutionFile, "d:\0BLK"s);
  EXPECT_EQ(Links->Item(std::string(79, 'N'))->ResolutionFile, std::string(79, 'R'));
  EXPECT_EQ(Links->Item(4)->ResolutionFile, "d:SHO");
  Links->Remove(":d:A");
  EXPECT_EQ(Links->find(":d:A"), nullptr);
  EXPECT_EQ(Links->Item(1)->LinkFile, ":d:B\0x"s);
  EXPECT_EQ(errorNumber([] { Links->Item(":d:A"); }), kInvalidProcedureCall);
  EXPECT_EQ(errorNumber([] { Links->Item(4); }), kSubscriptOutOfRange);
}

TEST(EngineSetup, ALinkTableLargerThanOneReadIsReadWhole) {
  EngineStore store;
  std::string table;
  for (int i = 0; i < 1500; ++i)
    table += linkEntry(":d:" + std::to_string(i), "r" + std::to_string(i));
  store.files().add(EngineStore::onShare("LINKSFILE"), table);
  store.engine();
  ASSERT_EQ(Links->Count(), 1500);
  EXPECT_EQ(Links->Item(":d:1499")->ResolutionFile, "r1499");
}

TEST(EngineSetup, AMissingLinkTableHasNoLinksAndStaysMissing) {
  EngineStore store;
  const cBusinessBasic& engine = store.engine();
  EXPECT_EQ(Links->Count(), 0);
  EXPECT_EQ(engine.LogicalOpen("CUSTL"), nullptr);
  EXPECT_FALSE(store.files().fileExists(EngineStore::onShare("LINKSFILE")));
}

TEST(EngineSetup, ASecondEngineClosesTheFilesOfTheFirst) {
  EngineStore store;
  store.files().add(EngineStore::inStore("FILE0"), std::string(1024, 'x'));
  const cBusinessBasic& first = store.engine();
  bool orb = false;
  const auto file = first.OpenFile("FILE0");
  EXPECT_EQ(first.BlockReadFile(file, 0, orb), std::string(512, 'x'));
  {
    cBusinessBasic second;
    EXPECT_EQ(OpenFiles->Count(), 0);
    EXPECT_EQ(errorNumber([&] { first.BlockReadFile(file, 0, orb); }), kBadFileNumber);
  }
  // The end of one engine object drops the state of all.
  EXPECT_EQ(OpenFiles, nullptr);
  EXPECT_EQ(Links, nullptr);
  EXPECT_EQ(LogicalFiles, nullptr);
  EXPECT_EQ(SystemInfo, nullptr);
  EXPECT_EQ(errorNumber([&] { first.OpenFile("FILE0"); }), kObjectNotSet);
  EXPECT_EQ(first.OpenFile(EngineStore::inStore("FILE0")), nullptr);
  EXPECT_EQ(errorNumber([&] { first.LogicalOpen("CUSTL"); }), kObjectNotSet);
  EXPECT_EQ(first.LogicalOpen(":d:CUSTL"), nullptr);
  first.CloseFile(EngineStore::inStore("FILE0"));
  EXPECT_EQ(errorNumber([] { cBusinessBasic third; }), kObjectNotSet);
}

// --- Catalog configuration -----------------------------------------------------------------------

constexpr const char* kCatalogPath = "C:\\Temp\\cQTCatalog.ini";

TEST(EngineCatalog, FillsTheStateAndCreatesTheEngine) {
  EngineStore store;
  store.files().add(kCatalogPath,
                    "[other]\r\nServer=no\r\n[EZ-LINES]\r\nServer=srv\r\nDataShare=DATA\r\n"
                    "CatalogShare=CAT\r\nDirectory=LNK001\r\nTerminalID=5\r\n"
                    "CustomerNumber=12345\r\n");
  ReadCatalogConfiguration();
  ASSERT_NE(SharedEngine, nullptr);
  EXPECT_EQ(EpcInfo->Server, "srv");
  EXPECT_EQ(EpcInfo->DataShare, "DATA");
  EXPECT_EQ(EpcInfo->CatalogShare, "\\\\srv\\CAT\\");
  EXPECT_EQ(EpcInfo->Directory, "LNK001");
  EXPECT_EQ(EpcInfo->TerminalID, "5");
  EXPECT_EQ(EpcInfo->CustomerNumber, 12345);
  EXPECT_EQ(SystemInfo->TerminalID, "12");  // by the terminal table
  EXPECT_EQ(SystemInfo->VLMRLNK(), "\\\\srv\\VLMRLNK\\LNK001");
  EXPECT_EQ(SystemInfo->CATCON(), "\\\\srv\\CATCON\\");
  EXPECT_TRUE(store.messages().empty());

  // A second reading starts over and leaves a working engine.
  ReadCatalogConfiguration();
  ASSERT_NE(SharedEngine, nullptr);
  EXPECT_NE(OpenFiles, nullptr);
  EXPECT_NE(SystemInfo, nullptr);
}

TEST(EngineCatalog, ServerAndDirectoryAreEnoughAndLongValuesAreCut) {
  EngineStore store;
  store.files().add(kCatalogPath, "[eZ-Lines]\nServer=srv\nDirectory=" + std::string(150, 'D'));
  ReadCatalogConfiguration();
  EXPECT_NE(SharedEngine, nullptr);
  EXPECT_EQ(SystemInfo->mDirectory, std::string(99, 'D'));
  EXPECT_EQ(EpcInfo->CustomerNumber, 0);
  EXPECT_EQ(EpcInfo->TerminalID, "");
}

TEST(EngineCatalog, AMissingFileIsToldAndLeavesNoEngine) {
  EngineStore store;
  ReadCatalogConfiguration();
  EXPECT_EQ(SharedEngine, nullptr);
  ASSERT_NE(SystemInfo, nullptr);
  EXPECT_EQ(SystemInfo->mUNCDrive, "");
  ASSERT_EQ(store.messages().size(), 1U);
  EXPECT_EQ(store.messages()[0].title, "EpcError");
  EXPECT_EQ(store.messages()[0].style, kSystemModal);
  EXPECT_EQ(store.messages()[0].text,
            "You are missing file: C:\\Temp\\cQTCatalog.ini    Are you running Velmora "
            "Workstation?");
}

TEST(EngineCatalog, ACustomerNumberThatIsNoneRaises) {
  EngineStore store;
  store.files().add(kCatalogPath, "[eZ-Lines]\nServer=srv\nCustomerNumber=abc\n");
  EXPECT_EQ(errorNumber([] { ReadCatalogConfiguration(); }), kTypeMismatch);
  EXPECT_EQ(SharedEngine, nullptr);
  EXPECT_EQ(SystemInfo->mUNCDrive, "");
}

}  // namespace
}  // namespace dg::test
