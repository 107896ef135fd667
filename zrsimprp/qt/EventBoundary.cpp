#include "zrsimprp/qt/EventBoundary.h"

#include <QObject>
#include <QVariant>
#include <QWidget>
#include <QtGlobal>
#include <exception>

#include "zrsimprp/control/PageTable.h"
#include "zrsimprp/host/ErrorTrap.h"
#include "zrsimprp/modules/CModErrorHandling.h"
#include "zrsimprp/qt/QtPlatform.h"

namespace zrsimprp {
namespace {

constexpr const char* kPlatformProperty = "zrsimprp_event_platform";
constexpr const char* kPageProperty = "zrsimprp_event_page";
// The control's own widgets (the tabs) are its face: their events are reported as the control's.
constexpr const char* kControlModule = "SIM";

void Report(QObject* context, const char* event, const RuntimeError& error) {
  try {
    CModErrorHandling::ReportInternalError(EventBoundary::PlatformFor(context),
                                           EventBoundary::ModuleFor(context), event, error);
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

void EventBoundary::ReportAsPage(QObject* view, PageId page) {
  view->setProperty(kPageProperty, QVariant::fromValue(static_cast<int>(page)));
}

std::string EventBoundary::ModuleFor(QObject* context) {
  for (QObject* object = context; object != nullptr; object = object->parent()) {
    const QVariant page = object->property(kPageProperty);
    if (page.isValid()) return PageTable::Get(static_cast<PageId>(page.toInt())).module;
  }
  return kControlModule;
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
