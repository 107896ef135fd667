#include "projectdb/GeoBackend.h"

#include <dlfcn.h>

#include <cstdlib>
#include <filesystem>
#include <mutex>

#include "projectdb/ProjectChecks.h"

namespace zrsimprp {

namespace {

// Where the module may be: beside an installed program (relative to its folder, so an unpacked
// package works anywhere), where the build made it, and where it is installed.
std::vector<std::string> Candidates() {
  if (const char* given = std::getenv(GeoBackend::kModuleVariable); given != nullptr && *given != '\0') {
    return {given};
  }
  std::vector<std::string> paths;
  std::error_code error;
  const std::filesystem::path program = std::filesystem::read_symlink("/proc/self/exe", error);
  if (!error) {
    paths.push_back((program.parent_path().parent_path() / ZRSIMPRP_GDAL_MODULE_RELATIVE).string());
  }
  paths.emplace_back(ZRSIMPRP_GDAL_MODULE_BUILT);
  paths.emplace_back(ZRSIMPRP_GDAL_MODULE_INSTALLED);
  return paths;
}

}  // namespace

GeoBackend& GeoBackend::Loaded() {
  static std::mutex mutex;
  static GeoBackend* backend = nullptr;
  const std::lock_guard<std::mutex> lock(mutex);
  if (backend != nullptr) return *backend;
  std::string failure;
  for (const std::string& path : Candidates()) {
    std::error_code error;
    if (!std::filesystem::exists(path, error)) continue;
    // Never closed: GDAL keeps state of its own until the process ends.
    void* module = dlopen(path.c_str(), RTLD_NOW | RTLD_LOCAL);
    if (module == nullptr) {
      const char* why = dlerror();
      failure = " (" + std::string(why != nullptr ? why : path) + ")";
      continue;
    }
    using Entry = GeoBackend* (*)();
    auto entry = reinterpret_cast<Entry>(dlsym(module, kEntryPoint));
    if (entry == nullptr) {
      failure = " (" + path + " is not that module)";
      continue;
    }
    backend = entry();
    return *backend;
  }
  ProjectChecks::Refuse(
      "Reading GIS files needs the GDAL module libzrsimprp_gdal.so, which could not be loaded" +
      (failure.empty() ? std::string(": it is not installed") : failure) + ".");
}

}  // namespace zrsimprp
