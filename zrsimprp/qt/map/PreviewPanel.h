#pragma once

#include <QTimer>
#include <QWidget>
#include <cstdint>
#include <memory>
#include <utility>
#include <vector>

#include "zrsimprp/map/KeptMapLayers.h"
#include "zrsimprp/map/MapLayers.h"
#include "zrsimprp/preview/DrawnSurvey.h"
#include "zrsimprp/preview/Preview.h"
#include "zrsimprp/qt/map/SettledWatch.h"

class QLabel;
class QPushButton;

namespace zrsimprp {

class DetectionCurvesView;
class ProjectDatabase;
class SIMProperties;
class MapCanvas;

// What the simulation will give before it runs, beside the pages: the detection curves, the expected
// detections per stratum and in total with the CV guide and the warning below 60, and on request
// one drawn survey on the density map with its counts beside the expected ones. Every change to the
// values it reads (density, population, covariates, detection, the survey or design and the layer)
// recomputes it a moment later; a drawn survey is drawn again with the same seed, so the picture
// follows the edits, and "Draw again" draws a new one.
class PreviewPanel : public QWidget {
  Q_OBJECT

 public:
  // The pause after the last change before the preview is recomputed.
  static constexpr int kSettleMs = 50;

  explicit PreviewPanel(SIMProperties& control, QWidget* parent = nullptr);
  ~PreviewPanel() override;

  // Recomputes now: for tests and for a panel that is about to be seen.
  void RecomputeNow();
  // Draws a survey with the next seed (the first press draws seed 1).
  void DrawAgain();

  const std::shared_ptr<const Preview>& Current() const { return preview_; }
  const std::shared_ptr<const DrawnSurvey>& Survey() const { return survey_; }
  QString SummaryText() const;
  QPushButton* DrawButton() const { return draw_; }
  // The panel's own map of the density surface, with the drawn survey over it.
  MapCanvas* SurveyMap() const { return map_; }
  int64_t Recomputations() const { return recomputations_; }

 signals:
  void Recomputed();
  // A survey was drawn (again, or after an edit); null when none is shown.
  void SurveyChanged(std::shared_ptr<const DrawnSurvey> survey);

 protected:
  void showEvent(QShowEvent* event) override;

 private:
  void DrawSurvey();
  void ShowNumbers();

  SIMProperties& control_;
  DetectionCurvesView* curves_;
  QLabel* summary_;
  QPushButton* draw_;
  MapCanvas* map_;
  SettledWatch settle_;
  KeptMapLayers kept_;
  std::shared_ptr<const Preview> preview_;
  std::shared_ptr<const MapModel> last_surface_;
  std::shared_ptr<const DrawnSurvey> survey_;
  uint64_t seed_ = 0;   // 0: no survey drawn
  bool stale_ = false;  // an edit arrived while the panel was hidden
  int64_t recomputations_ = 0;
};

}  // namespace zrsimprp
