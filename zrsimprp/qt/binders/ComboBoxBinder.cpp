#include "zrsimprp/qt/binders/ComboBoxBinder.h"

#include <QLineEdit>

#include "zrsimprp/qt/UndoRecorder.h"
#include "zrsimprp/qt/WheelGuard.h"

namespace zrsimprp {

ComboBoxBinder::ComboBoxBinder(ComboBox& combo, QComboBox* widget)
    : ControlBinder(combo, widget), combo_(combo), widget_combo_(widget) {
  const bool editable = combo.ListStyle() == ComboBox::Style::kEditable;
  widget->setEditable(editable);
  if (editable) {
    // The model owns the list: Enter must not add the typed text as an entry, nor complete it.
    widget->setInsertPolicy(QComboBox::NoInsert);
    widget->setCompleter(nullptr);
    connect(widget->lineEdit(), &QLineEdit::textEdited, this, &ComboBoxBinder::OnTextEdited);
    connect(widget->lineEdit(), &QLineEdit::editingFinished, this, [this] { UndoRecorder::EndTyping(this); });
  }
  connect(widget, qOverload<int>(&QComboBox::activated), this, &ComboBoxBinder::OnActivated);
  WheelGuard::Install(widget);
  RefreshNow();
}

void ComboBoxBinder::MirrorItems() {
  if (shown_items_ == combo_.Items()) return;
  shown_items_ = combo_.Items();
  QStringList items;
  items.reserve(static_cast<qsizetype>(shown_items_.size()));
  for (const std::string& item : shown_items_) items.append(QString::fromStdString(item));
  widget_combo_->clear();
  widget_combo_->addItems(items);
}

void ComboBoxBinder::Mirror() {
  MirrorItems();
  if (widget_combo_->currentIndex() != combo_.ListIndex()) widget_combo_->setCurrentIndex(combo_.ListIndex());
  if (widget_combo_->isEditable()) {
    const QString text = QString::fromStdString(combo_.Text());
    if (widget_combo_->currentText() != text) widget_combo_->setEditText(text);
  }
  MirrorBackColor({QPalette::Base});
  // The text field of an editable list is what a screen reader lands on: it carries the list's name.
  if (QLineEdit* edit = widget_combo_->lineEdit()) {
    if (edit->accessibleName() != widget_combo_->accessibleName())
      edit->setAccessibleName(widget_combo_->accessibleName());
  }
}

void ComboBoxBinder::OnActivated(int index) {
  if (Mirroring()) return;
  UndoRecorder::Run(this, "ComboBox_Click",
                    QStringLiteral("choice in %1").arg(UndoRecorder::NameOf(widget_combo_)),
                    [this, index] { combo_.UserSelect(index); });
  RefreshNow();
}

void ComboBoxBinder::OnTextEdited(const QString& text) {
  if (Mirroring()) return;
  UndoRecorder::Run(
      this, "ComboBox_Change", QStringLiteral("typing in %1").arg(UndoRecorder::NameOf(widget_combo_)),
      [this, &text] { combo_.UserType(text.toStdString()); }, &combo_);
  RefreshNow();
}

}  // namespace zrsimprp
