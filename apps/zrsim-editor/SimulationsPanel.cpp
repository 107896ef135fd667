#include "zrsim-editor/SimulationsPanel.h"

#include <QGridLayout>
#include <QLabel>
#include <QListWidget>
#include <QPushButton>
#include <QVBoxLayout>

namespace zrsim_editor {

SimulationsPanel::SimulationsPanel(QWidget* parent) : QWidget(parent) {
  auto* layout = new QVBoxLayout(this);
  layout->setContentsMargins(0, 0, 0, 0);
  auto* title = new QLabel(tr("&Simulations"), this);
  list_ = new QListWidget(this);
  list_->setAccessibleName(tr("Simulations"));
  list_->setToolTip(tr("The project's simulations; click one to open it"));
  title->setBuddy(list_);
  new_ = new QPushButton(tr("&New"), this);
  duplicate_ = new QPushButton(tr("D&uplicate"), this);
  rename_ = new QPushButton(tr("Rena&me…"), this);
  delete_ = new QPushButton(tr("De&lete"), this);
  new_->setToolTip(tr("Add a simulation with the project's default options"));
  duplicate_->setToolTip(tr("Add a copy of the open simulation, as it is saved"));
  rename_->setToolTip(tr("Give the open simulation another name"));
  delete_->setToolTip(tr("Remove the open simulation from the project"));
  auto* buttons = new QGridLayout;
  buttons->addWidget(new_, 0, 0);
  buttons->addWidget(duplicate_, 0, 1);
  buttons->addWidget(rename_, 1, 0);
  buttons->addWidget(delete_, 1, 1);
  layout->addWidget(title);
  layout->addWidget(list_, 1);
  layout->addLayout(buttons);
  connect(list_, &QListWidget::itemClicked, this, &SimulationsPanel::OnClicked);
  connect(list_, &QListWidget::itemActivated, this, &SimulationsPanel::OnClicked);
  connect(new_, &QPushButton::clicked, this, &SimulationsPanel::NewRequested);
  connect(duplicate_, &QPushButton::clicked, this, &SimulationsPanel::DuplicateRequested);
  connect(rename_, &QPushButton::clicked, this, &SimulationsPanel::RenameRequested);
  connect(delete_, &QPushButton::clicked, this, &SimulationsPanel::DeleteRequested);
}

void SimulationsPanel::SetNames(const std::vector<std::string>& names, const std::string& current) {
  current_ = QString::fromStdString(current);
  const QSignalBlocker quiet(list_);
  list_->clear();
  for (const std::string& name : names) {
    auto* item = new QListWidgetItem(QString::fromStdString(name), list_);
    if (item->text() == current_) list_->setCurrentItem(item);
  }
}

std::vector<std::string> SimulationsPanel::Names() const {
  std::vector<std::string> names;
  for (int i = 0; i < list_->count(); ++i) names.push_back(list_->item(i)->text().toStdString());
  return names;
}

void SimulationsPanel::OnClicked(QListWidgetItem* item) {
  if (item == nullptr || item->text() == current_) return;
  emit OpenRequested(item->text());
}

}  // namespace zrsim_editor
