#include "zrsimprp/qt/pages/CPagPopulationDescriptionView.h"

#include <QCheckBox>
#include <QComboBox>
#include <QGroupBox>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QRadioButton>

#include "zrsimprp/qt/AccessibleText.h"
#include "zrsimprp/qt/grid/GridView.h"
#include "zrsimprp/qt/pages/SectionHeader.h"

namespace zrsimprp {

CPagPopulationDescriptionView::CPagPopulationDescriptionView(CPagPopulationDescription& page, QWidget* parent)
    : PageView(page, parent) {
  Body()->addWidget(MakeHeader(page.lalPopsize, this));
  const auto sizes = MakeOptions(page.optNcalculation, this);
  for (QRadioButton* option : sizes) {
    Chain(option);
    Body()->addWidget(option);
  }
  Body()->addLayout(FillRow({MakeGrid(page.flxN, QStringLiteral("flxN"),
                                      AccessibleText::FromCaption(page.lalPopsize.Caption()), this)}));

  Body()->addWidget(MakeHeader(page.lal, this));
  Body()->addWidget(MakeCheckBox(page.chkClusters, this));

  QGroupBox* frame = MakeFrame(page.frmClusterSize, this);
  auto* inside = new QVBoxLayout(frame);
  const auto laws = MakeOptions(page.optClusterDist, frame);
  const auto law_name = [&page](int index) {
    return AccessibleText::FromCaption(page.optClusterDist.Button(index).Caption());
  };
  // The named distribution comes first in the frame, the pmf table under it.
  Chain(laws[1]);
  inside->addWidget(laws[1]);
  inside->addLayout(Row({MakeComboBox(page.cboDistribution, law_name(1), frame)}, kIndent));
  inside->addLayout(FillRow({MakeGrid(page.flxClusterParam, QStringLiteral("flxClusterParam"),
                                      QStringLiteral("Distribution parameters"), frame)},
                            kIndent));
  Chain(laws[0]);
  inside->addWidget(laws[0]);
  GridView* pmf = MakeGrid(page.flxClusterSize, QStringLiteral("flxClusterSize"), law_name(0), frame);
  QWidget* buttons = MakeAddRemoveButtons(page.cmdAddSize, QStringLiteral("Add cluster size"),
                                          page.cmdSubSize, QStringLiteral("Remove cluster size"), frame);
  inside->addLayout(FillRow({pmf, buttons}, kIndent));
  Body()->addWidget(frame);
  Finish();
}

}  // namespace zrsimprp
