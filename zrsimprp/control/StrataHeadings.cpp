#include "zrsimprp/control/StrataHeadings.h"

#include <string_view>
#include <unordered_map>

#include "zrsimprp/host/ErrorTrap.h"
#include "zrsimprp/host/Layer.h"
#include "zrsimprp/host/LayerCatalogue.h"
#include "zrsimprp/host/ProjectDatabase.h"
#include "zrsimprp/host/Variant.h"

namespace zrsimprp {

std::string StrataHeadings::Heading::Tooltip() const {
  std::string tooltip = "stratum " + std::to_string(number) + " of " + std::to_string(count) + ", id " + id;
  if (!label.empty()) tooltip += ", " + label;
  return tooltip;
}

std::vector<StrataHeadings::Heading> StrataHeadings::Make(const std::vector<std::string>& ids,
                                                          const std::vector<std::string>& labels) {
  std::unordered_map<std::string_view, int> uses;
  uses.reserve(labels.size());
  for (size_t i = 0; i < ids.size(); ++i) {
    if (i < labels.size() && !labels[i].empty()) ++uses[labels[i]];
  }
  std::vector<Heading> headings(ids.size());
  const int count = static_cast<int>(ids.size());
  for (size_t i = 0; i < ids.size(); ++i) {
    Heading& heading = headings[i];
    heading.id = ids[i];
    heading.label = i < labels.size() ? labels[i] : std::string();
    heading.number = static_cast<int>(i) + 1;
    heading.count = count;
    if (heading.label.empty()) {
      heading.text = "id " + heading.id;
    } else if (uses.at(heading.label) > 1) {
      heading.text = heading.label + " (" + heading.id + ")";
    } else {
      heading.text = heading.label;
    }
  }
  return headings;
}

std::vector<StrataHeadings::Heading> StrataHeadings::ForLayer(
    const std::shared_ptr<ProjectDatabase>& database, const std::string& layer_name) {
  std::vector<Heading> headings;
  if (database == nullptr || layer_name.empty()) return headings;
  try {
    RunTrapped(
        [&] {
          auto catalogue = database->Companion();
          auto layer = catalogue != nullptr ? catalogue->LayerByName(layer_name) : nullptr;
          auto table = layer != nullptr ? layer->AttributeTable() : nullptr;
          auto id_field = table != nullptr ? table->IDField() : nullptr;
          if (id_field == nullptr) return;
          auto label_field = table->LabelField();
          std::string fields = id_field->Name();
          if (label_field != nullptr) fields += "," + label_field->Name();
          const auto rows = layer->GetRows(fields, 0, 1);
          if (!rows || rows->empty()) return;
          std::vector<std::string> ids;
          std::vector<std::string> labels;
          for (const Variant& id : (*rows)[0]) ids.push_back(VariantToText(id));
          if (rows->size() > 1) {
            for (const Variant& label : (*rows)[1]) labels.push_back(VariantToText(label));
          }
          headings = Make(ids, labels);
        },
        [&](const RuntimeError&) { headings.clear(); });
  } catch (...) {
    // A project that cannot say what its strata are called leaves the pages' own headings.
    headings.clear();
  }
  return headings;
}

}  // namespace zrsimprp
