// What is fitted to a girder in its elevation: man holes (block 408), studs (402), camber (259).
#pragma once

#include "drawing/girder_joints.h"
#include "results/records.h"

#include <functional>

namespace sbd {

/// A level of the girder at x, in mm.
using LevelAt = std::function<double(double x)>;

/// The man holes of the web on show; `webFoot` is the upper face of the lower flange.
void DrawManHoles(CDrawingBuild& build, const CSbdData& data, const CGirderLine& line, const LevelAt& webFoot);
/// The rows of studs behind each splice.
void DrawStuds(CDrawingBuild& build, const CSbdData& data, const CGirderLine& line,
               const std::vector<GirderSplice>& splices, const LevelAt& flangeTop);
/// The deflections that block 259 names, upward and enlarged.
void DrawCamber(CDrawingBuild& build, const CSbdData& data, const AnalysisResults& results, const CGirderLine& line);

} // namespace sbd
