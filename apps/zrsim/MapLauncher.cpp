#include "zrsim/MapLauncher.h"

#include <spawn.h>
#include <sys/wait.h>
#include <unistd.h>

#include <cerrno>
#include <cstring>
#include <filesystem>
#include <ostream>

#include "zrsim/ExitStatus.h"

extern char** environ;

namespace zrsim {

std::string MapLauncher::HelperPath() {
  std::error_code error;
  const std::filesystem::path self = std::filesystem::read_symlink("/proc/self/exe", error);
  if (error) return "zrsim-map";
  return (self.parent_path() / "zrsim-map").string();
}

int MapLauncher::Run(const std::vector<std::string>& words) {
  const std::string helper = HelperPath();
  if (::access(helper.c_str(), X_OK) != 0) {
    err_ << "zrsim map: the drawing program '" << helper
         << "' is not installed beside zrsim (it is built with the Qt view), so no map can be drawn\n";
    return kUsageOrFileError;
  }
  std::vector<std::string> arguments{helper};
  arguments.insert(arguments.end(), words.begin(), words.end());
  std::vector<char*> argv;
  for (std::string& argument : arguments) argv.push_back(argument.data());
  argv.push_back(nullptr);
  err_.flush();
  pid_t child = 0;
  const int spawned = ::posix_spawn(&child, helper.c_str(), nullptr, nullptr, argv.data(), environ);
  if (spawned != 0) {
    err_ << "zrsim map: '" << helper << "' could not be started: " << std::strerror(spawned) << "\n";
    return kUsageOrFileError;
  }
  int status = 0;
  while (::waitpid(child, &status, 0) < 0) {
    if (errno != EINTR) {
      err_ << "zrsim map: lost track of '" << helper << "': " << std::strerror(errno) << "\n";
      return kUsageOrFileError;
    }
  }
  if (WIFEXITED(status)) return WEXITSTATUS(status);
  err_ << "zrsim map: '" << helper << "' stopped without finishing (signal " << WTERMSIG(status) << ")\n";
  return kUsageOrFileError;
}

}  // namespace zrsim
