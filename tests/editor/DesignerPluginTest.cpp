#include <gtest/gtest.h>

#include <QPluginLoader>
#include <QtUiPlugin/QDesignerCustomWidgetInterface>
#include <filesystem>
#include <memory>

#include "zrsimprp/qt/SIMPropertiesWidget.h"

namespace {

const char* const kPlugin = ZRSIMPRP_BINARY_DIR "/designer/libzrsimprp_designer.so";

TEST(DesignerPlugin, CreatesTheControlInDesignMode) {
  if (!std::filesystem::exists(kPlugin)) GTEST_SKIP() << "the Designer plugin is not built (no Qt6 Designer)";
  QPluginLoader loader(QString::fromUtf8(kPlugin));
  QObject* instance = loader.instance();
  ASSERT_NE(instance, nullptr) << loader.errorString().toStdString();
  auto* plugin = qobject_cast<QDesignerCustomWidgetInterface*>(instance);
  ASSERT_NE(plugin, nullptr);
  EXPECT_EQ(plugin->name(), "zrsimprp::SIMPropertiesWidget");
  EXPECT_EQ(plugin->includeFile(), "zrsimprp/qt/SIMPropertiesWidget.h");
  EXPECT_TRUE(plugin->domXml().contains("zrsimprp::SIMPropertiesWidget"));
  std::unique_ptr<QWidget> widget(plugin->createWidget(nullptr));
  ASSERT_NE(widget, nullptr);
  EXPECT_STREQ(widget->metaObject()->className(), "zrsimprp::SIMPropertiesWidget");
}

}  // namespace
