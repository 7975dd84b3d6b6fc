#pragma once

#include <memory>
#include <string>
#include <utility>
#include <vector>

#include "command_fixture.h"
#include "host/geometry/on_curve.h"

// A document with named curves, and settings for a sequence of frames of it.
class SequenceTest : public CommandTest {
 protected:
  using NamedCurve = std::pair<std::string, std::shared_ptr<ON_Curve>>;

  // Puts a square and these curves into the document.
  void SetCurves(const std::vector<NamedCurve>& curves);
  static std::shared_ptr<ON_Curve> Line(ON_3dPoint from, ON_3dPoint to);

  // Scene a.rib in the test's folder.
  orv::RenderSettings SettingsFor(int mode, int frames) const;
  // Writes the frames, which must work.
  void WriteFrames(orv::RenderSettings settings);

  std::string Frame(const std::string& number) const {
    return FileContent(folder_.File("a_" + number + ".rib"));
  }
  // The frame number `number` with these statements of a camera, at time `time`.
  std::string FrameText(const std::string& number, const std::string& time,
                        const std::string& camera = {}) const;
};
