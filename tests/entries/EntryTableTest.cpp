#include <set>
#include <string>
#include <vector>

#include "control/ControlTestFixture.h"
#include "zrsimprp/entries/EntryKeys.h"
#include "zrsimprp/entries/EntryTable.h"

namespace zrsimprp {
namespace {

// The keys in the order the control has always written them.
const std::vector<std::string> kWriteOrder = {
    "Engine",  "Transects",  "StrataLayer",    "Reps",           "Density",           "Hotspot",
    "PopSize", "Clusters",   "CategoricalCov", "ContinuousCov",  "Detectability",     "DetFuncParam",
    "Analyse", "DataFilter", "ModelDef",       "ModelSelection", "ParallelProcessing"};

const std::string kStrata = "Transects=Survey /ObjectID=1;\r\nStrataLayer=Strata;\r\n";

class EntryTableRoundTrip : public ControlTest {
 protected:
  // Writes the control opened on `text`, reads that back into a fresh control and writes again; the
  // two writes must be the same bytes. Gives the first write.
  std::string RoundTrip(const std::string& text) {
    const std::string first = Open(text)->Definition();
    const std::string second = Open(first)->Definition();
    EXPECT_EQ(second, first) << "read from: " << text;
    EXPECT_TRUE(platform_.Messages().empty()) << AllMessages();
    for (const std::string& key : Keys(first)) written_keys_.insert(key);
    return first;
  }

