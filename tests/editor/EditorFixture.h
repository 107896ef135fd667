#pragma once

#include <gtest/gtest.h>

#include <filesystem>
#include <string>
#include <vector>

// A copy of the sample project in a fresh folder per test.
class EditorFixture : public ::testing::Test {
 protected:
  struct Shown {
    std::string text;
    std::string title;
  };

  void SetUp() override;
  void TearDown() override;

  std::string Folder() const { return folder_.string(); }
  const std::string& Sample() const { return sample_; }
  // The definition stored in the project file now, read afresh.
  std::string StoredDefinition(const std::string& simulation = "Sample simulation") const;

  std::vector<Shown> shown_;

 private:
  std::filesystem::path folder_;
  std::string sample_;
};
