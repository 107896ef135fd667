#include "zrsim-editor/NewDesignDialog.h"

#include <QComboBox>
#include <QDialogButtonBox>
#include <QFormLayout>
#include <QLineEdit>
#include <QSpinBox>
#include <limits>

#include "projectdb/DesignDefinition.h"

namespace zrsim_editor {

NewDesignDialog::NewDesignDialog(const std::vector<std::string>& layers, int32_t next_id, QWidget* parent)
    : QDialog(parent) {
  setWindowTitle(tr("New design"));
  id_ = new QSpinBox(this);
  id_->setRange(1, std::numeric_limits<int>::max());
  id_->setValue(next_id);
  name_ = new QLineEdit(this);
  layer_ = new QComboBox(this);
  for (const std::string& layer : layers) layer_->addItem(QString::fromStdString(layer));
  type_ = new QComboBox(this);
  type_->addItem(tr("Parallel lines"), QStringLiteral("parallel"));
  type_->addItem(tr("Zigzag"), QStringLiteral("zigzag"));
  spacing_ = new QLineEdit(this);
  spacing_->setToolTip(tr("The distance between the lines, in the layer's units"));
  truncation_ = new QLineEdit(this);
  truncation_->setToolTip(tr("The distance from a line beyond which detections are not recorded"));
  auto* form = new QFormLayout(this);
  form->addRow(tr("&Identifier:"), id_);
  form->addRow(tr("&Name:"), name_);
  form->addRow(tr("&Strata layer:"), layer_);
  form->addRow(tr("&Type:"), type_);
  form->addRow(tr("S&pacing:"), spacing_);
  form->addRow(tr("T&runcation:"), truncation_);
  auto* buttons = new QDialogButtonBox(QDialogButtonBox::Ok | QDialogButtonBox::Cancel, this);
  form->addRow(buttons);
  connect(buttons, &QDialogButtonBox::accepted, this, &QDialog::accept);
  connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);
}

int32_t NewDesignDialog::Id() const { return id_->value(); }

std::string NewDesignDialog::Name() const { return name_->text().toStdString(); }

std::string NewDesignDialog::StratumLayer() const { return layer_->currentText().toStdString(); }

std::string NewDesignDialog::DefinitionText() const {
  return zrsimprp::DesignDefinition::Text(StratumLayer(), type_->currentData().toString().toStdString(),
                                          spacing_->text().toStdString(), truncation_->text().toStdString());
}

}  // namespace zrsim_editor
