#include "projectdb/ProjectEngineDefaults.h"

#include "projectdb/ProjectSchema.h"
#include "projectdb/SourcedCall.h"
#include "projectdb/SqliteConnection.h"
#include "projectdb/SqliteStatement.h"
#include "zrsimprp/host/RuntimeError.h"

namespace zrsimprp {

Variant ProjectEngineDefaults::DefaultDefinition(const std::string& engine) {
  return SourcedCall("EngineDefaults", [&]() -> Variant {
    SqliteConnection::Reused row = project_->Connection().Reuse(
        std::string("SELECT definition FROM ") + ProjectSchema::kEngineDefaultsTable + " WHERE engine = ?1");
    row->Bind(1, engine);
    if (!row->Step()) {
      throw RuntimeError(error_number::kInvalidProcedureCall, "EngineDefaults",
                         "The project has no default definition for the engine '" + engine + "'.");
    }
    return row->RequireText(0, "the default definition for the engine '" + engine + "'");
  });
}

}  // namespace zrsimprp
