#include "host/modeling/measurement_text.h"

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <numbers>
#include <string_view>

#include "host/system/text.h"

namespace host {
namespace {

// Above this a number is told without fractions.
constexpr double kMaxWhole = 1e15;

void DropZeros(std::string& number, int suppressed) {
  const bool drops_first = suppressed == 1 || suppressed == 3;
  const bool drops_last = suppressed == 2 || suppressed == 3;
  if (drops_last && Contains(number, ".")) {
    number.resize(number.find_last_not_of('0') + 1);
    if (number.ends_with('.')) number.pop_back();
  }
  if (drops_first && number.starts_with("0.")) number.erase(0, 1);
}

std::string Decimal(double value, int digits, int suppressed_zeros) {
  std::string number = Format("%.*f", std::clamp(digits, 0, 15), value);
  DropZeros(number, suppressed_zeros);
  return number;
}

// A number of halves, quarters, eighths: 2^`digits` make a whole one. "1-3/4".
std::string Fraction(double value, int digits) {
  const std::int64_t parts = std::int64_t{1} << std::clamp(digits, 0, 8);
  if (!(std::abs(value) <= kMaxWhole)) return Decimal(value, 0, 0);
  const auto count = static_cast<std::int64_t>(std::llround(value * static_cast<double>(parts)));
  const std::int64_t whole = count / parts;
  std::int64_t over = count % parts;
  std::int64_t under = parts;
  if (over == 0) return std::to_string(whole);
  while (over % 2 == 0) {
    over /= 2;
    under /= 2;
  }
  const std::string fraction = std::to_string(over) + "/" + std::to_string(under);
  return whole == 0 ? fraction : std::to_string(whole) + "-" + fraction;
}

// 14.75 inches are 1'-2-3/4".
std::string FeetAndInches(double inches, int digits) {
  const double parts = std::exp2(std::clamp(digits, 0, 8));
  if (!(std::abs(inches) <= kMaxWhole)) return Decimal(inches / 12, 0, 0) + "'";
  const double rounded = std::round(inches * parts) / parts;
  const double feet = std::floor(rounded / 12);
  const std::string rest = Fraction(rounded - 12 * feet, digits) + "\"";
  return feet == 0 ? rest : Decimal(feet, 0, 0) + "'-" + rest;
}

// Factors and multiples that are none, or that lead to no number, change nothing.
double Scaled(double length, double factor) {
  const double scaled = length * factor;
  return factor > 0 && ON_IsValid(scaled) ? scaled : length;
}
double Rounded(double length, double multiple) {
  if (!(multiple > 0)) return length;
  const double rounded = std::round(length / multiple) * multiple;
  return ON_IsValid(rounded) ? rounded : length;
}

std::string Length(double length, const ON_DimStyle& style) {
  const double value = Rounded(Scaled(length, style.m_lengthfactor), style.m_round);
  // Points too far apart for any number.
  if (!ON_IsValid(value)) return "?";
  switch (style.m_lengthformat) {
    case 1:
      return Fraction(value, style.m_lengthresolution);
    case 2:
      return FeetAndInches(value, style.m_lengthresolution);
    default:
      return Decimal(value, style.m_lengthresolution, style.m_zerosuppress);
  }
}

std::string DegreesMinutesSeconds(double degrees) {
  const auto seconds = static_cast<std::int64_t>(std::llround(degrees * 3600));
  return Format("%d\u00b0%d'%d\"", static_cast<int>(seconds / 3600),
                static_cast<int>(seconds / 60 % 60), static_cast<int>(seconds % 60));
}

std::string Angle(double radians, const ON_DimStyle& style) {
  constexpr double kDegree = std::numbers::pi / 180;
  constexpr double kGradian = std::numbers::pi / 200;
  const auto decimal = [&style](double value) {
    return Decimal(value, style.m_angleresolution, style.m_anglezerosuppress);
  };
  switch (style.m_angleformat) {
    case 1:
      return DegreesMinutesSeconds(radians / kDegree);
    case 2:
      return decimal(radians) + "rad";
    case 3:
      return decimal(radians / kGradian) + "g";
    default:
      return decimal(radians / kDegree) + "\u00b0";
  }
}

bool IsDimension(const ON_Annotation& annotation) {
  return annotation.m_type != ON_Annotation::Type::text &&
         annotation.m_type != ON_Annotation::Type::leader;
}

// Puts a number into each place for one. More text than anybody could draw gets no further ones.
std::string Filled(std::string_view text, std::string_view number) {
  constexpr std::string_view kPlace = "<>";
  constexpr std::size_t kEnough = std::size_t{1} << 20;
  std::string filled;
  std::size_t from = 0;
  for (std::size_t at = text.find(kPlace); at != std::string_view::npos && filled.size() < kEnough;
       at = text.find(kPlace, from)) {
    filled.append(text.substr(from, at - from)).append(number);
    from = at + kPlace.size();
  }
  return filled.append(text.substr(from));
}

}  // namespace

std::string MeasurementText(const ON_Annotation& annotation, const ON_DimStyle& style) {
  if (!IsDimension(annotation)) return annotation.m_text;
  const double measured = annotation.Measurement();
  const bool is_angle = annotation.m_type == ON_Annotation::Type::angular;
  const std::string number = is_angle ? Angle(measured, style) : Length(measured, style);
  return Filled(annotation.m_text, style.m_prefix + number + style.m_suffix);
}

}  // namespace host
