#include "CliFixture.h"

#include <unistd.h>

#include <fstream>
#include <sstream>

#include "zrsim/CommandLine.h"

void CliFixture::SetUp() {
  static int counter = 0;
  const auto* info = ::testing::UnitTest::GetInstance()->current_test_info();
  folder_ = std::filesystem::temp_directory_path() / ("zrsim-cli-" + std::to_string(::getpid()) + "-" +
                                                      std::to_string(++counter) + "-" + info->name());
  std::filesystem::remove_all(folder_);
  std::filesystem::create_directories(folder_);
}

void CliFixture::TearDown() {
  std::error_code ignored;
  std::filesystem::remove_all(folder_, ignored);
}

CliFixture::Result CliFixture::Run(const std::vector<std::string>& words, const std::string& standard_input) {
  std::istringstream in(standard_input);
  std::ostringstream out;
  std::ostringstream err;
  Result result;
  result.status = zrsim::CommandLine(in, out, err).Run(words);
  result.out = out.str();
  result.err = err.str();
  return result;
}

std::string CliFixture::SampleProject() {
  const std::string path = PathIn("sample.gpkg");
  if (!std::filesystem::exists(path)) {
    Result made = Run({"project", "sample", path});
    EXPECT_EQ(made.status, 0) << made.err;
  }
  return path;
}

void CliFixture::WriteFile(const std::string& path, const std::string& text) const {
  std::ofstream file(path, std::ios::binary);
  file << text;
}

std::string CliFixture::SampleDefinition() {
  Result normalized = Run({"normalize", "--project", SampleProject(), "--simulation", "Sample simulation"});
  EXPECT_EQ(normalized.status, 0) << normalized.err;
  return normalized.out;
}
