#include <gtest/gtest.h>

#include <sstream>

#include "ArrayDesign.h"
#include "GRMKpeOracle.h"
#include "HDARPartLoader.h"
#include "HDARShimRowGenerator.h"
#include "HEXAll.h"
#include "HIPDeviceLoader.h"
#include "KPEGRMDeviceUtils.h"
#include "TestSupport.h"

using namespace array_test;

namespace {

std::string loadError(std::string const& text) {
  std::istringstream in(text);
  try {
    HDARPartLoader::readFromStream(in, "dev.json");
  } catch (HEXAll const& error) {
    return error.what();
  }
  return "no error";
}

TEST(GRMBelTest, SitesCarryTheirNameAndDeviceColumnOnlyWhileTheirPartLives) {
  EXPECT_TRUE(GRMBel().isBad());
  EXPECT_EQ("", GRMBel().getHierarchicalName1());
  GRMBel kept;
  {
    std::unique_ptr<HDARPart> part = makeTestPart();
    GRMBel const m1 = part->getOracle().getBelByName("KPE_SHIM_X1Y0/M1");
    ASSERT_FALSE(m1.isBad());
    EXPECT_EQ("KPE_SHIM_X1Y0/M1", m1.getHierarchicalName1());
    EXPECT_EQ(5u, m1.getWord1() >> 17);
    EXPECT_EQ(5, m1.getDeviceColumn());
    EXPECT_TRUE(part->getOracle().getBelByName("KPE_SHIM_X1Y0_M1").isBad());
    GRMBel const m0 = part->getOracle().getBelByName("KPE_SHIM_X1Y0/M0");
    EXPECT_TRUE(m0 < m1 && !(m1 < m0) && m0 != m1);
    // The same name in another part is another site.
    EXPECT_NE(m1, makeTestPart()->getOracle().getBelByName("KPE_SHIM_X1Y0/M1"));
    kept = m1;
  }
  EXPECT_FALSE(kept.isBad());
  EXPECT_EQ("", kept.getHierarchicalName1());
}

TEST(KPEGRMDeviceUtilsTest, DocumentNamesRoundTripForBothTileNamingFamilies) {
  std::unique_ptr<HDARPart> part = makeTestPart();
  for (char const* name : {"KPE_SHIM_X0Y0/M1", "KPE_ML_SHIM_X2Y0/PL_M0"}) {
    GRMBel const site = part->getOracle().getBelByName(name);
    std::string const documentName = KPEGRMDeviceUtils::getHierName(*part, site);
    EXPECT_EQ(std::string::npos, documentName.find('/'));
    EXPECT_EQ(site, KPEGRMDeviceUtils::getGRMBel(*part, documentName)) << documentName;
  }
  EXPECT_EQ("KPE_ML_SHIM_X2Y0_PL_M0",
            KPEGRMDeviceUtils::getHierName(*part, part->getOracle().getBelByName("KPE_ML_SHIM_X2Y0/PL_M0")));

  std::unique_ptr<HDARPart> wide = HDARShimRowGenerator::makePart({40, 3, 100, true}, "wide");
  GRMBel const last = wide->getOracle().getBelByName("KPE_ML_SHIM_X39Y0/CH2");
  ASSERT_FALSE(last.isBad());
  EXPECT_EQ(139, last.getDeviceColumn());
  EXPECT_EQ(last, KPEGRMDeviceUtils::getGRMBel(*wide, KPEGRMDeviceUtils::getHierName(*wide, last)));
}

TEST(KPEGRMDeviceUtilsTest, TheSeparatorIsOneCountedUnderscoreAndNothingElse) {
  HDARPart const part("p", {tile("A_B", 0, 0, {{"C", 0}}), tile("KPE_SHIM_T", 1, 1, {{"X_Y", 0}}),
                            tile("KPE_ML_A_B", 2, 2, {{"C", 0}}), tile("KPE_ML_A", 3, 3, {{"B_C", 0}})});
  GRMOracle const& oracle = part.getOracle();
  // The third underscore: "A_B_C" has only two and is looked up as it stands.
  EXPECT_TRUE(KPEGRMDeviceUtils::getGRMBel(part, "A_B_C").isBad());
  EXPECT_EQ(oracle.getBelByName("KPE_SHIM_T/X_Y"), KPEGRMDeviceUtils::getGRMBel(part, "KPE_SHIM_T_X_Y"));
  // Behind "KPE_ML" the fourth: the first three stay.
  EXPECT_EQ(oracle.getBelByName("KPE_ML_A_B/C"), KPEGRMDeviceUtils::getGRMBel(part, "KPE_ML_A_B_C"));
  // So "KPE_ML_A/B_C", whose "/" is at the third underscore, comes back as another site.
  GRMBel const other = oracle.getBelByName("KPE_ML_A/B_C");
  EXPECT_EQ(oracle.getBelByName("KPE_ML_A_B/C"),
            KPEGRMDeviceUtils::getGRMBel(part, KPEGRMDeviceUtils::getHierName(part, other)));
  EXPECT_TRUE(KPEGRMDeviceUtils::getGRMBel(part, "").isBad());
}

TEST(KPEGRMDeviceUtilsTest, ShimCoordinatesComeFromTheOracleOrStayMinusOne) {
  std::unique_ptr<HDARPart> part = makeTestPart();
  GRMBel const m1 = part->getOracle().getBelByName("KPE_SHIM_X1Y0/M1");
  EXPECT_EQ(1, KPEGRMDeviceUtils::getShimColumn(*part, m1));
  EXPECT_EQ(5, KPEGRMDeviceUtils::getIndexOfChanInShim(*part, m1));
  GRMBel const control = part->getOracle().getBelByName("KPE_SHIM_X0Y0/CTRL");
  ASSERT_FALSE(control.isBad());
  EXPECT_EQ(-1, KPEGRMDeviceUtils::getShimColumn(*part, control));
  EXPECT_EQ(-1, KPEGRMDeviceUtils::getIndexOfChanInShim(*part, control));
  EXPECT_EQ(-1, KPEGRMDeviceUtils::getShimColumn(*part, GRMBel()));
  EXPECT_EQ(-1, KPEGRMDeviceUtils::getIndexOfChanInShim(*part, GRMBel()));
  EXPECT_EQ("", KPEGRMDeviceUtils::getHierName(*part, GRMBel()));

  // A site of another part is not this oracle's to answer.
  std::unique_ptr<HDARPart> other = makeTestPart();
  GRMKpeOracle::TQRegion region = GRMKpeOracle::TQ_REGION_NONE;
  GRMKpeOracle::TQShimBelType type = GRMKpeOracle::TQ_SHIM_BEL_NONE;
  int column = 7, channel = 8;
  EXPECT_FALSE(other->getOracle().getKpeOraclePtr()->getTQShimArrayCoords(m1, region, column, channel, type));
  EXPECT_EQ(7, column);
  EXPECT_EQ(8, channel);
}

TEST(HDARPartLoaderTest, TheDefaultDeviceHasItsShimRow) {
  std::istringstream in(DevHrdIP::HIPDeviceLoader::getDefaultDeviceText());
  std::unique_ptr<HDARPart> part = HDARPartLoader::readFromStream(in, "default");
  EXPECT_EQ("zorvex-demo", part->getName());
  ASSERT_EQ(4u, part->getShimRow().size());
  GRMBel const site = KPEGRMDeviceUtils::getGRMBel(*part, "KPE_SHIM_X3Y0_NOC_M0");
  EXPECT_EQ("KPE_SHIM_X3Y0/NOC_M0", site.getHierarchicalName1());
  EXPECT_EQ(3, KPEGRMDeviceUtils::getShimColumn(*part, site));
  EXPECT_EQ(5, KPEGRMDeviceUtils::getIndexOfChanInShim(*part, site));
  EXPECT_EQ(-1,
            KPEGRMDeviceUtils::getIndexOfChanInShim(*part, KPEGRMDeviceUtils::getGRMBel(*part, "KPE_SHIM_X3Y0_CTRL")));
}

TEST(HDARPartLoaderTest, ReportsWhatTheSchemaAndTheLoaderRefuse) {
  std::istringstream noRow(R"({"name": "bare"})");
  EXPECT_TRUE(HDARPartLoader::readFromStream(noRow, "bare.json")->getShimRow().empty());
  EXPECT_EQ("ERROR: [tarvo 8-101] Failed to parse JSON file 'dev.json': #/kpeShimRow/tiles/0/column",
            loadError(R"({"name": "d", "kpeShimRow": {"tiles": [{"name": "T", "column": 40000, "sites": []}]}})"));
  EXPECT_EQ("ERROR: [tarvo 8-101] Failed to parse JSON file 'dev.json': #/kpeShimRow/tiles/0/sites/0",
            loadError(R"({"name": "d", "kpeShimRow": {"tiles": [{"name": "T", "column": 0,
                         "sites": [{"name": "S", "column": 2}]}]}})"));
  EXPECT_EQ("ERROR: [tarvo 8-101] Failed to parse JSON file 'dev.json': the shim site 'T/S' is given twice",
            loadError(R"({"name": "d", "kpeShimRow": {"tiles": [{"name": "T", "column": 0, "sites": [{"name": "S"}]},
                         {"name": "T", "column": 1, "sites": [{"name": "S", "channel": 0}]}]}})"));
}

}  // namespace
