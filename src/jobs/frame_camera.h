#pragma once

#include <optional>
#include <string>

#include "host/geometry/on_curve_lengths.h"
#include "settings/render_settings.h"

class CRhinoDoc;

namespace orv {

// The first curve of the document with that name, in any case; null when there is none, and for an
// empty name. Hidden and locked ones count.
const ON_Curve* FindNamedCurve(CRhinoDoc& doc, std::string_view name);

// The camera that moves along curves, from frame to frame of a sequence: along one path, looking
// ahead, or at the same time along a second one, at which it looks. Nothing changes while it is in
// use.
class FrameCamera {
 public:
  // `target` is null for a camera that looks ahead. The lengths of lenses are in millimetres;
  // `unitsPerMillimeter` turns them into those of the model.
  FrameCamera(const ON_Curve& path, const ON_Curve* target, const RenderSettings& settings,
              double unitsPerMillimeter);

  // The statements of the camera of frame `frame`, counted from 0.
  std::string Statements(int frame) const;

 private:
  // A curve and the way along it.
  struct Track {
    explicit Track(const ON_Curve& curve) : Curve(curve), Lengths(curve) {}
    ON_3dPoint PointAfter(double fraction) const {
      return Curve.PointAt(Lengths.NormalizedArcLengthPoint(fraction));
    }
    const ON_Curve& Curve;
    ON_CurveLengths Lengths;
  };

  // The part of the way that is behind a frame: all frames share it evenly.
  double FractionBefore(int frame) const;
  std::string DepthOfField(double focusDistance) const;

  Track path_;
  std::optional<Track> target_;
  const RenderSettings& settings_;
  double unitsPerMillimeter_;
};

}  // namespace orv
