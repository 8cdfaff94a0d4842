#include "stats/tables/rate_tables.h"

#include "worked_case.h"

namespace zaview {
namespace {

TEST(RateTables, ListThatCannotBeWrittenIsSaid) {
  FakePlatform fake;
  fake.Put("exceedance.list", "old\n");
  fake.room = 20;
  const Platform platform = fake.Get();
  OutputFile out;
  ASSERT_TRUE(OpenOutput(platform, "", OpenHow::replace, out));
  CaseStore c = WorkedCase();
  EnsembleStore none;
  StatisticsState state;
  ExceedanceRequest request;
  request.quantity.iqnt = request.quantity.curve = 1;
  request.threshold = 1;
  EXPECT_EQ(WriteExceedances({platform, {}, {c, none}, state}, request, out), DataFault::none);
  EXPECT_NE(fake.output.find("ERROR writing file exceedance.list\n"), std::string::npos) << fake.output;
  EXPECT_EQ(fake.Bytes("exceedance.list"), "old\n");
}

}  // namespace
}  // namespace zaview
