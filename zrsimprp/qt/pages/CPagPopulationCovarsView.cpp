#include "zrsimprp/qt/pages/CPagPopulationCovarsView.h"

#include <QCheckBox>
#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>

#include "zrsimprp/qt/grid/GridView.h"
#include "zrsimprp/qt/pages/SectionHeader.h"

namespace zrsimprp {

CPagPopulationCovarsView::CPagPopulationCovarsView(CPagPopulationCovars& page, QWidget* parent)
    : PageView(page, parent) {
  Body()->addWidget(MakeHeader(page.lalPopCovariates, this));

  // The continuous covariate: include it, name it, choose its law and give the law's parameters.
  Body()->addWidget(MakeCheckBox(page.chkContinuousCov, this));
  QLabel* continuous_caption = MakeLabel(page.labContinuousCov, this);
  QLineEdit* continuous_name = MakeTextBox(page.txtContinuousCov, QString(), this);
  NameAfter(continuous_caption, continuous_name);
  Body()->addLayout(Row({continuous_caption, continuous_name}, kIndent));
  QLabel* law_caption = MakeLabel(page.labDistribution, this);
  QComboBox* law = MakeComboBox(page.cboDistribution, QString(), this);
  NameAfter(law_caption, law);
  Body()->addLayout(Row({law_caption, law}, kIndent));
  Body()->addLayout(FillRow({MakeGrid(page.flxContinuousCov, QStringLiteral("flxContinuousCov"),
                                      QStringLiteral("Continuous covariate parameters"), this)},
                            kIndent));

  // The categorical covariate: include it, name it, its levels and their probabilities.
  Body()->addWidget(MakeCheckBox(page.chkCategoricalCov, this));
  QLabel* categorical_caption = MakeLabel(page.labCategoricalCov, this);
  QLineEdit* categorical_name = MakeTextBox(page.txtCategoricalCov, QString(), this);
  NameAfter(categorical_caption, categorical_name);
  Body()->addLayout(Row({categorical_caption, categorical_name}, kIndent));
  GridView* levels = MakeGrid(page.flxCategoricalCov, QStringLiteral("flxCategoricalCov"),
                              QStringLiteral("Categorical covariate levels"), this);
  QWidget* buttons = MakeAddRemoveButtons(page.cmdAddCovValue, QStringLiteral("Add level"),
                                          page.cmdSubCovValue, QStringLiteral("Remove level"), this);
  Body()->addLayout(FillRow({levels, buttons}, kIndent));
  Finish();
}

}  // namespace zrsimprp
