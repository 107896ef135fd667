#pragma once

#include <QObject>
#include <QPoint>
#include <QString>

namespace zrsimprp {

class CPagSimulation;
class Grid;
class GridTableModel;
class GridView;

// The context menu of a strata table's value row: "Fill from a field of the layer…" (a numeric
// attribute of the strata layer, matched by stratum id) and "Fill from a CSV file…" (a column matched
// by stratum id or label). Each fill is one step a person can undo, and says which strata found no
// value (StrataRowFill).
class StrataRowFillMenu : public QObject {
  Q_OBJECT

 public:
  StrataRowFillMenu(Grid& grid, GridView* view, CPagSimulation& simulation);

  // The fills the menu's entries run once the person chose the file or the field.
  void FillFromCsvFile(int row, const QString& path, const QString& column);
  void FillFromLayerField(int row, const QString& field);

  const QString& LastMessage() const { return last_message_; }

 signals:
  void Reported(const QString& message);

 private:
  void ShowMenu(const QPoint& position);
  void AskForCsvFile(int row);
  void AskForField(int row);
  GridTableModel* Model() const;
  void Report(const QString& message);

  Grid& grid_;
  GridView* view_;
  CPagSimulation& simulation_;
  QString last_message_;
};

}  // namespace zrsimprp
