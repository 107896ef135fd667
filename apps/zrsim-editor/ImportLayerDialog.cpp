#include "zrsim-editor/ImportLayerDialog.h"

#include <QComboBox>
#include <QDialogButtonBox>
#include <QFileDialog>
#include <QFormLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QRadioButton>

#include "projectdb/VectorSource.h"
#include "zrsimprp/host/RuntimeError.h"

namespace zrsim_editor {

namespace {

constexpr int kKeep = 0;
constexpr int kAuto = 1;
constexpr int kEpsg = 2;

}  // namespace

ImportLayerDialog::ImportLayerDialog(const std::vector<std::string>& project_layers, QWidget* parent)
    : QDialog(parent) {
  setWindowTitle(tr("Import layer"));
  file_ = new QLineEdit(this);
  auto* browse = new QPushButton(tr("Bro&wse…"), this);
  auto* file_row = new QHBoxLayout;
  file_row->addWidget(file_, 1);
  file_row->addWidget(browse);
  layer_ = new QComboBox(this);
  id_field_ = new QComboBox(this);
  label_field_ = new QComboBox(this);
  name_ = new QLineEdit(this);
  kind_ = new QComboBox(this);
  kind_->addItem(tr("1: study region"), 1);
  kind_->addItem(tr("2: strata inside a parent layer"), 2);
  kind_->setCurrentIndex(1);
  use_parent_ = new QRadioButton(tr("Inside &the layer"), this);
  parent_ = new QComboBox(this);
  for (const std::string& layer : project_layers) parent_->addItem(QString::fromStdString(layer));
  make_region_ = new QRadioButton(tr("Inside a &region made from these strata, named"), this);
  region_ = new QLineEdit(this);
  use_parent_->setChecked(true);
  auto* parent_row = new QHBoxLayout;
  parent_row->addWidget(use_parent_);
  parent_row->addWidget(parent_, 1);
  auto* region_row = new QHBoxLayout;
  region_row->addWidget(make_region_);
  region_row->addWidget(region_, 1);
  reproject_ = new QComboBox(this);
  reproject_->addItem(tr("Keep the file's coordinates"), kKeep);
  reproject_->addItem(tr("Metres: the UTM zone of the layer's centre"), kAuto);
  reproject_->addItem(tr("The EPSG coordinate system numbered"), kEpsg);
  epsg_ = new QLineEdit(this);
  epsg_->setPlaceholderText(QStringLiteral("32633"));
  auto* reproject_row = new QHBoxLayout;
  reproject_row->addWidget(reproject_, 1);
  reproject_row->addWidget(epsg_);
  problem_ = new QLabel(this);
  problem_->setWordWrap(true);

  auto* form = new QFormLayout;
  // A row holding a layout gets a label of its own, so that its mnemonic reaches the field.
  auto* file_label = new QLabel(tr("&File:"), this);
  file_label->setBuddy(file_);
  form->addRow(file_label, file_row);
  form->addRow(tr("&Layer in the file:"), layer_);
  form->addRow(tr("I&dentifier field:"), id_field_);
  form->addRow(tr("La&bel field:"), label_field_);
  form->addRow(tr("&Name in the project:"), name_);
  form->addRow(tr("&Kind:"), kind_);
  form->addRow(tr("Parent:"), parent_row);
  form->addRow(QString(), region_row);
  auto* coordinates_label = new QLabel(tr("&Coordinates:"), this);
  coordinates_label->setBuddy(reproject_);
  form->addRow(coordinates_label, reproject_row);
  auto* buttons = new QDialogButtonBox(QDialogButtonBox::Ok | QDialogButtonBox::Cancel, this);
  buttons->button(QDialogButtonBox::Ok)->setText(tr("&Import"));
  auto* layout = new QVBoxLayout(this);
  layout->addLayout(form);
  layout->addWidget(problem_);
  layout->addWidget(buttons);

  connect(browse, &QPushButton::clicked, this, &ImportLayerDialog::Browse);
  connect(file_, &QLineEdit::editingFinished, this, [this] { SetSource(file_->text()); });
  connect(layer_, &QComboBox::currentTextChanged, this, &ImportLayerDialog::FillFields);
  connect(buttons, &QDialogButtonBox::accepted, this, &QDialog::accept);
  connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);
}

void ImportLayerDialog::Browse() {
  const QString path = QFileDialog::getOpenFileName(
      this, tr("Import layer"), QString(),
      tr("Vector files (*.gpkg *.shp *.geojson *.json *.fgb *.kml *.gml *.tab *.sqlite);;All files (*)"));
  if (!path.isEmpty()) SetSource(path);
}

void ImportLayerDialog::SetSource(const QString& path) {
  file_->setText(path);
  problem_->clear();
  const QSignalBlocker quiet(layer_);
  layer_->clear();
  try {
    for (const std::string& name : zrsimprp::VectorSource(path.toStdString()).LayerNames()) {
      layer_->addItem(QString::fromStdString(name));
    }
  } catch (const zrsimprp::RuntimeError& error) {
    problem_->setText(QString::fromStdString(error.description));
  }
  if (name_->text().isEmpty() && layer_->count() > 0) name_->setText(layer_->itemText(0));
  FillFields();
}

void ImportLayerDialog::FillFields() {
  id_field_->clear();
  label_field_->clear();
  label_field_->addItem(tr("(none)"), QString());
  if (layer_->currentText().isEmpty()) return;
  try {
    const zrsimprp::VectorSource source(file_->text().toStdString());
    for (const std::string& field : source.FieldNames(layer_->currentText().toStdString())) {
      id_field_->addItem(QString::fromStdString(field), QString::fromStdString(field));
      label_field_->addItem(QString::fromStdString(field), QString::fromStdString(field));
    }
  } catch (const zrsimprp::RuntimeError& error) {
    problem_->setText(QString::fromStdString(error.description));
  }
}

zrsimprp::LayerImportOptions ImportLayerDialog::Options() const {
  zrsimprp::LayerImportOptions options;
  options.from = file_->text().toStdString();
  options.table = layer_->currentText().toStdString();
  options.id_field = id_field_->currentData().toString().toStdString();
  options.label_field = label_field_->currentData().toString().toStdString();
  options.name = name_->text().toStdString();
  options.kind = kind_->currentData().toInt();
  if (options.kind == 2) {
    if (make_region_->isChecked()) {
      options.make_region = region_->text().toStdString();
    } else {
      options.parent = parent_->currentText().toStdString();
    }
  }
  const int reproject = reproject_->currentData().toInt();
  if (reproject == kAuto) options.to_crs = "auto";
  if (reproject == kEpsg) options.to_crs = "EPSG:" + epsg_->text().trimmed().toStdString();
  return options;
}

}  // namespace zrsim_editor
