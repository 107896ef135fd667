#pragma once

#include <QObject>
#include <functional>
#include <string>
#include <vector>

namespace zrsimprp {

class CPagSimulation;
class GridTableModel;

// Keeps the strata tables' headings (StrataHeadings) in step with the Simulation page's strata layer:
// when another layer is chosen, or the project is loaded again, its strata's ids and labels are read
// once and handed to every table that has a column per stratum.
class StrataColumnHeadings : public QObject {
  Q_OBJECT

 public:
  // `tables`: models whose row 0 names one stratum per column from column 1 on.
  StrataColumnHeadings(CPagSimulation& simulation, std::vector<GridTableModel*> tables, QObject* parent);
  ~StrataColumnHeadings() override;

  // Runs `load` (the control's Initialize), then reads the layer's strata again: the project may be
  // another one. Layers chosen while it runs are not read one by one.
  void ReloadAfter(const std::function<void()>& load);

 private:
  void FollowLayer();
  void Reload();

  CPagSimulation& simulation_;
  std::vector<GridTableModel*> tables_;
  std::string layer_;
  int subscription_ = 0;
  bool loading_ = false;
};

}  // namespace zrsimprp
