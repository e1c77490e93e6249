// SPDX-License-Identifier: MIT
#pragma once

#include "region/plan_record.h"

namespace sylvomex {

/// Plans a region: which images, which model tree and which part of the models serve each task,
/// and what it costs. bundle: tasks of a bundle, about.
///
/// A plot or tile that cannot be done is left out with its cause: outside the images or the models,
/// no model tree in reach. An image without its raster and plots that overlap are noted. Refused
/// when site, models, trees or headers cannot be read, and when no task is left.
RegionPlan Plan_Region(const RegionOrder& order, int bundle);

}  // namespace sylvomex
