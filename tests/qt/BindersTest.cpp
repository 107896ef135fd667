#include <gtest/gtest.h>

#include <QCheckBox>
#include <QComboBox>
#include <QGroupBox>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QRadioButton>
#include <QSignalSpy>
#include <QTest>
#include <QWheelEvent>
#include <memory>

#include "QtTestSupport.h"
#include "zrsimprp/host/Button.h"
#include "zrsimprp/host/CaptionedControl.h"
#include "zrsimprp/host/CheckBox.h"
#include "zrsimprp/host/ComboBox.h"
#include "zrsimprp/host/OptionGroup.h"
#include "zrsimprp/host/TextBox.h"
#include "zrsimprp/qt/binders/ButtonBinder.h"
#include "zrsimprp/qt/binders/CheckBoxBinder.h"
#include "zrsimprp/qt/binders/ComboBoxBinder.h"
#include "zrsimprp/qt/binders/FrameBinder.h"
#include "zrsimprp/qt/binders/GapLabelBinder.h"
#include "zrsimprp/qt/binders/LabelBinder.h"
#include "zrsimprp/qt/binders/LabelLineBinder.h"
#include "zrsimprp/qt/binders/OptionGroupBinder.h"
#include "zrsimprp/qt/binders/TextBoxBinder.h"

