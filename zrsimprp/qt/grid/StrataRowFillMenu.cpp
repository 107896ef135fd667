#include "zrsimprp/qt/grid/StrataRowFillMenu.h"

#include <QFile>
#include <QFileDialog>
#include <QInputDialog>
#include <QMenu>
#include <QToolTip>

#include "zrsimprp/control/StrataRowFill.h"
#include "zrsimprp/modules/CModGlobal.h"
#include "zrsimprp/pages/CPagSimulation/CPagSimulation.h"
#include "zrsimprp/qt/UndoRecorder.h"
#include "zrsimprp/qt/grid/GridTableModel.h"
#include "zrsimprp/qt/grid/GridView.h"

namespace zrsimprp {
namespace {

constexpr int kFirstStratumColumn = 1;

QString CellsText(int count) {
  return count == 1 ? QStringLiteral("1 cell") : QStringLiteral("%1 cells").arg(count);
}

}  // namespace

StrataRowFillMenu::StrataRowFillMenu(Grid& grid, GridView* view, CPagSimulation& simulation)
    : QObject(view), grid_(grid), view_(view), simulation_(simulation) {
  view->setContextMenuPolicy(Qt::CustomContextMenu);
  connect(view, &QWidget::customContextMenuRequested, this, &StrataRowFillMenu::ShowMenu);
}

GridTableModel* StrataRowFillMenu::Model() const { return qobject_cast<GridTableModel*>(view_->model()); }

void StrataRowFillMenu::ShowMenu(const QPoint& position) {
  const QModelIndex index = view_->indexAt(position);
  const int row = index.isValid() ? index.row() : view_->currentIndex().row();
  // The heading row names the strata: only a value row is filled.
  if (row < grid_.FixedRows() || row >= grid_.Rows()) return;
  QMenu menu(view_);
  menu.addAction(tr("Fill from a field of the layer…"), this, [this, row] { AskForField(row); });
  menu.addAction(tr("Fill from a CSV file…"), this, [this, row] { AskForCsvFile(row); });
  menu.exec(view_->viewport()->mapToGlobal(position));
}

void StrataRowFillMenu::AskForCsvFile(int row) {
  const QString path = QFileDialog::getOpenFileName(view_, tr("Fill from a CSV file"), QString(),
                                                    tr("CSV files (*.csv *.txt);;All files (*)"));
  if (path.isEmpty()) return;
  bool ok = false;
  const QString column = QInputDialog::getText(
      view_, tr("Fill from a CSV file"),
      tr("Column holding the values (blank: the second column; the first names the stratum by id or label):"),
      QLineEdit::Normal, QString(), &ok);
  if (ok) FillFromCsvFile(row, path, column.trimmed());
}

void StrataRowFillMenu::AskForField(int row) {
  const QString title = tr("Fill from a field of the layer");
  const QString layer = QString::fromStdString(simulation_.cboRegionLayer.Text());
  const std::vector<std::string> choices =
      StrataRowFill::FieldChoices(CModGlobal::ProjectDatabase(), simulation_.cboRegionLayer.Text());
  bool ok = false;
  QString field;
  if (choices.empty()) {
    field = QInputDialog::getText(view_, title,
                                  tr("Numeric field of layer '%1', matched by stratum id:").arg(layer),
                                  QLineEdit::Normal, QString(), &ok);
  } else {
    QStringList items;
    for (const std::string& choice : choices) items.append(QString::fromStdString(choice));
    // Editable, so a field the list does not know can still be typed.
    field = QInputDialog::getItem(view_, title,
                                  tr("Numeric field of layer '%1', matched by stratum id:").arg(layer), items,
                                  0, true, &ok);
  }
  if (ok && !field.trimmed().isEmpty()) FillFromLayerField(row, field.trimmed());
}

void StrataRowFillMenu::FillFromCsvFile(int row, const QString& path, const QString& column) {
  QFile file(path);
  if (!file.open(QIODevice::ReadOnly)) {
    Report(tr("The file %1 could not be read: %2.").arg(path, file.errorString()));
    return;
  }
  const std::string text = file.readAll().toStdString();
  const auto headings = Model() != nullptr ? Model()->Headings() : std::vector<StrataHeadings::Heading>();
  StrataRowFill::Outcome outcome;
  UndoRecorder::RunNamedAfter(
      this, "Grid_AfterEdit",
      [&] {
        outcome =
            StrataRowFill::FromCsv(grid_, row, kFirstStratumColumn, headings, text, column.toStdString());
      },
      [&] { return QStringLiteral("fill of %1 from a CSV file").arg(CellsText(outcome.count.applied)); });
  Report(QString::fromStdString(StrataRowFill::Describe(outcome)));
}

void StrataRowFillMenu::FillFromLayerField(int row, const QString& field) {
  const auto headings = Model() != nullptr ? Model()->Headings() : std::vector<StrataHeadings::Heading>();
  StrataRowFill::Outcome outcome;
  UndoRecorder::RunNamedAfter(
      this, "Grid_AfterEdit",
      [&] {
        outcome = StrataRowFill::FromLayerField(grid_, row, kFirstStratumColumn, headings,
                                                CModGlobal::ProjectDatabase(),
                                                simulation_.cboRegionLayer.Text(), field.toStdString());
      },
      [&] {
        return QStringLiteral("fill of %1 from field %2").arg(CellsText(outcome.count.applied), field);
      });
  Report(QString::fromStdString(StrataRowFill::Describe(outcome)));
}

void StrataRowFillMenu::Report(const QString& message) {
  last_message_ = message;
  if (view_->isVisible()) QToolTip::showText(view_->mapToGlobal(QPoint(0, view_->height())), message, view_);
  emit Reported(message);
}

}  // namespace zrsimprp
