#include "zrsimprp/qt/pages/CPagDetectabilityView.h"

#include <QChartView>
#include <QCheckBox>
#include <QComboBox>
#include <QGroupBox>
#include <QLabel>
#include <QPushButton>

#include "zrsimprp/qt/grid/GridView.h"
#include "zrsimprp/qt/pages/SectionHeader.h"

namespace zrsimprp {

CPagDetectabilityView::CPagDetectabilityView(CPagDetectability& page, QWidget* parent)
    : PageView(page, parent) {
  Body()->addWidget(MakeHeader(page.lalDetectability, this));
  QLabel* model_caption = MakeLabel(page.labDetect, this);
  QComboBox* model = MakeComboBox(page.cboDetect, QString(), this);
  NameAfter(model_caption, model);
  Body()->addLayout(Row({model_caption, model}));
  Body()->addWidget(MakeCheckBox(page.chkStratify, this));
  Body()->addLayout(FillRow({MakeGrid(page.flxDetect, QStringLiteral("flxDetect"),
                                      QStringLiteral("Detection function parameters"), this)}));

  QGroupBox* frame = MakeFrame(page.frmDetFunc, this);
  auto* inside = new QVBoxLayout(frame);
  inside->addWidget(MakeLabel(page.labDetFunc, frame));
  QChartView* chart = MakeChart(page.chrtDetFunction, QStringLiteral("Detection function preview"), frame);
  chart->setMinimumSize(200, 133);
  auto* side = new QWidget(frame);
  auto* side_column = Column({MakeButton(page.cmdDetFunc, QString(), side), MakeLabel(page.labStrata, side)});
  side_column->setContentsMargins(0, 0, 0, 0);
  side->setLayout(side_column);
  inside->addLayout(Row({chart, side}));
  Body()->addWidget(frame);
  Finish();
}

}  // namespace zrsimprp
