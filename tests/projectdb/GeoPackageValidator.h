#pragma once

#include <sys/wait.h>

#include <array>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <string>

// GDAL's GeoPackage checks run as separate programs: the validator of python3-gdal
// (osgeo_utils.samples.validate_gpkg -k) and ogrinfo. Both are optional on a build machine; a test
// skips itself, with a message, when one is missing.
namespace geopackage_validator {

struct Outcome {
  int status = -1;
  std::string output;  // standard output and error together
};

inline Outcome RunShell(const std::string& command) {
  Outcome outcome;
  FILE* pipe = ::popen((command + " 2>&1").c_str(), "r");
  if (pipe == nullptr) return outcome;
  std::array<char, 4096> buffer{};
  size_t read = 0;
  while ((read = std::fread(buffer.data(), 1, buffer.size(), pipe)) > 0)
    outcome.output.append(buffer.data(), read);
  const int status = ::pclose(pipe);
  outcome.status = WIFEXITED(status) ? WEXITSTATUS(status) : -1;
  return outcome;
}

inline std::string ShellQuote(const std::string& text) {
  std::string quoted = "'";
  for (const char c : text) quoted += c == '\'' ? std::string("'\\''") : std::string(1, c);
  return quoted + "'";
}

// The command that runs the validator on a file name appended to it, or "" when there is none.
inline const std::string& ValidatorCommand() {
  static const std::string command = [] {
    for (const char* python : {"/usr/bin/python3", "python3"}) {
      const std::string probe = std::string(python) + " -c 'import osgeo_utils.samples.validate_gpkg'";
      if (RunShell(probe).status == 0)
        return std::string(python) + " -m osgeo_utils.samples.validate_gpkg -k ";
    }
    const char* script = "/usr/share/doc/python3-gdal/examples/validate_gpkg.py";
    if (std::filesystem::exists(script) && RunShell("/usr/bin/python3 -c 'import osgeo'").status == 0) {
      return std::string("/usr/bin/python3 ") + script + " -k ";
    }
    return std::string();
  }();
  return command;
}

inline bool HasOgrinfo() {
  static const bool found = RunShell("ogrinfo --version").status == 0;
  return found;
}

inline bool HasOgr2ogr() {
  static const bool found = RunShell("ogr2ogr --version").status == 0;
  return found;
}

inline Outcome Validate(const std::string& path) { return RunShell(ValidatorCommand() + ShellQuote(path)); }

// ogrinfo's summary of every table, read-only; any "Warning" or "ERROR" in the output is a failure.
inline Outcome OgrInfo(const std::string& path) {
  return RunShell("ogrinfo -ro -al -so " + ShellQuote(path));
}

inline bool Warns(const Outcome& outcome) {
  return outcome.output.find("Warning") != std::string::npos ||
         outcome.output.find("ERROR") != std::string::npos;
}

}  // namespace geopackage_validator

// Checks `path` with both tools, skipping the test when either is missing.
#define EXPECT_VALID_GEOPACKAGE(path)                                                                       \
  do {                                                                                                      \
    if (geopackage_validator::ValidatorCommand().empty() || !geopackage_validator::HasOgrinfo()) {          \
      GTEST_SKIP() << "GDAL's GeoPackage validator (python3-gdal) or ogrinfo (gdal-bin) is not installed; " \
                      "scripts/install-deps.sh installs them";                                              \
    }                                                                                                       \
    const geopackage_validator::Outcome validated = geopackage_validator::Validate(path);                   \
    EXPECT_EQ(validated.status, 0) << validated.output;                                                     \
    EXPECT_EQ(validated.output, "") << validated.output;                                                    \
    const geopackage_validator::Outcome listed = geopackage_validator::OgrInfo(path);                       \
    EXPECT_EQ(listed.status, 0) << listed.output;                                                           \
    EXPECT_FALSE(geopackage_validator::Warns(listed)) << listed.output;                                     \
  } while (false)
