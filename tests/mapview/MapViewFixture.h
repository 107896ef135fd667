#pragma once

#include <gtest/gtest.h>
#include <unistd.h>

#include <filesystem>
#include <string>

#include "projectdb/SampleProject.h"

namespace zrsimprp::map_view_test {

// A folder of its own for each test, with the sample project written into it.
class TempProject : public ::testing::Test {
 protected:
  void SetUp() override {
    folder_ = std::filesystem::temp_directory_path() /
              ("zrsim-mapview-" + std::to_string(::getpid()) + "-" +
               ::testing::UnitTest::GetInstance()->current_test_info()->name());
    std::filesystem::remove_all(folder_);
    std::filesystem::create_directories(folder_);
    SampleProject::Create(Sample());
  }
  void TearDown() override { std::filesystem::remove_all(folder_); }

  std::string File(const std::string& name) const { return (folder_ / name).string(); }
  std::string Sample() const { return File("sample.gpkg"); }

  std::filesystem::path folder_;
};

}  // namespace zrsimprp::map_view_test
