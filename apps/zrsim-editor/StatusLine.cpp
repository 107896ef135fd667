#include "zrsim-editor/StatusLine.h"

#include <QUndoStack>

namespace zrsim_editor {

StatusLine::StatusLine(QWidget* parent) : QLabel(parent) {
  setObjectName(QStringLiteral("statusLine"));
  setAccessibleName(tr("Status"));
  setTextFormat(Qt::PlainText);
  setWordWrap(true);
  hide();
  expiry_.setSingleShot(true);
  expiry_.setInterval(kShownMs);
  connect(&expiry_, &QTimer::timeout, this, &StatusLine::Clear);
}

void StatusLine::ClearOnNextStep(QUndoStack* stack) {
  if (stack != nullptr) connect(stack, &QUndoStack::indexChanged, this, &StatusLine::Clear);
}

void StatusLine::Show(const QString& message) {
  setText(message);
  setVisible(!message.isEmpty());
  expiry_.start();
}

void StatusLine::Clear() {
  expiry_.stop();
  clear();
  hide();
}

}  // namespace zrsim_editor
