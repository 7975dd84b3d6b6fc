#include "export/nurbs_writer.h"

#include <memory>
#include <vector>

#include "export/attribute_scope.h"
#include "host/geometry/on_nurbs_curve.h"
#include "host/geometry/on_nurbs_surface.h"

namespace orv {
namespace {

constexpr int kWritten = 1;

// The NURBS form of a surface, which is in `made` unless the surface is one itself. Null when there
// is none that can be evaluated.
const ON_NurbsSurface* FormOf(const ON_Surface& surface, ON_NurbsSurface& made) {
  const ON_NurbsSurface* form = ON_NurbsSurface::Cast(&surface);
  if (form == nullptr && surface.GetNurbForm(made)) form = &made;
  return form != nullptr && form->IsValid() ? form : nullptr;
}

// The host leaves out the first and the last knot.
template <class Knots>
void WriteKnotsButLast(RibWriter& writer, const Knots& knots) {
  RibNumbers(writer, knots.front());
  for (const double knot : knots) RibNumbers(writer, knot);
}

void WriteNuPatch(RibWriter& writer, const ON_NurbsSurface& surface) {
  for (const int direction : {0, 1}) {
    const auto& knots = surface.Knots(direction);
    const ON_Interval domain = surface.Domain(direction);
    RibPrintf(writer, "%s%d %d [ ", direction == 0 ? "NuPatch " : "", surface.CVCount(direction),
              surface.Order(direction));
    WriteKnotsButLast(writer, knots);
    RibPrintf(writer, "%g ] ", knots.back());
    RibNumbers(writer, domain.Min, domain.Max);
  }
  RibPrintf(writer, "%s [ ", surface.IsRational() ? "\"Pw\"" : "\"P\"");
  for (int j = 0; j < surface.CVCount(1); ++j) {
    for (int i = 0; i < surface.CVCount(0); ++i) {
      const ON_4dPoint& cv = surface.CV(i, j);
      if (surface.IsRational()) {
        RibNumbers(writer, cv.x, cv.y, cv.z, cv.w);
      } else {
        RibNumbers(writer, cv.x, cv.y, cv.z);
      }
    }
  }
  RibPrintf(writer, "]\n");
}

void WriteSides(RibWriter& writer, const ON_BrepFace& face) {
  // The texture's t axis points the other way in RIB.
  RibPrintf(writer, "TextureCoordinates [ 0 1 1 1 0 0 1 0 ]\n");
  if (face.m_bRev) RibPrintf(writer, "ReverseOrientation\n");
}

// Writes the faces of a brep.
class FaceWriter {
 public:
  FaceWriter(RibWriter& writer, const ON_Brep& brep) : writer_(writer), brep_(brep) {}

  void WriteFace(const ON_BrepFace& face, bool isTrimmed) {
    BeginAttributes(writer_);
    WriteSides(writer_, face);
    if (isTrimmed) WriteTrimCurve(face);
    ON_NurbsSurface made;
    const ON_NurbsSurface* surface = FormOf(brep_.SurfaceOf(face), made);
    if (surface != nullptr) WriteNuPatch(writer_, *surface);
    EndAttributes(writer_);
  }

 private:
  // The curves of a face's trims that can be evaluated.
  void GatherTrims(const ON_BrepFace& face) {
    trims_.clear();
    made_.clear();
    for (const int loop : face.m_li) {
      for (const int trim : brep_.m_L[static_cast<std::size_t>(loop)].m_ti) {
        AddTrim(brep_.CurveOf(brep_.m_T[static_cast<std::size_t>(trim)]));
      }
    }
  }

  void AddTrim(const ON_Curve& curve) {
    const ON_NurbsCurve* form = ON_NurbsCurve::Cast(&curve);
    if (form == nullptr) form = made_.emplace_back(curve.NurbsCurve()).get();
    if (form != nullptr && form->IsValid()) trims_.push_back(form);
  }

  // One array: what `write` writes of each trim.
  template <class Write>
  void WriteArray(Write write) {
    RibPrintf(writer_, "] [ ");
    for (const ON_NurbsCurve* trim : trims_) write(*trim);
  }

  void WriteTrimCurve(const ON_BrepFace& face) {
    GatherTrims(face);
    RibPrintf(writer_, "TrimCurve [ ");
    for (const int loop : face.m_li) {
      const auto& trims = brep_.m_L[static_cast<std::size_t>(loop)].m_ti;
      RibIntegers(writer_, static_cast<int>(trims.size()));
    }
    WriteArray([this](const ON_NurbsCurve& trim) { RibIntegers(writer_, trim.Order()); });
    WriteArray([this](const ON_NurbsCurve& trim) {
      WriteKnotsButLast(writer_, trim.m_knot);
      RibNumbers(writer_, trim.m_knot.back());
    });
    WriteArray([this](const ON_NurbsCurve& trim) { RibNumbers(writer_, trim.Domain().Min); });
    WriteArray([this](const ON_NurbsCurve& trim) { RibNumbers(writer_, trim.Domain().Max); });
    WriteArray([this](const ON_NurbsCurve& trim) { RibIntegers(writer_, trim.CVCount()); });
    WriteCoordinates(&ON_4dPoint::x);
    WriteCoordinates(&ON_4dPoint::y);
    // The weights of a curve without weights are 1.
    WriteArray([this](const ON_NurbsCurve& trim) {
      for (const ON_4dPoint& cv : trim.m_cv) RibNumbers(writer_, trim.IsRational() ? cv.w : 1.0);
    });
    RibPrintf(writer_, "]\n");
  }

  void WriteCoordinates(double ON_4dPoint::*coordinate) {
    WriteArray([&](const ON_NurbsCurve& trim) {
      for (const ON_4dPoint& cv : trim.m_cv) RibNumbers(writer_, cv.*coordinate);
    });
  }

  RibWriter& writer_;
  const ON_Brep& brep_;
  // Of the face that is being written, by loops.
  std::vector<const ON_NurbsCurve*> trims_;
  // Those of them that had to be made.
  std::vector<std::unique_ptr<ON_NurbsCurve>> made_;
};

void WriteWholeSurface(RibWriter& writer, const ON_Brep& brep) {
  ON_NurbsSurface made;
  const ON_NurbsSurface* surface = FormOf(*brep.m_S.front(), made);
  if (surface == nullptr) return;
  WriteSides(writer, brep.m_F.front());
  WriteNuPatch(writer, *surface);
}

// A face that can't be stretched keeps its domain.
void Reparameterize(const RibWriter& writer, ON_Brep& brep, int face) {
  if (writer.Reparameterize != 0) static_cast<void>(brep.SetFaceDomain(face, {0, 1}, {0, 1}));
}

}  // namespace

int WriteBrep(RibWriter& writer, ON_Brep brep) {
  brep.Compact();
  if (brep.IsSurface()) {
    Reparameterize(writer, brep, 0);
    WriteWholeSurface(writer, brep);
    return kWritten;
  }
  const std::size_t curves = brep.m_C2.size(), surfaces = brep.m_S.size();
  FaceWriter faceWriter(writer, brep);
  for (int i = 0; i < static_cast<int>(brep.m_F.size()); ++i) {
    Reparameterize(writer, brep, i);
    faceWriter.WriteFace(brep.m_F[static_cast<std::size_t>(i)], !brep.FaceIsSurface(i));
    // What was made for this face: all faces' at once might fill the memory.
    brep.m_C2.resize(curves);
    brep.m_S.resize(surfaces);
  }
  return kWritten;
}

}  // namespace orv
