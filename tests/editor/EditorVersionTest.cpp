#include <gtest/gtest.h>

#include "zrsim-editor/EditorArguments.h"

namespace {

using zrsim_editor::EditorArguments;

TEST(EditorArguments, VersionIsRecognisedBeforeAnyOtherOption) {
  EXPECT_TRUE(EditorArguments::Parse({"--version"}).version);
  EXPECT_TRUE(EditorArguments::Parse({"--project", "p.gpkg", "--version"}).version);
  EXPECT_FALSE(EditorArguments::Parse({"--project", "p.gpkg"}).version);
  EXPECT_NE(EditorArguments::Usage().find("--version"), std::string::npos);
}

}  // namespace
