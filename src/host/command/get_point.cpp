#include "host/command/get_point.h"

#include <array>
#include <charconv>
#include <cmath>

#include "host/geometry/on_brep.h"
#include "host/system/number_text.h"
#include "host/system/text.h"

namespace {

struct Coordinates {
  std::array<double, 3> numbers{};
  std::size_t count = 0;
};

// Two or three finite numbers that commas separate.
std::optional<Coordinates> ParseCoordinates(std::string_view text) {
  Coordinates parsed;
  for (std::size_t start = 0; start != std::string_view::npos;) {
    const std::size_t comma = text.find(',', start);
    const std::string_view field =
        host::Trimmed(text.substr(start, comma == std::string_view::npos ? comma : comma - start));
    if (parsed.count == parsed.numbers.size()) return std::nullopt;
    double& number = parsed.numbers[parsed.count];
    const char* end = field.data() + field.size();
    const auto [stop, error] = std::from_chars(field.data(), end, number);
    if (error != std::errc{} || stop != end || !std::isfinite(number)) return std::nullopt;
    ++parsed.count;
    start = comma == std::string_view::npos ? comma : comma + 1;
  }
  if (parsed.count < 2) return std::nullopt;
  return parsed;
}

// What is typed for a point on a brep.
struct TypedPlace {
  std::optional<int> face_index;
  Coordinates at;
};

std::optional<TypedPlace> ParsePlace(std::string_view text) {
  TypedPlace place;
  const std::size_t colon = text.find(':');
  if (colon != std::string_view::npos) {
    const std::string_view number = host::Trimmed(text.substr(0, colon));
    const char* end = number.data() + number.size();
    int face_index = 0;
    const auto [stop, error] = std::from_chars(number.data(), end, face_index);
    if (error != std::errc{} || stop != end) return std::nullopt;
    place.face_index = face_index;
    text.remove_prefix(colon + 1);
  }
  const std::optional<Coordinates> at = ParseCoordinates(text);
  if (!at || (place.face_index && at->count != 2)) return std::nullopt;
  place.at = *at;
  return place;
}

std::string RangeText(ON_Interval domain) {
  return host::FormatG(domain.Min) + " to " + host::FormatG(domain.Max);
}

constexpr char kNoSurface[] = "The object has no surface to pick on.";

// Why there is no point of a brep at a place.
std::string WhyNotThere(const ON_Brep& brep, int face_index, bool is_named) {
  if (brep.m_F.empty()) return kNoSurface;
  const ON_BrepFace* face = brep.Face(face_index);
  const std::string last_face = std::to_string(static_cast<int>(brep.m_F.size()) - 1);
  if (face == nullptr) return "The object has the faces 0 to " + last_face + ".";
  if (!is_named) {
    return "The object has several faces: type face:u,v with a face from 0 to " + last_face + '.';
  }
  const ON_Surface& surface = brep.SurfaceOf(*face);
  return "Face " + std::to_string(face_index) + " has no point there; its surface has u from " +
         RangeText(surface.Domain(0)) + " and v from " + RangeText(surface.Domain(1)) + '.';
}

}  // namespace

std::optional<ON_3dPoint> ParsePoint(std::string_view text) {
  const std::optional<Coordinates> parsed = ParseCoordinates(text);
  if (!parsed) return std::nullopt;
  return ON_3dPoint{parsed->numbers[0], parsed->numbers[1], parsed->numbers[2]};
}

CRhinoGet::Result CRhinoGetPoint::GetPoint() {
  on_brep_.reset();
  return Get();
}

const ON_BrepFace* CRhinoGetPoint::PointOnBrep(double* u, double* v) const {
  if (!on_brep_) return nullptr;
  *u = on_brep_->at.u;
  *v = on_brep_->at.v;
  return brep_->Face(on_brep_->face_index);
}

std::optional<CRhinoGet::Result> CRhinoGetPoint::TakeText(const Answer& answer) {
  if (brep_ != nullptr) return TakePointOnBrep(answer.Text);
  const std::optional<ON_3dPoint> point = ParsePoint(answer.Text);
  if (!point) return Refuse("A point is typed as x,y,z or x,y, not '" + answer.Text + "'.");
  point_ = *point;
  return Result::point;
}

std::optional<CRhinoGet::Result> CRhinoGetPoint::TakePointOnBrep(std::string_view text) {
  const std::optional<TypedPlace> place = ParsePlace(text);
  if (!place) {
    return Refuse("A point on a surface is typed as x,y,z, u,v or face:u,v, not '" +
                  std::string(text) + "'.");
  }
  const auto& [x, y, z] = place->at.numbers;
  if (place->at.count == 3) {
    on_brep_ = ON_ClosestPointOnBrep(*brep_, {x, y, z});
    if (!on_brep_) return Refuse(kNoSurface);
  } else {
    const bool is_named = place->face_index || brep_->m_F.size() == 1;
    const int face_index = place->face_index.value_or(0);
    if (is_named) on_brep_ = ON_PointOnBrepFace(*brep_, face_index, x, y);
    if (!on_brep_) return Refuse(WhyNotThere(*brep_, face_index, is_named));
  }
  point_ = on_brep_->at.point;
  return Result::point;
}
