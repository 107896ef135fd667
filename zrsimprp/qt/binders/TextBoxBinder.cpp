#include "zrsimprp/qt/binders/TextBoxBinder.h"

#include "zrsimprp/qt/UndoRecorder.h"

namespace zrsimprp {

TextBoxBinder::TextBoxBinder(TextBox& text_box, QLineEdit* edit)
    : ControlBinder(text_box, edit), text_box_(text_box), edit_(edit) {
  connect(edit, &QLineEdit::textEdited, this, &TextBoxBinder::OnTextEdited);
  // What was typed is one step once the field is left.
  connect(edit, &QLineEdit::editingFinished, this, [this] { UndoRecorder::EndTyping(this); });
  RefreshNow();
}

void TextBoxBinder::Mirror() {
  const QString text = QString::fromStdString(text_box_.Text());
  // Rewriting an equal text would move the cursor while the person types.
  if (edit_->text() != text) edit_->setText(text);
  MirrorBackColor({QPalette::Base});
}

void TextBoxBinder::OnTextEdited(const QString& text) {
  if (Mirroring()) return;
  UndoRecorder::Run(
      this, "TextBox_Change", QStringLiteral("typing in %1").arg(UndoRecorder::NameOf(edit_)),
      [this, &text] { text_box_.UserType(text.toStdString()); }, &text_box_);
  RefreshNow();
}

}  // namespace zrsimprp
