#include "zrsimprp/qt/map/PreviewPanel.h"

#include <QLabel>
#include <QPushButton>
#include <QVBoxLayout>
#include <cmath>
#include <exception>

#include "zrsimprp/control/SIMProperties.h"
#include "zrsimprp/host/Conversions.h"
#include "zrsimprp/map/MapNumber.h"
#include "zrsimprp/modules/CModGlobal.h"
#include "zrsimprp/preview/PreviewCalculator.h"
#include "zrsimprp/preview/PreviewInputsReader.h"
#include "zrsimprp/preview/SurveyDrawer.h"
#include "zrsimprp/qt/map/DetectionCurvesView.h"
#include "zrsimprp/qt/map/MapCanvas.h"
#include "zrsimprp/qt/map/SurveyOverlay.h"

namespace zrsimprp {

namespace {

QString Escaped(const std::string& text) { return QString::fromStdString(text).toHtmlEscaped(); }

QString Number(double value) { return QString::fromStdString(MapNumber::Text(value, 4)); }

}  // namespace

PreviewPanel::PreviewPanel(SIMProperties& control, QWidget* parent)
    : QWidget(parent),
      control_(control),
      curves_(new DetectionCurvesView(this)),
      summary_(new QLabel(this)),
      draw_(new QPushButton(tr("&Draw a survey"), this)),
      map_(new MapCanvas(QSize(240, 180), this)),
      settle_(kSettleMs, this, [this]() {
        // A hidden panel waits until it is seen again.
        if (isVisible()) {
          RecomputeNow();
        } else {
          stale_ = true;
        }
      }) {
  setObjectName(QStringLiteral("PreviewPanel"));
  auto* layout = new QVBoxLayout(this);
  layout->setContentsMargins(0, 0, 0, 0);
  auto* heading = new QLabel(tr("<b>Preview of one repetition</b>"), this);
  layout->addWidget(heading);
  layout->addWidget(curves_, 1);
  summary_->setWordWrap(true);
  summary_->setTextFormat(Qt::RichText);
  summary_->setTextInteractionFlags(Qt::TextSelectableByMouse);
  summary_->setAccessibleName(QStringLiteral("Expected detections"));
  layout->addWidget(summary_);
  draw_->setToolTip(
      tr("Draw one survey at random: animals placed by the density surface, the design's lines, "
         "and the animals seen"));
  layout->addWidget(draw_);
  map_->setAccessibleName(QStringLiteral("Drawn survey"));
  map_->hide();
  layout->addWidget(map_, 2);
  connect(draw_, &QPushButton::clicked, this, &PreviewPanel::DrawAgain);

  CPagDensity& density = control_.pagDensity;
  CPagPopulationDescription& population = control_.pagPopulation;
  CPagPopulationCovars& covariates = control_.pagCovariates;
  CPagDetectability& detection = control_.pagDetectability;
  CPagSimulation& simulation = control_.pagSimulation;
  for (Control* watched : std::initializer_list<Control*>{&density.optDensity,
                                                          &density.flxConstantDensity,
                                                          &density.txtFormula,
                                                          &density.txtGridSpace,
                                                          &density.cboLayer,
                                                          &density.cboField,
                                                          &density.chkHotspots,
                                                          &density.flxHotspots,
                                                          &population.optNcalculation,
                                                          &population.flxN,
                                                          &population.chkClusters,
                                                          &population.optClusterDist,
                                                          &population.cboDistribution,
                                                          &population.flxClusterParam,
                                                          &population.flxClusterSize,
                                                          &covariates.flxCategoricalCov,
                                                          &covariates.flxContinuousCov,
                                                          &covariates.chkCategoricalCov,
                                                          &covariates.chkContinuousCov,
                                                          &covariates.txtCategoricalCov,
                                                          &covariates.txtContinuousCov,
                                                          &covariates.cboDistribution,
                                                          &detection.cboDetect,
                                                          &detection.flxDetect,
                                                          &detection.chkStratify,
                                                          &simulation.cboRegionLayer,
                                                          &simulation.optDesign,
                                                          &simulation.cboSurvey,
                                                          &simulation.cboDesign}) {
    settle_.Watch(*watched);
  }
  settle_.Schedule();
}

PreviewPanel::~PreviewPanel() = default;

void PreviewPanel::showEvent(QShowEvent* event) {
  QWidget::showEvent(event);
  if (stale_ || settle_.Pending() || !preview_) RecomputeNow();
}

void PreviewPanel::RecomputeNow() {
  settle_.Cancel();
  stale_ = false;
  try {
    kept_.Follow(CModGlobal::ProjectDatabase(), control_.pagDensity, control_.pagSimulation);
    PreviewInputs inputs = PreviewInputsReader::FromPages(control_);
    inputs.layers = *kept_.Layers();
    if (kept_.Database()) {
      inputs.design =
          PreviewInputsReader::DesignOf(*kept_.Database(), control_.pagSimulation.TransectObjectType(),
                                        control_.pagSimulation.TransectObjectID());
    } else {
      inputs.design.missing = "There is no project, so there is no survey design to preview.";
    }
    // The surface is evaluated only once a survey is to be drawn on it, on the grid of the last one.
    preview_ =
        std::make_shared<const Preview>(PreviewCalculator::Compute(inputs, last_surface_.get(), seed_ != 0));
  } catch (const std::exception& error) {
    // A page read while it is being rebuilt: the preview says so and waits for the next edit.
    auto failed = std::make_shared<Preview>();
    failed->refusal = std::string("The preview could not be worked out: ") + error.what();
    preview_ = failed;
  }
  if (preview_->surface) last_surface_ = preview_->surface;
  curves_->ShowPreview(preview_);
  map_->ShowModel(preview_->surface);
  if (seed_ != 0) DrawSurvey();
  ShowNumbers();
  ++recomputations_;
  emit Recomputed();
}

void PreviewPanel::DrawAgain() {
  ++seed_;
  if (!preview_ || !preview_->surface || settle_.Pending() || stale_) {
    RecomputeNow();  // draws with the new seed
  } else {
    DrawSurvey();
    ShowNumbers();
  }
  draw_->setText(tr("Draw &again"));
}

void PreviewPanel::DrawSurvey() {
  if (!preview_->Usable() || !kept_.Layers() || !kept_.Layers()->region) {
    survey_ = std::make_shared<const DrawnSurvey>();
  } else {
    survey_ =
        std::make_shared<const DrawnSurvey>(SurveyDrawer::Draw(*preview_, *kept_.Layers()->region, seed_));
  }
  const bool shown = survey_->refusal.empty() && preview_->Usable();
  SurveyOverlay::ShowOn(*map_, survey_);
  map_->setVisible(shown);
  emit SurveyChanged(shown ? survey_ : nullptr);
}

QString PreviewPanel::SummaryText() const { return summary_->text(); }

void PreviewPanel::ShowNumbers() {
  if (!preview_->Usable()) {
    summary_->setText(Escaped(preview_->refusal));
    draw_->setEnabled(false);
    return;
  }
  draw_->setEnabled(true);
  const bool drawn = survey_ && seed_ != 0 && survey_->refusal.empty() &&
                     survey_->detections_by_stratum.size() == preview_->strata.size();
  QString html = QStringLiteral(
                     "<table cellspacing='4'><tr><th align='left'>%1</th><th>%2</th><th>%3</th>"
                     "<th>P_a</th><th>%4</th>")
                     .arg(tr("Stratum"), preview_->clusters ? tr("N clusters") : tr("N animals"),
                          tr("Coverage"), tr("Expected"));
  if (drawn) html += QStringLiteral("<th>%1</th>").arg(tr("Drawn"));
  html += QStringLiteral("</tr>");
  for (size_t s = 0; s < preview_->strata.size(); ++s) {
    const StratumPreview& stratum = preview_->strata[s];
    html += QStringLiteral(
                "<tr><td>%1</td><td align='right'>%2</td><td align='right'>%3</td>"
                "<td align='right'>%4</td><td align='right'>%5</td>")
                .arg(Escaped(stratum.name), Number(stratum.animals), Number(stratum.coverage),
                     Number(stratum.average_detectability), Number(stratum.expected_detections));
    if (drawn) html += QStringLiteral("<td align='right'>%1</td>").arg(survey_->detections_by_stratum[s]);
    html += QStringLiteral("</tr>");
  }
  html += QStringLiteral("</table>");
  html += tr("Expected detections per repetition: <b>%1</b>").arg(Number(preview_->expected_detections));
  if (preview_->clusters) html += tr(" clusters");
  if (preview_->clusters && std::isfinite(preview_->expected_individuals)) {
    html += tr(", %1 individuals").arg(Number(preview_->expected_individuals));
  }
  if (drawn) html += tr("; drawn survey (seed %1): %2").arg(seed_).arg(survey_->total_detections);
  html += QStringLiteral("<br>") + tr("CV guide √(3/n): %1").arg(Number(preview_->cv_guide));
  if (survey_ && seed_ != 0 && !survey_->refusal.empty()) {
    html += QStringLiteral("<br>") + Escaped(survey_->refusal);
  }
  if (!preview_->warning.empty()) {
    html += QStringLiteral("<br><span style='color:#c0392b'>%1</span>").arg(Escaped(preview_->warning));
  }
  html += QStringLiteral("<br><small>%1").arg(Escaped(preview_->population_source));
  for (const std::string& note : preview_->notes) html += QStringLiteral(" ") + Escaped(note);
  if (drawn) {
    for (const std::string& note : survey_->notes) html += QStringLiteral(" ") + Escaped(note);
  }
  html += QStringLiteral("</small>");
  summary_->setText(html);
}

}  // namespace zrsimprp
