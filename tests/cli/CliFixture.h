#pragma once

#include <gtest/gtest.h>

#include <filesystem>
#include <string>
#include <vector>

// A fresh folder per test and a way to run one zrsim command in-process.
class CliFixture : public ::testing::Test {
 protected:
  struct Result {
    int status = -1;
    std::string out;
    std::string err;
  };

  void SetUp() override;
  void TearDown() override;

  Result Run(const std::vector<std::string>& words, const std::string& standard_input = "");
  // A copy of the sample project in the test's folder (written once per test by "project sample").
  std::string SampleProject();
  std::string PathIn(const std::string& name) const { return (folder_ / name).string(); }
  void WriteFile(const std::string& path, const std::string& text) const;
  std::string SampleDefinition();

 private:
  std::filesystem::path folder_;
};
