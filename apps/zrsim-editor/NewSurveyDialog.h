#pragma once

#include <QDialog>
#include <cstdint>
#include <string>
#include <utility>
#include <vector>

class QCheckBox;
class QComboBox;
class QLineEdit;
class QSpinBox;

namespace zrsim_editor {

// Project > New survey…: identifier, name, design and whether its transects have been generated
// (status 1, the only surveys offered to a simulation). Added by GeoPackageProject::AddSurvey, as
// `zrsim project add-survey` does.
class NewSurveyDialog : public QDialog {
  Q_OBJECT

 public:
  // `designs`: identifier and name of each design of the project.
  NewSurveyDialog(const std::vector<std::pair<int32_t, std::string>>& designs, int32_t next_id,
                  QWidget* parent = nullptr);

  int32_t Id() const;
  std::string Name() const;
  int32_t DesignId() const;
  int32_t Status() const;

  QSpinBox* IdBox() const { return id_; }
  QLineEdit* NameEdit() const { return name_; }
  QComboBox* DesignBox() const { return design_; }
  QCheckBox* GeneratedBox() const { return generated_; }

 private:
  QSpinBox* id_ = nullptr;
  QLineEdit* name_ = nullptr;
  QComboBox* design_ = nullptr;
  QCheckBox* generated_ = nullptr;
};

}  // namespace zrsim_editor
