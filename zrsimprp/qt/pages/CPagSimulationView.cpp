#include "zrsimprp/qt/pages/CPagSimulationView.h"

#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QRadioButton>

#include "zrsimprp/qt/AccessibleText.h"
#include "zrsimprp/qt/binders/GapLabelBinder.h"
#include "zrsimprp/qt/map/MapBeside.h"
#include "zrsimprp/qt/map/StrataMapPanel.h"
#include "zrsimprp/qt/pages/SectionHeader.h"

namespace zrsimprp {

CPagSimulationView::CPagSimulationView(CPagSimulation& page, QWidget* parent)
    : PageView(page, parent), page_(page) {
  Body()->addWidget(MakeHeader(page.lalSurveyDesign, this));
  const auto design = MakeOptions(page.optDesign, this);
  // Each list sits indented under its option button, which names it.
  Chain(design[0]);
  QComboBox* design_list = MakeComboBox(page.cboDesign, QStringLiteral("Design"), this);
  Body()->addWidget(design[0]);
  Body()->addLayout(Row({design_list}, kIndent));
  Chain(design[1]);
  QComboBox* survey_list = MakeComboBox(page.cboSurvey, QStringLiteral("Survey"), this);
  Body()->addWidget(design[1]);
  Body()->addLayout(Row({survey_list}, kIndent));

  Body()->addWidget(MakeHeader(page.lalSimulationOptions, this));
  QLabel* region_caption = MakeLabel(page.lblRegion, this);
  QComboBox* region_list = MakeComboBox(page.cboRegionLayer, QString(), this);
  NameAfter(region_caption, region_list);
  Body()->addLayout(Row({region_caption, region_list}));

  Body()->addWidget(MakeHeader(page.lalReps, this));
  // "Repeat the simulation <box> times": the box sits in the caption's run of blanks.
  auto* before = new QLabel(this);
  auto* after = new QLabel(this);
  new GapLabelBinder(page.labReps, before, after);
  QLineEdit* reps = MakeTextBox(page.txtReps, AccessibleText::FromCaption(page.labReps.Caption()), this);
  reps->setFixedWidth(reps->fontMetrics().horizontalAdvance(QStringLiteral("0000000")) + 12);
  before->setBuddy(reps);
  Body()->addLayout(Row({before, reps, after}));
  Finish();
}

StrataMapPanel* CPagSimulationView::ShowMap() {
  auto* map = new StrataMapPanel(page_, this);
  MapBeside::Place(Body(), map);
  return map;
}

}  // namespace zrsimprp
