#include <QSettings>
#include <QStringList>

#include "EditorFixture.h"
#include "zrsim-editor/PersonalSettings.h"

namespace {

using zrsim_editor::PersonalSettings;

class EditorRememberedViewTest : public EditorFixture {
 protected:
  // What a settings file from another version, or edited by hand, may hold.
  void RememberTab(int tab) {
    const QString group = PersonalSettings::GroupFor(Sample(), "Sample simulation");
    QSettings().setValue(group + "/SIMProperties/CurrentTab",
                         QStringList{QStringLiteral("int16"), QString::number(tab)});
  }
};

TEST_F(EditorRememberedViewTest, ATabPositionTheControlRefusesIsForgottenAndTheSimulationOpens) {
  RememberTab(9);
  OpenWindow();  // asserts that Load succeeded
  ASSERT_EQ(shown_.size(), 1u);
  EXPECT_EQ(shown_[0].text,
            "The remembered view of the simulation 'Sample simulation' (its tabs) could not be used "
            "(Invalid property value), so it was forgotten.");
  EXPECT_EQ(shown_[0].text.find('\n'), std::string::npos);
  EXPECT_EQ(window_->Properties().CurrentOuterTab(), 0);
  // Forgotten for good: the next opening says nothing.
  CloseWindow();
  shown_.clear();
  OpenWindow();
  EXPECT_TRUE(shown_.empty());
}

TEST_F(EditorRememberedViewTest, ATabPositionTheControlAcceptsIsKeptWithoutAWord) {
  RememberTab(2);
  OpenWindow();
  EXPECT_TRUE(shown_.empty());
  EXPECT_EQ(window_->Properties().CurrentOuterTab(), 2);
}

TEST_F(EditorRememberedViewTest, OnlyTheRefusedSimulationsViewIsForgotten) {
  const QString other = PersonalSettings::GroupFor(Sample(), "Other simulation");
  QSettings().setValue(other + "/SIMProperties/CurrentTab", QStringList{QStringLiteral("int16"), "3"});
  RememberTab(9);
  OpenWindow();
  EXPECT_TRUE(QSettings().contains(other + "/SIMProperties/CurrentTab"));
}

}  // namespace
