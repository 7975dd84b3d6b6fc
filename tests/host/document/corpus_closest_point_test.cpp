#include <gtest/gtest.h>

#include <filesystem>
#include <limits>

#include "host/document/app.h"
#include "host/geometry/on_brep.h"
#include "host/geometry/on_brep_point.h"
#include "host/geometry/on_face_region.h"
#include "support/model_corpus.h"

// Points are looked for on the faces of all documents of the corpus.

namespace {

constexpr int kMaxFaces = 24;

// A few points of a face, with their parameters.
std::vector<ON_BrepPoint> PointsOf(const ON_Brep& brep, int face_index) {
  const auto bounds = ON_FaceRegion(brep, *brep.Face(face_index)).Bounds();
  std::vector<ON_BrepPoint> points;
  for (const double s : {0.03, 0.45, 0.98}) {
    for (const double t : {0.06, 0.5, 0.91}) {
      const auto point =
          ON_PointOnBrepFace(brep, face_index, bounds[0].ParameterAt(s), bounds[1].ParameterAt(t));
      if (point) points.push_back(*point);
    }
  }
  return points;
}

double Distance(const std::optional<ON_BrepPoint>& found, ON_3dPoint p) {
  EXPECT_TRUE(found);
  return found ? found->at.point.DistanceTo(p) : std::numeric_limits<double>::infinity();
}

// Points of the faces are found where they are. From far away, none of them is closer than the one
// that is found. Returns how many there were.
int Check(const ON_Brep& brep) {
  const ON_BoundingBox box = brep.BoundingBox();
  const double size = box.m_min.DistanceTo(box.m_max);
  const ON_3dPoint far = box.m_max + ON_3dVector{0.3, 0.7, 0.5} * size;
  double least = std::numeric_limits<double>::infinity();
  int count = 0;
  const int faces = std::min(static_cast<int>(brep.m_F.size()), kMaxFaces);
  for (int i = 0; i < faces; ++i) {
    for (const ON_BrepPoint& point : PointsOf(brep, i)) {
      const ON_3dPoint p = point.at.point;
      EXPECT_LE(Distance(ON_ClosestPointOnBrep(brep, p), p), 1e-5 * size)
          << "face " << i << " at " << point.at.u << ',' << point.at.v;
      least = std::min(least, p.DistanceTo(far));
      ++count;
    }
  }
  EXPECT_LE(Distance(ON_ClosestPointOnBrep(brep, far), far), least + 1e-9 * size);
  return count;
}

TEST(CorpusClosestPoint, PointsOfFacesAreFoundWhereTheyAre) {
  const auto corpus = ModelCorpus();
  if (!corpus) GTEST_SKIP() << "ORV_MODEL_CORPUS is not set";
  int count = 0;
  for (const char* const folder : {"real", "made"}) {
    for (const auto& entry : std::filesystem::directory_iterator(*corpus / folder)) {
      CRhinoApp app;
      app.CommandWindow().SetSink([](std::string_view) {});
      if (entry.path().extension() != ".3dm" || !app.OpenDocument(entry.path().string())) continue;
      SCOPED_TRACE(entry.path().filename());
      for (const auto& object : app.ActiveDoc().Objects()) {
        const auto* geometry = object->Geometry();
        const auto brep = geometry == nullptr ? nullptr : geometry->BrepForm();
        SCOPED_TRACE(object->Attributes().m_name);
        if (brep != nullptr) count += Check(*brep);
      }
    }
  }
  EXPECT_GT(count, 0);
}

}  // namespace
