#include "export/line_pattern.h"

#include <algorithm>
#include <array>
#include <cmath>

#include "export/coordinates.h"
#include "host/document/doc.h"

namespace orv {
namespace {

constexpr double kLeastCurveLength = 1e-5;
constexpr double kLengthTolerance = 1e-8;

// Dashes and gaps in turn, in millimetres on paper.
struct DashLengths {
  std::array<double, 6> lengths{};
  // How many segments the linetype has.
  std::size_t segments = 0;
};

// The segments count in pairs; the first pair always.
DashLengths LengthsOf(const ON_Linetype& linetype) {
  DashLengths dashes;
  dashes.segments = linetype.m_segments.size();
  const std::size_t count = std::min(dashes.segments / 2 * 2, dashes.lengths.size());
  for (std::size_t i = 0; i < count; ++i) {
    const double length = linetype.m_segments[i].m_length;
    dashes.lengths[i] = length > 0 && IsSetNumber(length) ? length : 1;
  }
  return dashes;
}

// How long a millimetre of a linetype is, in model units.
double PatternScale(const CRhinoDoc& doc) {
  return doc.Properties().ModelUnitsAndTolerances().Scale(ON_UnitSystem::millimeters) *
         doc.m_linetype_table.LinetypeScale();
}

double LengthOf(const ON_Curve& curve) {
  double length = 0;
  if (!curve.GetLength(&length, kLengthTolerance)) return 1;
  return std::max(length, kLeastCurveLength);
}

void WriteDashes(RibWriter& writer, const DashLengths& dashes, double scale, double total,
                 double frequency) {
  std::array<double, 6> parts{};
  std::transform(dashes.lengths.begin(), dashes.lengths.end(), parts.begin(),
                 [&](double length) { return length * scale / total; });
  RibPrintf(writer, "Attribute \"shade\" \"string transmissionhitmode\" \"shader\"\n");
  RibPrintf(writer, "Surface \"VDashes\" \"float Frequency\" [%g] \"float FirstDash\" [%g]\n",
            frequency, parts[0]);
  if (dashes.segments > 3) {
    RibPrintf(writer, "  \"float FirstGap\" [%g] \"float SecondDash\" [%g]\n", parts[1], parts[2]);
  }
  if (dashes.segments > 5) {
    RibPrintf(writer, "  \"float SecondGap\" [%g] \"float ThirdDash\" [%g]\n", parts[3], parts[4]);
  }
}

// The curve's length; nothing when the linetype has no pattern that can be written.
std::optional<double> WriteIfDashed(RibWriter& writer, const ON_Linetype& linetype,
                                    const ON_Curve& curve, double scale) {
  const DashLengths dashes = LengthsOf(linetype);
  double total = 0;
  for (const double length : dashes.lengths) total += length * scale;
  if (!(total > 0) || !IsSetNumber(total)) return std::nullopt;
  const double length = LengthOf(curve);
  const double frequency = length / total;
  if (!IsSetNumber(frequency)) return std::nullopt;
  WriteDashes(writer, dashes, scale, total, frequency);
  return length;
}

}  // namespace

std::optional<double> WriteLinePattern(RibWriter& writer, const CRhinoObject& object,
                                       const ON_Curve& curve, const CRhinoDoc& doc) {
  const int index = doc.m_linetype_table.EffectiveLinetypeIndex(object);
  const ON_Linetype* linetype = doc.m_linetype_table.At(index);
  if (linetype != nullptr && linetype->m_segments.size() >= 2) {
    if (const auto length = WriteIfDashed(writer, *linetype, curve, PatternScale(doc))) {
      return length;
    }
  }
  RibPrintf(writer, "Surface \"constant\"\n");
  return std::nullopt;
}

}  // namespace orv
