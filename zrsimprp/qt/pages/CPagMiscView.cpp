#include "zrsimprp/qt/pages/CPagMiscView.h"

#include <QCheckBox>
#include <QGroupBox>
#include <QLabel>
#include <QLineEdit>

#include "zrsimprp/qt/pages/SectionHeader.h"

namespace zrsimprp {

CPagMiscView::CPagMiscView(CPagMisc& page, QWidget* parent) : PageView(page, parent) {
  Body()->addWidget(MakeHeader(page.lalMisc, this));
  QGroupBox* frame = MakeFrame(page.frmCores, this);
  auto* inside = new QVBoxLayout(frame);
  inside->addWidget(MakeLabel(page.labCores, frame));
  QLabel* cores_caption = MakeLabel(page.labMaxCores, frame);
  QLineEdit* cores = MakeTextBox(page.txtCores, QString(), frame);
  NameAfter(cores_caption, cores);
  inside->addLayout(Row({cores_caption, cores}));
  Body()->addWidget(frame);
  Body()->addWidget(MakeCheckBox(page.chkParallel, this));
  Finish();
}

}  // namespace zrsimprp
