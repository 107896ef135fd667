#pragma once

#include <gtest/gtest.h>

#include <memory>
#include <string>
#include <utility>

#include "support/ErrorNumberOf.h"
#include "zrsimprp/host/HeadlessPlatform.h"
#include "zrsimprp/host/MemoryProjectDatabase.h"
#include "zrsimprp/host/RuntimeError.h"
#include "zrsimprp/modules/CModGlobal.h"
#include "zrsimprp/pages/CPagAnalyses/CPagAnalyses.h"

namespace zrsimprp {

// The page on a project that the test fills; the globals are cleared around every test.
class AnalysesPageTest : public ::testing::Test {
 protected:
  AnalysesPageTest() { CModGlobal::Clear(); }
  ~AnalysesPageTest() override { CModGlobal::Clear(); }

  void AddStandardProject() {
    db_->AddDataFilter(3, "All data");
    db_->AddDataFilter(4, "Truncated");
    db_->AddModelDefinition(21, "Half-normal", "MRDS", "Method=ds;");
    db_->AddModelDefinition(22, "Independent observers", "MRDS", "Method=io;");
    db_->AddModelDefinition(23, "Smooth surface", "DSM", "Method=ds;");
    db_->AddModelDefinition(24, "Averaged", "MA", "");
  }

  void UseProject() { CModGlobal::SetProjectDatabase(db_); }

  void InitializeStandard() {
    AddStandardProject();
    UseProject();
    page_.Initialize();
  }

  // The standard project seen through another project (one that wraps db_); the one report.
  std::string ReportOfInitializeOn(std::shared_ptr<ProjectDatabase> project) {
    AddStandardProject();
    CModGlobal::SetProjectDatabase(std::move(project));
    page_.Initialize();
    return OnlyReport();
  }

  std::string OnlyReport() {
    if (platform_.Messages().size() != 1)
      return "<" + std::to_string(platform_.Messages().size()) + " reports>";
    EXPECT_EQ(platform_.Messages()[0].title, "Pellunar Internal Error");
    EXPECT_EQ(platform_.Messages()[0].icon, MessageIcon::Critical);
    return platform_.Messages()[0].text;
  }

  HeadlessPlatform platform_;
  std::shared_ptr<MemoryProjectDatabase> db_ = std::make_shared<MemoryProjectDatabase>();
  CPagAnalyses page_{platform_};
};

}  // namespace zrsimprp
