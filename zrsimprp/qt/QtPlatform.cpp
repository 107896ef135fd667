#include "zrsimprp/qt/QtPlatform.h"

#include <QApplication>
#include <QMessageBox>
#include <memory>

namespace zrsimprp {

QMessageBox* QtPlatform::CreateMessageBox(const std::string& text, const std::string& title, MessageIcon icon,
                                          QWidget* parent) {
  auto* box = new QMessageBox(parent);
  box->setIcon(icon == MessageIcon::Critical ? QMessageBox::Critical : QMessageBox::Warning);
  box->setWindowTitle(QString::fromStdString(title));
  // The texts carry deliberate runs of blanks and angle brackets: show them as they are.
  box->setTextFormat(Qt::PlainText);
  box->setText(QString::fromStdString(text));
  box->setStandardButtons(QMessageBox::Ok);
  box->setDefaultButton(QMessageBox::Ok);
  return box;
}

void QtPlatform::MessageBox(const std::string& text, const std::string& title, MessageIcon icon) {
  if (quiet_) return;
  ++messages_shown_;
  if (message_sink_) {
    message_sink_(text, title, icon);
    return;
  }
  std::unique_ptr<QMessageBox> box(CreateMessageBox(text, title, icon, dialog_parent_.data()));
  box->exec();
}

void QtPlatform::Beep() {
  if (quiet_) return;
  ++beeps_;
  QApplication::beep();
}

void QtPlatform::ResetMousePointer() {
  while (QApplication::overrideCursor() != nullptr) QApplication::restoreOverrideCursor();
}

}  // namespace zrsimprp
