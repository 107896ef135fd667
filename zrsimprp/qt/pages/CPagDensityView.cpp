#include "zrsimprp/qt/pages/CPagDensityView.h"

#include <QCheckBox>
#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QRadioButton>

#include "zrsimprp/qt/AccessibleText.h"
#include "zrsimprp/qt/binders/GridBinder.h"
#include "zrsimprp/qt/grid/GridView.h"
#include "zrsimprp/qt/map/DensityMapPanel.h"
#include "zrsimprp/qt/map/MapBeside.h"
#include "zrsimprp/qt/pages/SectionHeader.h"

namespace zrsimprp {

CPagDensityView::CPagDensityView(CPagDensity& page, QWidget* parent) : PageView(page, parent), page_(page) {
  Body()->addWidget(MakeHeader(page.lalDensity, this));
  const auto options = MakeOptions(page.optDensity, this);
  const auto option_name = [&page](int index) {
    return AccessibleText::FromCaption(page.optDensity.Button(index).Caption());
  };

  Chain(options[0]);
  Body()->addWidget(options[0]);
  GridView* densities =
      MakeGrid(page.flxConstantDensity, QStringLiteral("flxConstantDensity"), option_name(0), this);
  Body()->addLayout(FillRow({densities}, kIndent));

  Chain(options[1]);
  Body()->addWidget(options[1]);
  QLineEdit* formula = MakeTextBox(page.txtFormula, option_name(1), this);
  Body()->addLayout(FillRow({formula}, kIndent));

  Chain(options[2]);
  Body()->addWidget(options[2]);
  QLabel* layer_caption = MakeLabel(page.labLayer, this);
  QComboBox* layer = MakeComboBox(page.cboLayer, QString(), this);
  NameAfter(layer_caption, layer);
  QLabel* field_caption = MakeLabel(page.labField, this);
  QComboBox* field = MakeComboBox(page.cboField, QString(), this);
  NameAfter(field_caption, field);
  Body()->addLayout(Row({layer_caption, layer, field_caption, field}, kIndent));

  QLabel* spacing_caption = MakeLabel(page.labGridSpace, this);
  QLineEdit* spacing = MakeTextBox(page.txtGridSpace, QString(), this);
  NameAfter(spacing_caption, spacing);
  Body()->addLayout(Row({spacing_caption, spacing}));

  Body()->addWidget(MakeCheckBox(page.chkHotspots, this));
  GridView* hotspots = MakeGrid(page.flxHotspots, QStringLiteral("flxHotspots"),
                                AccessibleText::FromCaption("Hotspots"), this);
  QWidget* buttons = MakeAddRemoveButtons(page.cmdAddHotspot, QStringLiteral("Add hotspot"),
                                          page.cmdSubHotspot, QStringLiteral("Remove hotspot"), this);
  Body()->addLayout(FillRow({hotspots, buttons}, kIndent));
  // A pasted block longer than the table adds hotspots as the "+" button does, while it may.
  if (auto* binder = hotspots->findChild<GridBinder*>()) {
    CPagDensity& density = page;
    binder->EditActions()->SetRowAdder([&density] { return density.cmdAddHotspot.UserClick(); });
  }
  Finish();
}

DensityMapPanel* CPagDensityView::ShowMap(CPagSimulation& simulation) {
  auto* map = new DensityMapPanel(page_, simulation, this);
  MapBeside::Place(Body(), map);
  return map;
}

}  // namespace zrsimprp
