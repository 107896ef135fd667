#include "zrsim-editor/NewSurveyDialog.h"

#include <QCheckBox>
#include <QComboBox>
#include <QDialogButtonBox>
#include <QFormLayout>
#include <QLineEdit>
#include <QSpinBox>
#include <limits>

namespace zrsim_editor {

NewSurveyDialog::NewSurveyDialog(const std::vector<std::pair<int32_t, std::string>>& designs, int32_t next_id,
                                 QWidget* parent)
    : QDialog(parent) {
  setWindowTitle(tr("New survey"));
  id_ = new QSpinBox(this);
  id_->setRange(1, std::numeric_limits<int>::max());
  id_->setValue(next_id);
  name_ = new QLineEdit(this);
  design_ = new QComboBox(this);
  for (const auto& [id, name] : designs) {
    design_->addItem(QString::number(id) + QStringLiteral(" ") + QString::fromStdString(name), id);
  }
  generated_ = new QCheckBox(tr("Its transects have been &generated (offered to simulations)"), this);
  generated_->setChecked(true);
  auto* form = new QFormLayout(this);
  form->addRow(tr("&Identifier:"), id_);
  form->addRow(tr("&Name:"), name_);
  form->addRow(tr("&Design:"), design_);
  form->addRow(generated_);
  auto* buttons = new QDialogButtonBox(QDialogButtonBox::Ok | QDialogButtonBox::Cancel, this);
  form->addRow(buttons);
  connect(buttons, &QDialogButtonBox::accepted, this, &QDialog::accept);
  connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);
}

int32_t NewSurveyDialog::Id() const { return id_->value(); }

std::string NewSurveyDialog::Name() const { return name_->text().toStdString(); }

int32_t NewSurveyDialog::DesignId() const { return design_->currentData().toInt(); }

int32_t NewSurveyDialog::Status() const { return generated_->isChecked() ? 1 : 0; }

}  // namespace zrsim_editor
