#include "zrsimprp/qt/pages/PageView.h"

#include <QChartView>
#include <QCheckBox>
#include <QComboBox>
#include <QGroupBox>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QRadioButton>

#include "zrsimprp/qt/AccessibleText.h"
#include "zrsimprp/qt/binders/ButtonBinder.h"
#include "zrsimprp/qt/binders/ChartBinder.h"
#include "zrsimprp/qt/binders/CheckBoxBinder.h"
#include "zrsimprp/qt/binders/ComboBoxBinder.h"
#include "zrsimprp/qt/binders/FrameBinder.h"
#include "zrsimprp/qt/binders/GridBinder.h"
#include "zrsimprp/qt/binders/LabelBinder.h"
#include "zrsimprp/qt/binders/LabelLineBinder.h"
#include "zrsimprp/qt/binders/OptionGroupBinder.h"
#include "zrsimprp/qt/binders/PageBinder.h"
#include "zrsimprp/qt/binders/TextBoxBinder.h"

namespace zrsimprp {

PageView::PageView(PageControl& page, QWidget* parent) : QWidget(parent), body_(new QVBoxLayout(this)) {
  body_->setSpacing(4);
  new PageBinder(page, this);
}

SectionHeader* PageView::MakeHeader(LabelLine& model, QWidget* parent) {
  auto* header = new SectionHeader(parent);
  new LabelLineBinder(model, header);
  return header;
}

QLabel* PageView::MakeLabel(Label& model, QWidget* parent) {
  auto* label = new QLabel(parent);
  new LabelBinder(model, label);
  return label;
}

QLineEdit* PageView::MakeTextBox(TextBox& model, const QString& name, QWidget* parent) {
  auto* edit = new QLineEdit(parent);
  edit->setAccessibleName(name);
  new TextBoxBinder(model, edit);
  Chain(edit);
  return edit;
}

QComboBox* PageView::MakeComboBox(ComboBox& model, const QString& name, QWidget* parent) {
  auto* combo = new QComboBox(parent);
  combo->setAccessibleName(name);
  combo->setMinimumContentsLength(18);
  combo->setSizeAdjustPolicy(QComboBox::AdjustToMinimumContentsLengthWithIcon);
  new ComboBoxBinder(model, combo);
  Chain(combo);
  return combo;
}

GridView* PageView::MakeGrid(Grid& model, const QString& object_name, const QString& name, QWidget* parent) {
  auto* view = new GridView(parent);
  view->setObjectName(object_name);
  view->setAccessibleName(name);
  new GridBinder(model, view);
  Chain(view);
  return view;
}

QPushButton* PageView::MakeButton(Button& model, const QString& name, QWidget* parent) {
  auto* button = new QPushButton(parent);
  auto* binder = new ButtonBinder(model, button);
  if (!name.isEmpty()) binder->SetAccessibleName(name);
  if (model.Caption().size() <= 1) button->setFixedWidth(button->sizeHint().height() + 4);
  Chain(button);
  return button;
}

QCheckBox* PageView::MakeCheckBox(CheckBox& model, QWidget* parent) {
  auto* box = new QCheckBox(parent);
  new CheckBoxBinder(model, box);
  Chain(box);
  return box;
}

std::vector<QRadioButton*> PageView::MakeOptions(OptionGroup& model, QWidget* parent) {
  std::vector<QRadioButton*> radios;
  for (int i = 0; i < model.Count(); ++i) radios.push_back(new QRadioButton(parent));
  new OptionGroupBinder(model, radios);
  return radios;
}

QGroupBox* PageView::MakeFrame(Frame& model, QWidget* parent) {
  auto* box = new QGroupBox(parent);
  new FrameBinder(model, box);
  return box;
}

QChartView* PageView::MakeChart(Chart& model, const QString& name, QWidget* parent) {
  auto* view = new QChartView(parent);
  view->setAccessibleName(name);
  new ChartBinder(model, view);
  return view;
}

QWidget* PageView::MakeAddRemoveButtons(Button& add, const QString& add_name, Button& remove,
                                        const QString& remove_name, QWidget* parent) {
  auto* buttons = new QWidget(parent);
  auto* column = Column({MakeButton(add, add_name, buttons), MakeButton(remove, remove_name, buttons)});
  column->setContentsMargins(0, 0, 0, 0);
  buttons->setLayout(column);
  return buttons;
}

void PageView::NameAfter(QLabel* caption, QWidget* field) {
  caption->setBuddy(field);
  field->setAccessibleName(caption->accessibleName());
  // An editable list's text field is where the focus lands: it has the same name.
  if (auto* combo = qobject_cast<QComboBox*>(field); combo != nullptr && combo->lineEdit() != nullptr) {
    combo->lineEdit()->setAccessibleName(caption->accessibleName());
  }
}

QHBoxLayout* PageView::Row(std::initializer_list<QWidget*> widgets, int indent) {
  auto* row = new QHBoxLayout;
  if (indent > 0) row->addSpacing(indent);
  for (QWidget* widget : widgets) row->addWidget(widget);
  row->addStretch(1);
  return row;
}

QHBoxLayout* PageView::FillRow(std::initializer_list<QWidget*> widgets, int indent) {
  auto* row = new QHBoxLayout;
  if (indent > 0) row->addSpacing(indent);
  bool first = true;
  for (QWidget* widget : widgets) {
    row->addWidget(widget, first ? 1 : 0, Qt::AlignTop);
    first = false;
  }
  // Whatever the grid's columns do not need stays empty at the end of the row.
  row->addStretch(0);
  return row;
}

QVBoxLayout* PageView::Column(std::initializer_list<QWidget*> widgets) {
  auto* column = new QVBoxLayout;
  for (QWidget* widget : widgets) column->addWidget(widget);
  column->addStretch(1);
  return column;
}

void PageView::Finish() {
  body_->addStretch(1);
  for (size_t i = 1; i < focus_chain_.size(); ++i) QWidget::setTabOrder(focus_chain_[i - 1], focus_chain_[i]);
}

}  // namespace zrsimprp
