#include "zrsimprp/qt/InputToolTips.h"

#include <QAbstractButton>
#include <QAbstractItemView>
#include <QComboBox>
#include <QEvent>
#include <QHash>
#include <QLineEdit>
#include <QTabBar>

namespace zrsimprp {

namespace {

const QHash<QString, InputToolTips::Text>& Table() {
  static const QHash<QString, InputToolTips::Text> table = {
      // Simulation
      {QStringLiteral("Select design (generate multiple surveys)"),
       {"Generate new transects from a design in every repetition", "not available in this version"}},
      {QStringLiteral("Design"),
       {"The design whose transects are generated", "enabled when Select design is chosen"}},
      {QStringLiteral("Select single survey"), {"Use one survey's transects in every repetition", ""}},
      {QStringLiteral("Survey"),
       {"The survey whose transects are used (number and name)",
        "enabled when Select single survey is chosen"}},
      {QStringLiteral("Region / strata layer"),
       {"The map layer whose polygons are the strata of the study region", ""}},
      {QStringLiteral("Repeat the simulation times"),
       {"How many times a population is generated, surveyed and analysed: a whole number of at least 1", ""}},
      // Density
      {QStringLiteral("Uniform density (within strata where applicable)"),
       {"The same density everywhere inside each stratum; type one value per stratum in the table", ""}},
      {QStringLiteral("Simple model"),
       {"Density as a formula of the map coordinates x and y, starting with =", ""}},
      {QStringLiteral("DSM analysis"), {"Density read from a field of a map layer", ""}},
      {QStringLiteral("Layer"),
       {"The map layer holding the fitted density", "enabled when DSM analysis is chosen"}},
      {QStringLiteral("Field"),
       {"The field of that layer holding the density", "enabled when DSM analysis is chosen"}},
      {QStringLiteral("GridSpacing"),
       {"Side of the square cells on which density is evaluated, in map units, greater than 0", ""}},
      {QStringLiteral("Add Hotspots"),
       {"Add places of raised density (hotspots) described in the table", ""}},
      {QStringLiteral("Hotspots"),
       {"One hotspot per row: centre X and Y (map units), sigma (spread, map units) and amplitude (added "
        "relative density)",
        "enabled when Add Hotspots is ticked"}},
      {QStringLiteral("Add hotspot"),
       {"Add a hotspot row to the table", "enabled when Add Hotspots is ticked"}},
      {QStringLiteral("Remove hotspot"),
       {"Remove the selected hotspot row", "enabled when Add Hotspots is ticked"}},
      // Population: General
      {QStringLiteral("Fixed N"), {"The same number of animals in every repetition, per stratum", ""}},
      {QStringLiteral("Poisson N (generated according to density surface pdf)"),
       {"A Poisson number of animals, its mean from the density surface", ""}},
      {QStringLiteral("Fixed average D (Poisson N)"),
       {"A Poisson number of animals with the average density typed per stratum", ""}},
      {QStringLiteral("Population Size"),
       {"Number of animals (N) or average density (D) for each stratum",
        "editable when Fixed N or Fixed average D is chosen"}},
      {QStringLiteral("Generate cluster sizes"),
       {"Animals come in clusters (groups detected together) whose sizes are drawn at random", ""}},
      {QStringLiteral("Define distribution for cluster size"),
       {"Draw cluster sizes from a Poisson or Negative-Binomial distribution",
        "enabled when Generate cluster sizes is ticked"}},
      {QStringLiteral("Specify probability mass function (pmf) for cluster size"),
       {"Draw cluster sizes from a table of sizes and their probabilities",
        "enabled when Generate cluster sizes is ticked"}},
      {QStringLiteral("Distribution parameters"),
       {"The distribution's parameters: lambda (mean size) for Poisson, r and p for Negative-Binomial",
        "enabled when Define distribution for cluster size is chosen"}},
      {QStringLiteral("Add cluster size"),
       {"Add a column (a cluster size and its probability) to the table",
        "enabled when Specify probability mass function is chosen"}},
      {QStringLiteral("Remove cluster size"),
       {"Remove the last column of the table", "enabled when Specify probability mass function is chosen"}},
      // Population: Covariates
      {QStringLiteral("Include continuous covariate"),
       {"Every animal carries a measured covariate drawn from a distribution", ""}},
      {QStringLiteral("Covariate Name"),
       {"Name of the continuous covariate (no spaces, semicolons, colons or mathematical symbols)",
        "enabled when Include continuous covariate is ticked"}},
      {QStringLiteral("Covariate distribution"),
       {"The distribution of the continuous covariate",
        "enabled when Include continuous covariate is ticked"}},
      {QStringLiteral("Continuous covariate parameters"),
       {"mu (mean) and sigma (spread) of the continuous covariate's distribution",
        "enabled when Include continuous covariate is ticked"}},
      {QStringLiteral("Include categorical covariate"),
       {"Every animal carries a covariate with named levels", ""}},
      {QStringLiteral("Covariate name"),
       {"Name of the categorical covariate (no spaces, semicolons, colons or mathematical symbols)",
        "enabled when Include categorical covariate is ticked"}},
      {QStringLiteral("Categorical covariate levels"),
       {"One column per level: its value and its probability",
        "enabled when Include categorical covariate is ticked"}},
      {QStringLiteral("Add level"),
       {"Add a level column to the table", "enabled when Include categorical covariate is ticked"}},
      {QStringLiteral("Remove level"),
       {"Remove the last level column", "enabled when Include categorical covariate is ticked"}},
      // Detectability
      {QStringLiteral("Detection function model"),
       {"The key function: how the chance of detection falls with distance", ""}},
      {QStringLiteral("Define parameters for each stratum"),
       {"One column of parameters per stratum instead of one for the whole study area",
        "enabled when the region layer has more than one stratum"}},
      {QStringLiteral("Detection function parameters"),
       {"Scale (map units), Shape and one row per covariate term; greyed cells are not used", ""}},
      {QStringLiteral("Display Detection Function"),
       {"Draw the detection function for the values typed; press again for the next stratum", ""}},
      // Analysis
      {QStringLiteral("Analyse simulated data"), {"Analyse every simulated data set", ""}},
      {QStringLiteral("Data Filter"),
       {"Which detections the analysis uses (for example a truncation distance)",
        "enabled when Analyse simulated data is ticked"}},
      {QStringLiteral("Model Definition"),
       {"The model fitted to each simulated data set", "enabled when Analyse simulated data is ticked"}},
      {QStringLiteral("Type of model"),
       {"The kind of model fitted", "enabled when Analyse simulated data is ticked"}},
      {QStringLiteral("Analyses"), {"One row per analysis run on each data set", ""}},
      {QStringLiteral("Add analysis"), {"Add an analysis row", ""}},
      {QStringLiteral("Remove analysis"), {"Remove the selected analysis row", ""}},
      {QStringLiteral("Select among multiple model using"),
       {"The criterion that picks the best of several models (AIC, AICc or BIC)",
        "enabled when there is more than one analysis"}},
      // Misc.
      {QStringLiteral("Max cores"),
       {"The largest number of processor cores to use; blank for one less than the computer has", ""}},
      {QStringLiteral("Run in parallel"), {"Run repetitions at the same time on several cores", ""}},
  };
  return table;
}

}  // namespace

InputToolTips* InputToolTips::Install(QWidget* root) {
  auto* keeper = new InputToolTips(root);
  for (QWidget* widget : root->findChildren<QWidget*>()) {
    if (!IsInput(widget) || Find(widget->accessibleName()) == nullptr) continue;
    widget->installEventFilter(keeper);
    Update(widget);
  }
  return keeper;
}

const InputToolTips::Text* InputToolTips::Find(const QString& accessible_name) {
  const auto found = Table().constFind(accessible_name.trimmed());
  return found == Table().constEnd() ? nullptr : &found.value();
}

bool InputToolTips::IsInput(const QWidget* widget) {
  if (qobject_cast<const QTabBar*>(widget) != nullptr) return false;
  // The parts of a list, a table or a tab bar (its editor, headers, scroll buttons, pop-up) belong to
  // it and share its tooltip.
  for (const QWidget* above = widget->parentWidget(); above != nullptr; above = above->parentWidget()) {
    if (qobject_cast<const QComboBox*>(above) != nullptr ||
        qobject_cast<const QAbstractItemView*>(above) != nullptr ||
        qobject_cast<const QTabBar*>(above) != nullptr) {
      return false;
    }
  }
  return qobject_cast<const QLineEdit*>(widget) != nullptr ||
         qobject_cast<const QComboBox*>(widget) != nullptr ||
         qobject_cast<const QAbstractButton*>(widget) != nullptr ||
         qobject_cast<const QAbstractItemView*>(widget) != nullptr;
}

QString InputToolTips::ToolTipFor(const Text& text, bool enabled) {
  QString tip = QString::fromUtf8(text.holds);
  if (!enabled && text.enabled_when[0] != '\0') {
    tip += QStringLiteral(" (") + QString::fromUtf8(text.enabled_when) + QLatin1Char(')');
  }
  return tip;
}

void InputToolTips::Update(QWidget* widget) {
  const Text* text = Find(widget->accessibleName());
  if (text != nullptr) widget->setToolTip(ToolTipFor(*text, widget->isEnabled()));
}

bool InputToolTips::eventFilter(QObject* watched, QEvent* event) {
  if (event->type() == QEvent::EnabledChange) Update(static_cast<QWidget*>(watched));
  return QObject::eventFilter(watched, event);
}

}  // namespace zrsimprp