namespace zrsimprp {
namespace {

using testing::RunEventLoopTurn;

TEST(TextBoxBinder, ModelTextShowsInTheBoxAfterOneTurn) {
  TextBox model("1");
  QWidget form;
  auto* edit = new QLineEdit(&form);
  auto* binder = new TextBoxBinder(model, edit);
  EXPECT_EQ(edit->text(), "1");
  model.SetText("250");
  EXPECT_TRUE(binder->RefreshPending());
  RunEventLoopTurn();
  EXPECT_EQ(edit->text(), "250");
}

TEST(TextBoxBinder, TypingReachesTheModel) {
  TextBox model("1");
  QWidget form;
  auto* edit = new QLineEdit(&form);
  new TextBoxBinder(model, edit);
  edit->selectAll();
  QTest::keyClicks(edit, "42");
  EXPECT_EQ(model.Text(), "42");
}

TEST(TextBoxBinder, DisabledModelDisablesTheBoxAndKeepsItsText) {
  TextBox model("7");
  QWidget form;
  auto* edit = new QLineEdit(&form);
  auto* binder = new TextBoxBinder(model, edit);
  model.SetEnabled(false);
  binder->RefreshNow();
  EXPECT_FALSE(edit->isEnabled());
  // A stray edit signal (e.g. from an input method) is refused by the model and undone.
  emit edit->textEdited("8");
  EXPECT_EQ(model.Text(), "7");
  EXPECT_EQ(edit->text(), "7");
}

TEST(TextBoxBinder, ThousandChangesInOneTurnRefreshOnce) {
  TextBox model;
  QWidget form;
  auto* edit = new QLineEdit(&form);
  auto* binder = new TextBoxBinder(model, edit);
  RunEventLoopTurn();
  const int before = binder->RefreshCount();
  for (int i = 0; i < 1000; ++i) model.SetText(std::to_string(i));
  RunEventLoopTurn();
  RunEventLoopTurn();
  EXPECT_EQ(binder->RefreshCount() - before, 1);
  EXPECT_EQ(edit->text(), "999");
}

TEST(TextBoxBinder, HiddenModelHidesTheBox) {
  TextBox model;
  QWidget form;
  auto* edit = new QLineEdit(&form);
  auto* binder = new TextBoxBinder(model, edit);
  form.show();
  model.SetVisible(false);
  binder->RefreshNow();
  EXPECT_TRUE(edit->isHidden());
  model.SetVisible(true);
  binder->RefreshNow();
  EXPECT_TRUE(edit->isVisible());
}

TEST(TextBoxBinder, DestroyedModelViewUnsubscribes) {
  TextBox model;
  {
    QWidget form;
    new TextBoxBinder(model, new QLineEdit(&form));
  }
  model.SetText("after the view is gone");  // must not reach a deleted binder
  RunEventLoopTurn();
  EXPECT_EQ(model.Text(), "after the view is gone");
}

TEST(LabelBinder, ShowsTheCaptionExactlyAndNamesItself) {
  Label model("Region / strata layer:");
  QWidget form;
  auto* label = new QLabel(&form);
  new LabelBinder(model, label);
  EXPECT_EQ(label->text(), "Region / strata layer:");
  EXPECT_EQ(label->accessibleName(), "Region / strata layer");
  EXPECT_FALSE(label->wordWrap());
}

TEST(LabelBinder, LongCaptionsWrap) {
  Label model(
      "The maximum number of cores that the simulation will use is one less than the number of cores on "
      "the machine.");
  QWidget form;
  auto* label = new QLabel(&form);
  new LabelBinder(model, label);
  EXPECT_TRUE(label->wordWrap());
}

TEST(LabelBinder, CaptionChangeShows) {
  Label model("");
  QWidget form;
  auto* label = new QLabel(&form);
  new LabelBinder(model, label);
  model.SetCaption("Stratum 2");
  RunEventLoopTurn();
  EXPECT_EQ(label->text(), "Stratum 2");
}

TEST(GapLabelBinder, SplitsTheCaptionAroundItsRunOfBlanks) {
  const auto parts = GapLabelBinder::Split("Repeat the simulation                   times");
  EXPECT_EQ(parts.first, "Repeat the simulation");
  EXPECT_EQ(parts.second, "times");
  Label model("Repeat the simulation                   times");
  QWidget form;
  auto* before = new QLabel(&form);
  auto* after = new QLabel(&form);
  new GapLabelBinder(model, before, after);
  EXPECT_EQ(before->text(), "Repeat the simulation");
  EXPECT_EQ(after->text(), "times");
}

TEST(GapLabelBinder, CaptionWithoutGapStaysWhole) {
  const auto parts = GapLabelBinder::Split("Max cores:");
  EXPECT_EQ(parts.first, "Max cores:");
  EXPECT_EQ(parts.second, "");
}

TEST(LabelLineBinder, ShowsCaptionBesideARule) {
  LabelLine model("Survey design");
  QWidget form;
  auto* header = new SectionHeader(&form);
  new LabelLineBinder(model, header);
  EXPECT_EQ(header->CaptionLabel()->text(), "Survey design");
  EXPECT_EQ(header->accessibleName(), "Survey design");
  auto* rule = qobject_cast<QFrame*>(header->Rule());
  ASSERT_NE(rule, nullptr);
  EXPECT_EQ(rule->frameShape(), QFrame::HLine);
}

TEST(FrameBinder, TitlesTheGroupBox) {
  Frame model("Cluster Size Distribution");
  QWidget form;
  auto* box = new QGroupBox(&form);
  new FrameBinder(model, box);
  EXPECT_EQ(box->title(), "Cluster Size Distribution");
  EXPECT_EQ(box->accessibleName(), "Cluster Size Distribution");
}

TEST(ButtonBinder, ClickRunsTheModelHandler) {
  Button model("+");
  int clicks = 0;
  model.SetClickHandler([&clicks] { ++clicks; });
  QWidget form;
  auto* button = new QPushButton(&form);
  auto* binder = new ButtonBinder(model, button);
  binder->SetAccessibleName("Add hotspot");
  EXPECT_EQ(button->text(), "+");
  EXPECT_EQ(button->accessibleName(), "Add hotspot");
  QTest::mouseClick(button, Qt::LeftButton);
  EXPECT_EQ(clicks, 1);
}

TEST(ButtonBinder, DisabledModelDisablesTheButton) {
  Button model("Display Detection Function");
  QWidget form;
  auto* button = new QPushButton(&form);
  new ButtonBinder(model, button);
  model.SetEnabled(false);
  RunEventLoopTurn();
  EXPECT_FALSE(button->isEnabled());
  EXPECT_EQ(button->accessibleName(), "Display Detection Function");
}

TEST(CheckBoxBinder, ValuesShowAsCheckStatesIncludingGrayed) {
  CheckBox model("Add Hotspots");
  QWidget form;
  auto* box = new QCheckBox(&form);
  auto* binder = new CheckBoxBinder(model, box);
  EXPECT_EQ(box->text(), "Add Hotspots");
  EXPECT_EQ(box->checkState(), Qt::Unchecked);
  model.SetValue(CheckBox::kChecked);
  binder->RefreshNow();
  EXPECT_EQ(box->checkState(), Qt::Checked);
  model.SetValue(CheckBox::kGrayed);
  binder->RefreshNow();
  EXPECT_EQ(box->checkState(), Qt::PartiallyChecked);
}

TEST(CheckBoxBinder, ClickIsTheModelClick) {
  CheckBox model("Run in parallel");
  int handled = 0;
  model.SetClickHandler([&handled] { ++handled; });
  QWidget form;
  auto* box = new QCheckBox(&form);
  new CheckBoxBinder(model, box);
  QTest::mouseClick(box, Qt::LeftButton);
  EXPECT_EQ(model.Value(), CheckBox::kChecked);
  EXPECT_EQ(box->checkState(), Qt::Checked);
  EXPECT_EQ(handled, 1);
}

TEST(CheckBoxBinder, ClickOnGrayedBoxShowsTheModelsUncheckedNotQtsNextState) {
  CheckBox model("Define parameters for each stratum");
  model.SetValue(CheckBox::kGrayed);
  QWidget form;
  auto* box = new QCheckBox(&form);
  new CheckBoxBinder(model, box);
  QTest::mouseClick(box, Qt::LeftButton);
  EXPECT_EQ(model.Value(), CheckBox::kUnchecked);
  EXPECT_EQ(box->checkState(), Qt::Unchecked);
}

class OptionGroupBinderTest : public ::testing::Test {
 protected:
  OptionGroupBinderTest() : model({"Select design (generate multiple surveys)", "Select single survey"}) {
    radios = {new QRadioButton(&form), new QRadioButton(&form)};
    binder = new OptionGroupBinder(model, radios);
  }
  OptionGroup model;
  QWidget form;
  std::vector<QRadioButton*> radios;
  OptionGroupBinder* binder;
};

TEST_F(OptionGroupBinderTest, CaptionsAndNoneOnAtFirst) {
  EXPECT_EQ(radios[0]->text(), "Select design (generate multiple surveys)");
  EXPECT_EQ(radios[1]->accessibleName(), "Select single survey");
  EXPECT_FALSE(radios[0]->isChecked());
  EXPECT_FALSE(radios[1]->isChecked());
}

TEST_F(OptionGroupBinderTest, ModelSelectionShows) {
  model.Select(1);
  RunEventLoopTurn();
  EXPECT_FALSE(radios[0]->isChecked());
  EXPECT_TRUE(radios[1]->isChecked());
}

TEST_F(OptionGroupBinderTest, ClickSelectsInTheModel) {
  int clicked = -1;
  model.SetClickHandler([&clicked](int index) { clicked = index; });
  model.Select(1);
  QTest::mouseClick(radios[0], Qt::LeftButton);
  EXPECT_EQ(model.Selected(), 0);
  EXPECT_EQ(clicked, 0);
  EXPECT_TRUE(radios[0]->isChecked());
  EXPECT_FALSE(radios[1]->isChecked());
}

TEST_F(OptionGroupBinderTest, DisabledButtonShowsDisabledAndItsClickIsRefused) {
  model.Select(1);
  model.Button(0).SetEnabled(false);
  RunEventLoopTurn();
  EXPECT_FALSE(radios[0]->isEnabled());
  emit radios[0]->clicked(true);
  EXPECT_EQ(model.Selected(), 1);
  EXPECT_FALSE(radios[0]->isChecked());
  EXPECT_TRUE(radios[1]->isChecked());
}

TEST_F(OptionGroupBinderTest, ClickOnTheButtonAlreadyOnKeepsItOn) {
  model.Select(0);
  binder->RefreshNow();
  QTest::mouseClick(radios[0], Qt::LeftButton);
  EXPECT_TRUE(radios[0]->isChecked());
  EXPECT_EQ(model.Selected(), 0);
}

TEST(ComboBoxBinder, ListOnlyMirrorsItemsAndSelection) {
  ComboBox model(ComboBox::Style::kListOnly);
  model.AddItem("Please Select");
  model.AddItem("Poisson");
  model.AddItem("Negative-Binomial");
  model.SetListIndex(1);
  QWidget form;
  auto* combo = new QComboBox(&form);
  new ComboBoxBinder(model, combo);
  EXPECT_FALSE(combo->isEditable());
  ASSERT_EQ(combo->count(), 3);
  EXPECT_EQ(combo->itemText(2), "Negative-Binomial");
  EXPECT_EQ(combo->currentIndex(), 1);
  model.SetListIndex(2);
  RunEventLoopTurn();
  EXPECT_EQ(combo->currentIndex(), 2);
  model.Clear();
  RunEventLoopTurn();
  EXPECT_EQ(combo->count(), 0);
  EXPECT_EQ(combo->currentIndex(), -1);
}

TEST(ComboBoxBinder, PersonsChoiceReachesTheModelAndRunsItsClick) {
  ComboBox model(ComboBox::Style::kListOnly);
  model.AddItem("AIC");
  model.AddItem("AICc");
  model.AddItem("BIC");
  int clicks = 0;
  model.SetClickHandler([&clicks] { ++clicks; });
  QWidget form;
  auto* combo = new QComboBox(&form);
  new ComboBoxBinder(model, combo);
  combo->setCurrentIndex(2);
  emit combo->activated(2);
  EXPECT_EQ(model.ListIndex(), 2);
  EXPECT_EQ(model.Text(), "BIC");
  EXPECT_EQ(clicks, 1);
}

TEST(ComboBoxBinder, RefusedChoiceFallsBackToTheModelsEntry) {
  ComboBox model(ComboBox::Style::kListOnly);
  model.AddItem("Half-Normal");
  model.AddItem("Hazard Rate");
  model.SetListIndex(0);
  model.SetEnabled(false);
  QWidget form;
  auto* combo = new QComboBox(&form);
  new ComboBoxBinder(model, combo);
  combo->setCurrentIndex(1);
  emit combo->activated(1);
  EXPECT_EQ(model.ListIndex(), 0);
  EXPECT_EQ(combo->currentIndex(), 0);
}

TEST(ComboBoxBinder, EditableTypingReachesTheModelAndAddsNoEntry) {
  ComboBox model(ComboBox::Style::kEditable, "Survey");
  model.AddItem("3 Lines A");
  QWidget form;
  auto* combo = new QComboBox(&form);
  new ComboBoxBinder(model, combo);
  ASSERT_TRUE(combo->isEditable());
  EXPECT_EQ(combo->currentText(), "Survey");
  combo->lineEdit()->selectAll();
  QTest::keyClicks(combo->lineEdit(), "12 Lines B");
  QTest::keyClick(combo->lineEdit(), Qt::Key_Return);
  EXPECT_EQ(model.Text(), "12 Lines B");
  EXPECT_EQ(model.ListIndex(), -1);
  EXPECT_EQ(combo->count(), 1);
}

TEST(ComboBoxBinder, WheelDoesNotChangeAnUnfocusedList) {
  ComboBox model(ComboBox::Style::kListOnly);
  model.AddItem("AIC");
  model.AddItem("AICc");
  model.SetListIndex(0);
  QWidget form;
  auto* combo = new QComboBox(&form);
  new ComboBoxBinder(model, combo);
  form.show();
  EXPECT_EQ(combo->focusPolicy(), Qt::StrongFocus);
  ASSERT_FALSE(combo->hasFocus());
  const QPointF centre(combo->width() / 2.0, combo->height() / 2.0);
  QWheelEvent wheel(centre, combo->mapToGlobal(centre), QPoint(), QPoint(0, -120), Qt::NoButton,
                    Qt::NoModifier, Qt::NoScrollPhase, false);
  QCoreApplication::sendEvent(combo, &wheel);
  EXPECT_EQ(combo->currentIndex(), 0);
  EXPECT_EQ(model.ListIndex(), 0);
}

TEST(ComboBoxBinder, DisabledListIsPaintedWithTheButtonFaceOfThePalette) {
  ComboBox model(ComboBox::Style::kListOnly);
  QWidget form;
  QPalette dark;
  dark.setColor(QPalette::Base, QColor(30, 30, 30));
  dark.setColor(QPalette::Button, QColor(60, 60, 60));
  dark.setColor(QPalette::Text, QColor(230, 230, 230));
  dark.setColor(QPalette::ButtonText, QColor(220, 220, 220));
  form.setPalette(dark);
  auto* combo = new QComboBox(&form);
  auto* binder = new ComboBoxBinder(model, combo);
  EXPECT_EQ(combo->palette().color(QPalette::Active, QPalette::Base), QColor(30, 30, 30));
  model.SetEnabled(false);
  model.SetBackColor(Color::System(SystemColorRole::kButtonFace));
  binder->RefreshNow();
  EXPECT_EQ(combo->palette().color(QPalette::Disabled, QPalette::Base), QColor(60, 60, 60));
  EXPECT_EQ(combo->palette().color(QPalette::Active, QPalette::Base), QColor(60, 60, 60));
}

TEST(ComboBoxBinder, ListInTheWindowColourSharesThePaletteAroundIt) {
  ComboBox model(ComboBox::Style::kListOnly);
  QWidget form;
  auto* combo = new QComboBox(&form);
  auto* binder = new ComboBoxBinder(model, combo);
  binder->RefreshNow();
  // The style keeps its drawings by palette: a copy per list would draw every list afresh.
  EXPECT_FALSE(combo->testAttribute(Qt::WA_SetPalette));
  EXPECT_EQ(combo->palette().cacheKey(), form.palette().cacheKey());
  model.SetBackColor(Color::System(SystemColorRole::kButtonFace));
  binder->RefreshNow();
  EXPECT_TRUE(combo->testAttribute(Qt::WA_SetPalette));
  EXPECT_EQ(combo->palette().color(QPalette::Active, QPalette::Base), form.palette().color(QPalette::Button));
  model.SetBackColor(Color::System(SystemColorRole::kWindowBackground));
  binder->RefreshNow();
  EXPECT_FALSE(combo->testAttribute(Qt::WA_SetPalette));
  EXPECT_EQ(combo->palette().color(QPalette::Active, QPalette::Base), form.palette().color(QPalette::Base));
}

TEST(TextBoxBinder, GreyBoxTurnsGreyWhenTheFrameAroundItIsEnabled) {
  TextBox model;
  QWidget form;
  QPalette palette;
  palette.setColor(QPalette::Base, QColor(255, 255, 255));
  palette.setColor(QPalette::Button, QColor(200, 200, 200));
  palette.setColor(QPalette::Disabled, QPalette::Base, QColor(200, 200, 200));
  form.setPalette(palette);
  auto* frame = new QWidget(&form);
  auto* edit = new QLineEdit(frame);
  auto* binder = new TextBoxBinder(model, edit);
  model.SetBackColor(Color::System(SystemColorRole::kButtonFace));
  frame->setEnabled(false);
  binder->RefreshNow();
  // Disabled, the box shows the palette's own disabled colours.
  EXPECT_EQ(edit->palette().color(QPalette::Disabled, QPalette::Base), QColor(200, 200, 200));
  frame->setEnabled(true);
  RunEventLoopTurn();
  EXPECT_EQ(edit->palette().color(QPalette::Active, QPalette::Base), QColor(200, 200, 200));
}

}  // namespace
}  // namespace zrsimprp
