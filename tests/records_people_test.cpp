// Customers and countermen.
#include <gtest/gtest.h>
#include <string>

#include "engine/codec.h"
#include "engine/state.h"
#include "records/countermen.h"
#include "records/customers.h"
#include "tests/support/program_run.h"
#include "tools/sample/record_writer.h"

namespace dg {
namespace {

using sample::RecordWriter;

clsCustomers customer(const RecordWriter& record) {
  clsCustomers result;
  result.Unpack(record.bytes());
  return result;
}

TEST(CustomerRecords, NamesAndAddressesHaveDashesAndTheTableGoesBack) {
  setMaskHead(" ,-.");
  const auto read = customer(RecordWriter(300)
                                 .packed(6, 20, "SMITH-JONES, A.", " ,-.")
                                 .packed(66, 20, "DENVER, CO 80202-1234", " ,-.")
                                 .packed(205, 12, "A/B", " ,/."));
  EXPECT_EQ(MaskTable, kDefaultMaskTable) << "whatever it was before";
  EXPECT_EQ(read.Name, "SMITH-JONES, A.               ");
  EXPECT_EQ(read.Contact_1, "A/B               ");
  EXPECT_EQ(read.State, "CO");
  EXPECT_EQ(read.Zip_Code, "80202-1234");

  std::string record(300, '\0');
  setMaskHead(" ,-.");
  read.Pack(record);
  EXPECT_EQ(MaskTable, kDefaultMaskTable);
  EXPECT_EQ(customer(RecordWriter(record)).Name, read.Name);
  EXPECT_EQ(customer(RecordWriter(record)).Contact_1, read.Contact_1);
}

TEST(CustomerRecords, NumbersThatCanBeNoTelephoneReadAsNone) {
  const auto read = customer(RecordWriter(300)
                                 .integer(88, 'L', 10'000'000)
                                 .integer(201, 'L', 10'000'000)
                                 .integer(285, 'C', 1'000)
                                 .integer(287, 'C', 999)
                                 .integer(289, 'L', -1));
  EXPECT_EQ(read.Phone_Number, 10'000'000) << "the first telephone is not limited";
  EXPECT_EQ(read.Phone_Number_2, 0);
  EXPECT_EQ(read.Area_Code_2, 0);
  EXPECT_EQ(read.Area_Code_3, 999);
  EXPECT_EQ(read.Phone_Number_3, 0);
  EXPECT_EQ(customer(RecordWriter(300).integer(201, 'L', 9'999'999)).Phone_Number_2, 9'999'999);
}

TEST(CustomerRecords, ARecordWithoutItsExtensionKeepsWhatWasThere) {
  RecordWriter whole(300);
  whole.integer(3, 'D', 100).integer(186, 'L', 5).integer(197, 'L', 77).integer(297, 'L', 99);
  clsCustomers read;
  read.Unpack(whole.bytes());
  EXPECT_EQ(read.Note_Chain, 99) << "the last field of the record";
  read.Unpack(RecordWriter(300).integer(3, 'D', 200).bytes().substr(0, 299));
  EXPECT_EQ(read.Account, 200);
  EXPECT_EQ(read.PYTD_Sales, Currency());
  EXPECT_EQ(read.Note_Chain, 99) << "a byte is missing";
  read.Unpack(RecordWriter(200).integer(3, 'D', 300).integer(197, 'L', 1).bytes());
  EXPECT_EQ(read.DetailChain, 1);
  read.Unpack(RecordWriter(199).integer(3, 'D', 400).bytes());
  EXPECT_EQ(read.Account, 400);
  EXPECT_EQ(read.DetailChain, 1);
}

TEST(CustomerRecords, ANameIsLookedUpByTheExactNumber) {
  ProgramRun run;
  run.builder.records("CUSTL").add(RecordWriter(200).packed(6, 20, "O-BRANNOX", " ,-.").bytes());
  run.builder.index("CUSTI").add(sample::integerKey('L', 4711, 4), 1);
  run.openEngine();
  EXPECT_EQ(GetCustomerName(4711), "O-BRANNOX                     ");
  EXPECT_EQ(GetCustomerName(4710), "Customer Name Not Found") << "the next account is another";
  EXPECT_EQ(GetCustomerName(5000), "Customer Name Not Found");
}

TEST(CountermanRecords, OneFieldHoldsAFlagThatStays) {
  clsCounterman man;
  const auto unpack = [&man](std::int32_t value) {
    man.Unpack(RecordWriter(400).integer(198, 'C', value).bytes());
  };
  const auto packed = [&man] {
    std::string record(400, '\0');
    man.Pack(record);
    return Unpack('C', record, 198);
  };
  unpack(9'999);
  EXPECT_EQ(man.Field198Flag, 0);
  EXPECT_EQ(man.Field198, 9'999);
  unpack(12'345);
  EXPECT_EQ(man.Field198Flag, -1);
  EXPECT_EQ(man.Field198, 2'345);
  EXPECT_EQ(packed(), 12'345);
  unpack(10'000);
  EXPECT_EQ(man.Field198, 0);
  unpack(50);
  EXPECT_EQ(man.Field198Flag, -1) << "reading never clears it";
  EXPECT_EQ(packed(), 10'050);
}

TEST(CountermanRecords, TheMainRecordAloneHasNoDeposits) {
  clsCounterman man;
  man.Unpack(RecordWriter(404).integer(3, 'C', 1).integer(333, 'L', 500).bytes());
  man.Unpack(RecordWriter(204).integer(3, 'C', 2).integer(194, 'C', 9).bytes());
  EXPECT_EQ(man.COUNTERMAN_Number, 2);
  EXPECT_EQ(man.YTD_Lost_Sales, 9);
  EXPECT_EQ(man.Deposits_In_Today, Currency(5)) << "left from the record before";
}

}  // namespace
}  // namespace dg
