#include "zrsimprp/modules/CModGlobal.h"

namespace zrsimprp {
namespace {

struct Globals {
  std::shared_ptr<zrsimprp::ProjectDatabase> database;
  std::shared_ptr<zrsimprp::ProjectSettings> settings;
  std::shared_ptr<LayerCatalogue> companion;
};

Globals& TheGlobals() {
  static Globals globals;
  return globals;
}

struct ForbiddenGroup {
  const char* characters;
  const char* message;
};

// Checked in this order; the first group found decides the message.
constexpr ForbiddenGroup kForbiddenGroups[] = {
    {" ", "Spaces are not allowed in covariate or covariate value names."},
    {";", "Semicolons are not allowed in covariate or covariate value names."},
    {":", "Colons are not allowed in covariate or covariate value names."},
    {"/*+-=<>^", "Mathematical symbols are not allowed in covariate or covariate factor names."},
    {"@,'?!&~|", "Symbols other than '.' or '_' are not allowed in covariate or covariate factor names."},
};

}  // namespace

void CModGlobal::SetProjectDatabase(std::shared_ptr<zrsimprp::ProjectDatabase> database) {
  Globals fresh;
  fresh.database = std::move(database);
  if (fresh.database) {
    fresh.settings = fresh.database->Settings();
    fresh.companion = fresh.database->Companion();
  }
  TheGlobals() = std::move(fresh);
}

std::shared_ptr<zrsimprp::ProjectDatabase> CModGlobal::ProjectDatabase() { return TheGlobals().database; }
std::shared_ptr<zrsimprp::ProjectSettings> CModGlobal::ProjectSettings() { return TheGlobals().settings; }
std::shared_ptr<LayerCatalogue> CModGlobal::ProjectCompanion() { return TheGlobals().companion; }

void CModGlobal::Clear() { TheGlobals() = Globals(); }

bool CModGlobal::CheckCovariateName(const std::string& name, std::string& message) {
  for (const ForbiddenGroup& group : kForbiddenGroups) {
    if (name.find_first_of(group.characters) != std::string::npos) {
      message = std::string(group.message) + "  Please change the values you have provided.";
      return false;
    }
  }
  return true;
}

}  // namespace zrsimprp
