#include "zrsimprp/entries/DefinitionWriter.h"

#include <memory>
#include <utility>

#include "zrsimprp/control/SIMProperties.h"
#include "zrsimprp/entries/EntryOutput.h"
#include "zrsimprp/entries/EntryTable.h"
#include "zrsimprp/host/Conversions.h"
#include "zrsimprp/host/ErrorTrap.h"
#include "zrsimprp/modules/CModErrorHandling.h"
#include "zrsimprp/modules/CModGlobal.h"

namespace zrsimprp {
namespace {

constexpr int32_t kObjectNotSet = 91;

}  // namespace

std::string DefinitionWriter::Write() {
  std::string result;
  RunTrapped(
      [&] {
        const std::shared_ptr<ProjectSettings> settings = CModGlobal::ProjectSettings();
        if (!settings) {
          throw RuntimeError(kObjectNotSet, "SIM", "No project database has been given to the control");
        }
        const bool line_breaks =
            VariantToBoolean(settings->ReadSetting(1, 3, "Properties", "InsertCrLf", Variant(int32_t{-1})));
        EntryOutput out(line_breaks);
        for (const EntryRow& row : EntryTable::Rows()) row.write(control_, out);
        result = out.TakeText();
      },
      [&](const RuntimeError& error) {
        CModErrorHandling::ReportInternalError(platform_, "SIM", "WriteDefinition", error);
      });
  return result;
}

}  // namespace zrsimprp
