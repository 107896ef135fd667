#pragma once

#include <QDialog>
#include <cstdint>
#include <string>
#include <vector>

class QComboBox;
class QLineEdit;
class QSpinBox;

namespace zrsim_editor {

// Project > New design…: identifier, name, strata layer, layout, spacing and truncation. The text is
// written by DesignDefinition and added by GeoPackageProject::AddDesign, as `zrsim project add-design`
// does.
class NewDesignDialog : public QDialog {
  Q_OBJECT

 public:
  NewDesignDialog(const std::vector<std::string>& layers, int32_t next_id, QWidget* parent = nullptr);

  int32_t Id() const;
  std::string Name() const;
  std::string StratumLayer() const;
  // The design's definition text; RuntimeError naming a distance that is not one.
  std::string DefinitionText() const;

  QSpinBox* IdBox() const { return id_; }
  QLineEdit* NameEdit() const { return name_; }
  QComboBox* LayerBox() const { return layer_; }
  QComboBox* TypeBox() const { return type_; }
  QLineEdit* SpacingEdit() const { return spacing_; }
  QLineEdit* TruncationEdit() const { return truncation_; }

 private:
  QSpinBox* id_ = nullptr;
  QLineEdit* name_ = nullptr;
  QComboBox* layer_ = nullptr;
  QComboBox* type_ = nullptr;
  QLineEdit* spacing_ = nullptr;
  QLineEdit* truncation_ = nullptr;
};

}  // namespace zrsim_editor
