#pragma once

#include <QDialog>
#include <string>
#include <vector>

#include "projectdb/LayerImportOptions.h"

class QComboBox;
class QLabel;
class QLineEdit;
class QRadioButton;

namespace zrsim_editor {

// Project > Import layer…: a vector file, one of its layers, the identifier and label fields, the
// kind, the parent (or a region made from the layer) and whether to reproject. It only gathers the
// answers; the import itself, with its checks and refusals, is GeoPackageProject::ImportLayer, as
// for `zrsim project import-layer`.
class ImportLayerDialog : public QDialog {
  Q_OBJECT

 public:
  ImportLayerDialog(const std::vector<std::string>& project_layers, QWidget* parent = nullptr);

  // Reads the file's layers (and the first layer's fields); a file GDAL cannot read is said under
  // the form.
  void SetSource(const QString& path);

  zrsimprp::LayerImportOptions Options() const;

  QLineEdit* FileEdit() const { return file_; }
  QComboBox* LayerBox() const { return layer_; }
  QComboBox* IdFieldBox() const { return id_field_; }
  QComboBox* LabelFieldBox() const { return label_field_; }
  QLineEdit* NameEdit() const { return name_; }
  QComboBox* KindBox() const { return kind_; }
  QComboBox* ParentBox() const { return parent_; }
  QRadioButton* MakeRegionButton() const { return make_region_; }
  QLineEdit* RegionEdit() const { return region_; }
  QComboBox* ReprojectBox() const { return reproject_; }
  QLineEdit* EpsgEdit() const { return epsg_; }
  QLabel* Problem() const { return problem_; }

 private:
  void Browse();
  void FillFields();

  QLineEdit* file_ = nullptr;
  QComboBox* layer_ = nullptr;
  QComboBox* id_field_ = nullptr;
  QComboBox* label_field_ = nullptr;
  QLineEdit* name_ = nullptr;
  QComboBox* kind_ = nullptr;
  QRadioButton* use_parent_ = nullptr;
  QComboBox* parent_ = nullptr;
  QRadioButton* make_region_ = nullptr;
  QLineEdit* region_ = nullptr;
  QComboBox* reproject_ = nullptr;
  QLineEdit* epsg_ = nullptr;
  QLabel* problem_ = nullptr;
};

}  // namespace zrsim_editor
