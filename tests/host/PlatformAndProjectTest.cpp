#include <gtest/gtest.h>

#include <memory>
#include <string>
#include <vector>

#include "zrsimprp/host/ErrorTrap.h"
#include "zrsimprp/host/HeadlessPlatform.h"
#include "zrsimprp/host/MemoryProjectDatabase.h"
#include "zrsimprp/host/ReserveGrowing.h"
#include "zrsimprp/host/Variant.h"

namespace zrsimprp {
namespace {

TEST(HeadlessPlatform, RecordsMessagesBeepsAndPointerResets) {
  HeadlessPlatform platform;
  EXPECT_TRUE(platform.UserMode());
  platform.MessageBox("text", "title", MessageIcon::Exclamation);
  platform.Beep();
  platform.ResetMousePointer();
  ASSERT_EQ(platform.Messages().size(), 1u);
  EXPECT_EQ(platform.Messages()[0].title, "title");
  EXPECT_EQ(platform.Messages()[0].icon, MessageIcon::Exclamation);
  EXPECT_EQ(platform.Beeps(), 1);
  EXPECT_EQ(platform.MousePointerResets(), 1);
  EXPECT_EQ(platform.ComponentName(), "ZrSIMPrp");
  platform.ClearMessages();
  EXPECT_TRUE(platform.Messages().empty());
  platform.SetUserMode(false);
  EXPECT_FALSE(platform.UserMode());
}

TEST(HeadlessPlatform, SystemColoursAreDistinctRoles) {
  HeadlessPlatform platform;
  EXPECT_NE(platform.SystemColor(SystemColorRole::kWindowBackground),
            platform.SystemColor(SystemColorRole::kButtonFace));
  EXPECT_NE(platform.SystemColor(SystemColorRole::kButtonFace), Color::Rgb(240, 240, 240));
}

TEST(Variant, TextAndBooleanHelpers) {
  EXPECT_EQ(VariantToText(Variant()), "");
  EXPECT_EQ(VariantToText(Variant(true)), "True");
  EXPECT_EQ(VariantToText(Variant(int16_t{-3})), "-3");
  EXPECT_EQ(VariantToText(Variant(int32_t{12})), "12");
  EXPECT_EQ(VariantToText(Variant(2.5)), "2.5");
  EXPECT_EQ(VariantToText(Variant(std::string("x"))), "x");
  EXPECT_FALSE(VariantToBoolean(Variant()));
  EXPECT_TRUE(VariantToBoolean(Variant(int32_t{-1})));
  EXPECT_TRUE(VariantToBoolean(Variant(std::string("true"))));
  EXPECT_EQ(VariantToInt16(Variant(std::string("4"))), 4);
  EXPECT_THROW(VariantToBoolean(Variant(std::string("maybe"))), RuntimeError);
}

TEST(ErrorTrap, TurnsAnyStandardExceptionIntoError51) {
  RuntimeError seen(0, "", "");
  const bool finished = RunTrapped([] { throw std::out_of_range("vector index"); },
                                   [&](const RuntimeError& error) { seen = error; });
  EXPECT_FALSE(finished);
  EXPECT_EQ(seen.number, 51);
  EXPECT_EQ(seen.description, "vector index");
  EXPECT_TRUE(RunTrapped([] {}, [](const RuntimeError&) {}));
}

std::shared_ptr<MemoryProjectDatabase> SmallProject() {
  auto db = std::make_shared<MemoryProjectDatabase>();
  db->AddDesign(1, "Lines", "STRATUM LAYER=Strata;");
  db->AddSurvey(10, "Survey A", 1, 1);
  db->AddSurvey(11, "Survey B", 2, 1, 1);
  db->AddLayer({"Region", 1, "", "ID", "", {Variant(int32_t{1})}, {}});
  db->AddLayer({"Strata",
                2,
                "Region",
                "ID",
                "Label",
                {Variant(int32_t{1}), Variant(int32_t{2})},
                {Variant(std::string("North")), Variant(std::string("South"))}});
  db->AddDataFilter(3, "Default");
  db->AddModelDefinition(4, "HN", "MRDS", "Method=ds;");
  db->SetDefaultDefinition("SIM", Variant(std::string("Engine=SIM;")));
  return db;
}

TEST(MemoryProjectDatabase, ServesRecordsInGroups) {
  auto db = SmallProject();
  ASSERT_EQ(db->DesignGroups().size(), 1u);
  EXPECT_EQ(db->DesignGroups()[0]->Records()[0]->DefinitionText(), "STRATUM LAYER=Strata;");
  ASSERT_EQ(db->SurveyGroups().size(), 2u);
  EXPECT_EQ(db->SurveyGroups()[1]->Records()[0]->Status(), 2);
  int32_t a = 0, b = 0;
  std::string s;
  db->DataFilters()[0]->ItemValues(a, b, s);
  EXPECT_EQ(a, 3);
  EXPECT_EQ(b, 3);
  EXPECT_EQ(s, "Default");
  EXPECT_EQ(db->ModelDefinitions()[0]->EngineName(), "MRDS");
  EXPECT_EQ(VariantToText(db->EngineDefaults()->DefaultDefinition("sim")), "Engine=SIM;");
}

TEST(MemoryProjectDatabase, ServesLayersRowsAndParents) {
  auto db = SmallProject();
  auto strata = db->Companion()->LayerByName("strata");
  EXPECT_EQ(strata->Kind(), 2);
  EXPECT_EQ(strata->Parent("")->Name(), "Region");
  EXPECT_EQ(strata->AttributeTable()->LabelField()->Name(), "Label");
  auto rows = strata->GetRows("ID,Label", 0, 1);
  ASSERT_TRUE(rows.has_value());
  EXPECT_EQ(VariantToText((*rows)[1][1]), "South");
  EXPECT_NE(strata->FeatureByID(Variant(int32_t{2})), nullptr);
  EXPECT_THROW(strata->FeatureByID(Variant(int32_t{9})), RuntimeError);
  auto region = db->Companion()->LayerByName("Region");
  EXPECT_EQ(region->AttributeTable()->LabelField(), nullptr);
  EXPECT_THROW(region->Parent(""), RuntimeError);
  EXPECT_THROW(db->Companion()->LayerByName("Nowhere"), RuntimeError);
  EXPECT_EQ(db->Calls("GetRows"), 1);
}

TEST(ReserveGrowing, RoomAskedForGroupByGroupAtLeastDoublesAndNeverShrinks) {
  std::vector<int> items;
  ReserveGrowing(items, 10);
  const size_t first = items.capacity();
  EXPECT_GE(first, 10u);
  ReserveGrowing(items, first + 1);  // one more group
  EXPECT_GE(items.capacity(), 2 * first);
  const size_t grown = items.capacity();
  ReserveGrowing(items, 1);
  EXPECT_EQ(items.capacity(), grown);
  ReserveGrowing(items, 3 * grown);  // a group larger than the list so far
  EXPECT_GE(items.capacity(), 3 * grown);
}

// A layer of `count` features numbered from 101, for the lookups below.
std::shared_ptr<Layer> NumberedLayer(MemoryProjectDatabase& db, int32_t count) {
  MemoryProjectDatabase::LayerData layer;
  layer.name = "Cells";
  layer.kind = 1;
  for (int32_t id = 101; id < 101 + count; ++id) layer.ids.emplace_back(id);
  db.AddLayer(layer);
  return db.Companion()->LayerByName("Cells");
}

TEST(MemoryProjectDatabase, FeatureByIDFindsEveryFeatureInRowOrderAgainAndAgain) {
  auto db = std::make_shared<MemoryProjectDatabase>();
  auto cells = NumberedLayer(*db, 50);
  for (int walk = 0; walk < 2; ++walk) {
    for (int32_t id = 101; id <= 150; ++id) EXPECT_NE(cells->FeatureByID(Variant(id)), nullptr) << id;
  }
  EXPECT_EQ(db->Calls("FeatureByID"), 100);
}

TEST(MemoryProjectDatabase, FeatureByIDFindsFeaturesOutOfOrderAndByTheTextOfTheIdentifier) {
  auto db = std::make_shared<MemoryProjectDatabase>();
  auto cells = NumberedLayer(*db, 50);
  for (int32_t id : {150, 101, 125, 125, 126, 102}) EXPECT_NE(cells->FeatureByID(Variant(id)), nullptr) << id;
  // Identifiers are compared as text, whatever type the caller holds them in.
  EXPECT_NE(cells->FeatureByID(Variant(std::string("130"))), nullptr);
  EXPECT_NE(cells->FeatureByID(Variant(131.0)), nullptr);
  EXPECT_NE(cells->FeatureByID(Variant(int16_t{132})), nullptr);
}

TEST(MemoryProjectDatabase, FeatureByIDOfAnUnknownIdentifierNamesLayerAndIdentifier) {
  auto db = std::make_shared<MemoryProjectDatabase>();
  auto cells = NumberedLayer(*db, 3);
  EXPECT_NE(cells->FeatureByID(Variant(int32_t{101})), nullptr);
  try {
    cells->FeatureByID(Variant(int32_t{104}));
    FAIL() << "an unknown identifier was found";
  } catch (const RuntimeError& error) {
    EXPECT_EQ(error.number, error_number::kInvalidProcedureCall);
    EXPECT_EQ(error.source, "Layer");
    EXPECT_EQ(error.description, "The layer 'Cells' has no feature with identifier 104");
  }
  // The failed lookup leaves the layer usable in row order.
  EXPECT_NE(cells->FeatureByID(Variant(int32_t{102})), nullptr);
  EXPECT_NE(cells->FeatureByID(Variant(int32_t{103})), nullptr);
}

TEST(MemoryProjectDatabase, SettingsKeepValuesAndRecordWrites) {
  auto db = SmallProject();
  auto settings = db->Settings();
  EXPECT_EQ(VariantToText(settings->ReadSetting(0, 2, "SIMProperties", "CurrentTab", Variant(int16_t{0}))),
            "0");
  settings->WriteSetting(0, 2, "SIMProperties", "CurrentTab", Variant(int16_t{4}));
  EXPECT_EQ(VariantToText(settings->ReadSetting(0, 2, "simproperties", "currenttab", Variant())), "4");
  ASSERT_EQ(db->SettingWrites().size(), 1u);
  EXPECT_EQ(db->SettingWrites()[0].b, 2);
}

TEST(MemoryProjectDatabase, InjectedFailuresRaiseWithTheInterfaceAsSource) {
  auto db = SmallProject();
  db->FailOn("DesignGroups");
  try {
    db->DesignGroups();
    FAIL();
  } catch (const RuntimeError& error) {
    EXPECT_EQ(error.source, "ProjectDatabase");
  }
  db->ClearFailures();
  EXPECT_NO_THROW(db->DesignGroups());
}

}  // namespace
}  // namespace zrsimprp
