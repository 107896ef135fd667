#include "projectdb/ProjectLayer.h"

#include "projectdb/ProjectAttributeTable.h"
#include "projectdb/ProjectFeature.h"
#include "projectdb/SourcedCall.h"
#include "projectdb/SqliteConnection.h"
#include "zrsimprp/host/Conversions.h"
#include "zrsimprp/host/RuntimeError.h"

namespace zrsimprp {

namespace {

[[noreturn]] void LayerError(const std::string& description) {
  throw RuntimeError(error_number::kInvalidProcedureCall, "SQLite", description);
}

}  // namespace

std::shared_ptr<ProjectLayer> ProjectLayer::Load(const std::shared_ptr<GeoPackageProject>& project,
                                                 const std::string& name) {
  return std::shared_ptr<ProjectLayer>(new ProjectLayer(project, project->LayerSnapshot(name)));
}

std::shared_ptr<Layer> ProjectLayer::Parent(const std::string&) {
  return SourcedCall("Layer", [&]() -> std::shared_ptr<Layer> {
    if (Info().parent.empty()) LayerError("The layer '" + Info().name + "' has no parent layer.");
    return Load(project_, Info().parent);
  });
}

std::string ProjectLayer::IdColumn() const {
  return Info().id_field.empty() ? Table().PrimaryKey() : ColumnFor(Info().id_field);
}

std::string ProjectLayer::ColumnFor(const std::string& field) const {
  const FeatureTableInfo::Column* column = Table().Find(field);
  return column ? column->name : std::string();
}

std::shared_ptr<zrsimprp::AttributeTable> ProjectLayer::AttributeTable() {
  ProjectAttributeTable::FieldChoice id{Info().id_field.empty() ? Table().PrimaryKey() : Info().id_field,
                                        IdColumn()};
  if (id.named.empty()) id.named = "(none)";
  ProjectAttributeTable::FieldChoice label{Info().label_field, ColumnFor(Info().label_field)};
  return std::make_shared<ProjectAttributeTable>(Info().name, Table().Name(), id, label);
}

std::optional<std::vector<std::vector<Variant>>> ProjectLayer::GetRows(const std::string& fields, int32_t,
                                                                       int32_t) {
  return SourcedCall("Layer", [&]() -> std::optional<std::vector<std::vector<Variant>>> {
    std::vector<std::string> columns;
    for (const std::string& piece : Split(fields, ',')) {
      const std::string field(TrimBlanks(piece));
      const std::string column = ColumnFor(field);
      if (column.empty()) {
        LayerError("The layer '" + Info().name + "' has no field '" + field + "' in its table '" +
                   Table().Name() + "'.");
      }
      columns.push_back(column);
    }
    if (columns.empty()) LayerError("No fields of the layer '" + Info().name + "' were asked for.");
    const ProjectLayerSnapshot::Rows& rows = snapshot_->Values(project_->Connection(), columns);
    if (rows.front().empty()) return std::nullopt;
    return rows;
  });
}

std::shared_ptr<Feature> ProjectLayer::FeatureByID(const Variant& id) {
  return SourcedCall("Layer", [&]() -> std::shared_ptr<Feature> {
    const std::string column = IdColumn();
    if (column.empty()) {
      LayerError("The layer '" + Info().name + "' has no identifier field in its table '" + Table().Name() +
                 "'.");
    }
    if (IsNull(id)) NoSuchFeature(id);
    const std::optional<int64_t> row = snapshot_->RowOf(project_->Connection(), column, VariantToText(id));
    if (!row) NoSuchFeature(id);
    return std::make_shared<ProjectFeature>(*row, id);
  });
}

void ProjectLayer::NoSuchFeature(const Variant& id) const {
  LayerError("The layer '" + Info().name + "' has no feature with the identifier '" + VariantToText(id) +
             "'.");
}

}  // namespace zrsimprp
