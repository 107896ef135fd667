#include "zrsimprp/qt/EventBoundary.h"

#include <QObject>
#include <QVariant>
#include <QWidget>
#include <QtGlobal>
#include <exception>

#include "zrsimprp/host/ErrorTrap.h"
#include "zrsimprp/modules/CModErrorHandling.h"
#include "zrsimprp/qt/QtPlatform.h"

namespace zrsimprp {
namespace {

constexpr const char* kPlatformProperty = "zrsimprp_event_platform";
// The widget is the control's face: its events are reported as the control's.
constexpr const char* kModule = "SIM";

void Report(QObject* context, const char* event, const RuntimeError& error) {
  try {
    CModErrorHandling::ReportInternalError(EventBoundary::PlatformFor(context), kModule, event, error);
  } catch (...) {
    // A platform that cannot even show the report leaves only the log.
    qWarning("ZrSIMPrp: %s failed and its report could not be shown: %s", event, error.description.c_str());
  }
}

}  // namespace

void EventBoundary::ReportThrough(QObject* root, Platform& platform) {
  root->setProperty(kPlatformProperty, QVariant::fromValue(static_cast<void*>(&platform)));
}

Platform& EventBoundary::PlatformFor(QObject* context) {
  for (QObject* object = context; object != nullptr; object = object->parent()) {
    const QVariant platform = object->property(kPlatformProperty);
    if (platform.isValid()) return *static_cast<Platform*>(platform.value<void*>());
  }
  static QtPlatform loose_views_platform;
  return loose_views_platform;
}

bool EventBoundary::Run(QObject* context, const char* event, const std::function<void()>& action) {
  try {
    return RunTrapped(action, [&](const RuntimeError& error) { Report(context, event, error); });
  } catch (...) {
    Report(context, event,
           RuntimeError(error_number::kApplicationDefined, "ZrSIMPrp", "An unknown error has occurred"));
    return false;
  }
}

}  // namespace zrsimprp
