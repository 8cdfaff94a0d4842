// The dialogue of the sensor view: a menu of what to set and what to write, until the user leaves it.
#pragma once

#include "analysis/sea_view/sensor_view.h"
#include "analysis/sensor_settings.h"
#include "base/platform.h"
#include "case/case_store.h"
#include "case/output_settings.h"

namespace zaview {

// result: what was written last, if anything.
void AskSensorView(const Platform& platform, const OutputSettings& settings, SensorSettings& sensor,
                   CaseStore& case_store, SensorViewResult& result);

}  // namespace zaview
