#include "zrsimprp/qt/pages/CPagAnalysesView.h"

#include <QCheckBox>
#include <QComboBox>
#include <QGroupBox>
#include <QLabel>
#include <QPushButton>

#include "zrsimprp/qt/grid/GridView.h"
#include "zrsimprp/qt/pages/SectionHeader.h"

namespace zrsimprp {

CPagAnalysesView::CPagAnalysesView(CPagAnalyses& page, QWidget* parent) : PageView(page, parent) {
  Body()->addWidget(MakeHeader(page.lalAnalyses, this));
  Body()->addWidget(MakeCheckBox(page.chkAnalyse, this));
  QLabel* filter_caption = MakeLabel(page.labDataFilter, this);
  QComboBox* filter = MakeComboBox(page.cboDataFilter, QString(), this);
  NameAfter(filter_caption, filter);
  QLabel* model_caption = MakeLabel(page.labModelDEf, this);
  QComboBox* model = MakeComboBox(page.cboModelDef, QString(), this);
  NameAfter(model_caption, model);
  // The two captions share one column so their lists line up.
  const int caption_width = std::max(filter_caption->sizeHint().width(), model_caption->sizeHint().width());
  filter_caption->setMinimumWidth(caption_width);
  model_caption->setMinimumWidth(caption_width);
  Body()->addLayout(Row({filter_caption, filter}));
  Body()->addLayout(Row({model_caption, model}));

  QGroupBox* frame = MakeFrame(page.frmModel, this);
  auto* inside = new QVBoxLayout(frame);
  QLabel* type_caption = MakeLabel(page.labAnalysisType, frame);
  QComboBox* type = MakeComboBox(page.cboAnalysisType, QString(), frame);
  NameAfter(type_caption, type);
  inside->addLayout(Row({type_caption, type}));
  GridView* models = MakeGrid(page.flxModels, QStringLiteral("flxModels"), QStringLiteral("Analyses"), frame);
  QWidget* buttons = MakeAddRemoveButtons(page.cmdAddModel, QStringLiteral("Add analysis"), page.cmdSubModel,
                                          QStringLiteral("Remove analysis"), frame);
  inside->addLayout(FillRow({models, buttons}));
  QLabel* criteria_caption = MakeLabel(page.labCriteria, frame);
  QComboBox* criteria = MakeComboBox(page.cboCriteria, QString(), frame);
  NameAfter(criteria_caption, criteria);
  inside->addLayout(Row({criteria_caption, criteria}));
  Body()->addWidget(frame);
  Finish();
}

}  // namespace zrsimprp