  std::set<std::string> written_keys_;
};

TEST(EntryTable, RowsAreInTheWriteOrder) {
  std::vector<std::string> keys;
  for (const EntryRow& row : EntryTable::Rows()) keys.emplace_back(row.key);
  EXPECT_EQ(keys, kWriteOrder);
}

TEST(EntryTable, EveryRowCanBeWrittenCheckedAndDocumented) {
  for (const EntryRow& row : EntryTable::Rows()) {
    EXPECT_NE(row.fields, nullptr) << row.key;
    EXPECT_NE(row.write, nullptr) << row.key;
    EXPECT_FALSE(row.doc.empty()) << row.key;
    // Only "Engine" is passed over when read.
    EXPECT_EQ(row.read == nullptr, std::string(row.key) == entry_key::kEngine) << row.key;
  }
}

TEST(EntryTable, KeysAreFoundWithoutRegardToCase) {
  ASSERT_NE(EntryTable::Find("detfuncparam"), nullptr);
  EXPECT_STREQ(EntryTable::Find("detfuncparam")->key, "DetFuncParam");
  EXPECT_STREQ(EntryTable::Find("REPS")->key, "Reps");
  EXPECT_EQ(EntryTable::Find("Repetitions"), nullptr);
  EXPECT_EQ(EntryTable::Find(""), nullptr);
}

TEST_F(EntryTableRoundTrip, TheFullDefinitionIsWrittenInTableOrder) {
  const std::string text =
      RoundTrip(kStrata +
                "Reps=100;\r\nDensity=Uniform /Densities=1,2,3 /GridSpace=10;\r\n"
                "Hotspot=\"\" /X,Y,Sig,Amp=10,20,5,2;\r\n"
                "PopSize=\"Fixed N\" /Values=100,200,300;\r\n"
                "Clusters=True /Distribution=Poisson /param=3;\r\n"
                "CategoricalCov=sex /categories=m,f /prob=0.5,0.5;\r\n"
                "ContinuousCov=size /distribution=Normal /param=3,1;\r\n"
                "Detectability=\"Hazard Rate\" /ParamByStratum=True;\r\n"
                "DetFuncParam=\"\" /Scale=20,30,40;\r\nDetFuncParam=\"\" /Shape=2,3,4;\r\n"
                "Analyse=True;\r\nDataFilter=5;\r\nModelDef=7;\r\nModelSelection=AIC;\r\n"
                "ParallelProcessing=True /cores=3;\r\n");
  std::vector<std::string> order;
  for (const std::string& key : Keys(text)) {
    if (order.empty() || order.back() != key) order.push_back(key);
  }
  EXPECT_EQ(order, kWriteOrder);
}

TEST_F(EntryTableRoundTrip, EveryKeyRoundTrips) {
  // The densities.
  EXPECT_NE(RoundTrip(kStrata + "Density=Uniform /Densities=1,2,3 /GridSpace=10;")
                .find("Density=Uniform /Densities=1,2,3 /GridSpace=10;"),
            std::string::npos);
  EXPECT_NE(RoundTrip(kStrata + "Density=Simple /Formula=\"= -100 + x*1.02\" /GridSpace=10;")
                .find("Density=Simple /Formula=\"= -100 + x*1.02\" /GridSpace=10;"),
            std::string::npos);
  EXPECT_NE(RoundTrip(kStrata + "Hotspot=\"\" /X,Y,Sig,Amp=1,2,3,4;\r\nHotspot=\"\" /X,Y,Sig,Amp=5,6,7,8;")
                .find("Hotspot=\"\" /X,Y,Sig,Amp=1,2,3,4;\r\nHotspot=\"\" /X,Y,Sig,Amp=5,6,7,8;\r\n"),
            std::string::npos);
  // The population sizes and clusters.
  EXPECT_NE(RoundTrip(kStrata + "PopSize=\"Poisson N\";").find("PopSize=\"Poisson N\";"), std::string::npos);
  EXPECT_NE(RoundTrip(kStrata + "PopSize=\"Fixed D\" /Values=0.5,0.25,1;")
                .find("PopSize=\"Fixed D\" /Values=0.5,0.25,1;"),
            std::string::npos);
  EXPECT_NE(RoundTrip("Clusters=True /Distribution=pmf /size=1,2,3 /prob=0.5,0.3,0.2;")
                .find("Clusters=True /Distribution=pmf /size=1,2,3 /prob=0.5,0.3,0.2;"),
            std::string::npos);
  EXPECT_NE(RoundTrip("Clusters=True /Distribution=Negative-Binomial /param=2.5,0.5;")
                .find("Clusters=True /Distribution=Negative-Binomial /param=2.5,0.5;"),
            std::string::npos);
  EXPECT_NE(RoundTrip("Clusters=False;").find("Clusters=False;"), std::string::npos);
  // The covariates and the detection functions.
  EXPECT_NE(RoundTrip("CategoricalCov=sex /categories=m,f /prob=0.5,0.5;\r\n"
                      "ContinuousCov=size /distribution=Log-Normal /param=3,1;")
                .find("CategoricalCov=sex /categories=m,f /prob=0.5,0.5;\r\n"
                      "ContinuousCov=size /distribution=Log-Normal /param=3,1;"),
            std::string::npos);
  EXPECT_NE(
      RoundTrip("Detectability=\"Hazard Rate\" /ParamByStratum=False;\r\nDetFuncParam=\"\" /Scale=20;\r\n"
                "DetFuncParam=\"\" /Shape=4;")
          .find("Detectability=\"Hazard Rate\" /ParamByStratum=False;\r\nDetFuncParam=\"\" /Scale=20;\r\n"
                "DetFuncParam=\"\" /Shape=4;"),
      std::string::npos);
  EXPECT_NE(RoundTrip("Detectability=Half-Normal /ParamByStratum=False;\r\nDetFuncParam=\"\" /Scale=30;")
                .find("Detectability=Half-Normal /ParamByStratum=False;\r\nDetFuncParam=\"\" /Scale=30;\r\n"
                      "Analyse="),
            std::string::npos);
  // The analysis and the parallel run.
  EXPECT_NE(RoundTrip("Reps=7;\r\nAnalyse=True;\r\nDataFilter=5;\r\nModelDef=7;\r\nModelSelection=BIC;")
                .find("Reps=7;\r\n"),
            std::string::npos);
  EXPECT_NE(RoundTrip("Analyse=True;\r\nModelSelection=BIC;").find("ModelSelection=BIC;"), std::string::npos);
  EXPECT_EQ(RoundTrip("Analyse=False;").find("DataFilter="), std::string::npos);
  EXPECT_NE(RoundTrip("ParallelProcessing=True /cores=3;").find("ParallelProcessing=True /cores=3;"),
            std::string::npos);
  EXPECT_NE(
      RoundTrip("ParallelProcessing=False /cores=3;").find("ParallelProcessing=False /cores=\"max cores\";"),
      std::string::npos);

  std::set<std::string> every_key(kWriteOrder.begin(), kWriteOrder.end());
  EXPECT_EQ(written_keys_, every_key);
}

TEST_F(EntryTableRoundTrip, EveryKeyRoundTripsWithoutLineBreaks) {
  NoLineBreaks();
  const std::string text = RoundTrip(kStrata + "Hotspot=\"\" /X,Y,Sig,Amp=1,2,3,4;\r\nAnalyse=True;");
  EXPECT_EQ(text.find('\r'), std::string::npos);
  EXPECT_EQ(text.find('\n'), std::string::npos);
}

TEST_F(EntryTableRoundTrip, CovariateParameterRowsRoundTripOnceTheirRowsExist) {
  // The control opens on the Detectability tab, which makes the cluster size and covariate rows.
  database_->SetSetting("SIMProperties", "CurrentTab", Variant(int16_t{3}));
  const std::string text = RoundTrip(
      "Clusters=True /Distribution=Poisson /param=2;\r\nCategoricalCov=sex /categories=m,f /prob=0.5,0.5;");
  EXPECT_NE(text.find("DetFuncParam=\"\" /Scale=0;\r\nDetFuncParam=\"\" /\"cluster size\"=0;\r\n"),
            std::string::npos);
}

TEST_F(EntryTableRoundTrip, CovariateParameterRowsAreReadBeforeTheyExist) {
  database_->SetSetting("SIMProperties", "CurrentTab", Variant(int16_t{3}));
  auto control =
      Open("Clusters=True /Distribution=Poisson /param=2;\r\nDetFuncParam=\"\" /\"cluster size\"=0.5;\r\n");
  EXPECT_NE(control->Definition().find("DetFuncParam=\"\" /\"cluster size\"=0;"), std::string::npos);
}

TEST_F(EntryTableRoundTrip, DsmLayerAndFieldRoundTripThroughThePage) {
  std::string written[2];
  std::string text = "Density=DSM /Layer=L /Field=F;";
  for (std::string& out : written) {
    SIMProperties control(platform_);
    control.SetProjectDatabase(database_);
    control.pagDensity.cboLayer.AddItem("L");
    control.pagDensity.cboField.AddItem("F");
    control.SetDefinition(text);
    control.Initialize();
    control.pagDensity.cboLayer.SetListIndex(0);
    control.pagDensity.cboField.SetListIndex(0);
    text = out = control.Definition();
  }
  EXPECT_NE(written[0].find("Density=DSM /Layer=L /Field=F;"), std::string::npos);
  EXPECT_EQ(written[1], written[0]);
}

TEST_F(EntryTableRoundTrip, AnotherDensityDescriptionCarriesTheSlotsOfTheEntryBefore) {
  // Before Initialize no density option is on: the entry is written with the Transects field.
  SIMProperties control(platform_);
  control.SetProjectDatabase(database_);
  const std::string first = control.Definition();
  const DefinitionEntry density = EntryOf(first, "Density");
  ASSERT_EQ(density.field_count, 1);
  EXPECT_EQ(density.field_names[0], "ObjectID");
  // What a control reads back of it is written the same way again.
  const std::string second = Open(first)->Definition();
  EXPECT_EQ(Open(second)->Definition(), second);
}

}  // namespace
}  // namespace zrsimprp
