#include "support/rib_nurbs_checker.h"

#include <algorithm>
#include <numeric>
#include <string>
#include <vector>

#include "support/rib_parser.h"

namespace {

using Numbers = std::vector<double>;

// One statement under examination.
class Checker {
 public:
  Checker(const RibStatement& statement, RibReport& report)
      : statement_(statement), report_(report) {}

  void CheckPatch() {
    if (!HasNumbers(10)) return;
    std::size_t points = 1;
    for (std::size_t direction = 0; direction < 10; direction += 5) {
      const double count = Number(direction), order = Number(direction + 1);
      CheckKnots(Array(direction + 2), count, order, Number(direction + 3), Number(direction + 4));
      points *= Count(count);
    }
    CheckPoints(points);
  }

  void CheckTrims() {
    if (!HasNumbers(9)) return;
    const Numbers &orders = Array(1), &knots = Array(2), &low = Array(3), &high = Array(4),
                  &counts = Array(5);
    if (Sum(Array(0)) != static_cast<double>(orders.size())) {
      Complain("the loops have more or fewer curves than there are orders");
    }
    if (low.size() != orders.size() || high.size() != orders.size() ||
        counts.size() != orders.size()) {
      return Complain("the arrays of the curves differ in length");
    }
    std::size_t knot = 0;
    for (std::size_t i = 0; i < orders.size(); ++i) {
      const std::size_t length = Count(counts[i]) + Count(orders[i]);
      if (knot + length > knots.size()) return Complain("there are too few knots");
      const Numbers own(knots.begin() + static_cast<std::ptrdiff_t>(knot),
                        knots.begin() + static_cast<std::ptrdiff_t>(knot + length));
      CheckKnots(own, counts[i], orders[i], low[i], high[i]);
      knot += length;
    }
    if (knot != knots.size()) Complain("there are too many knots");
    for (std::size_t i = 6; i < 9; ++i) {
      if (static_cast<double>(Array(i).size()) != Sum(counts)) {
        Complain("a coordinate of the control points has the wrong count");
      }
    }
  }

  void CheckNurbsCurves() {
    if (!HasNumbers(5)) return;
    const Numbers &counts = Array(0), &orders = Array(1);
    if (counts.size() != 1 || orders.size() != 1) return Complain("it isn't one curve");
    CheckKnots(Array(2), counts[0], orders[0], Number(3), Number(4));
    CheckPoints(Count(counts[0]));
  }

  void CheckCurves() {
    if (statement_.Arguments.size() < 3) return Complain("it has too few arguments");
    const Numbers& counts = Array(1);
    CheckPoints(Count(Sum(counts)));
    const RibArgument* t = statement_.Parameter("varying float t");
    if (t != nullptr && static_cast<double>(t->Numbers.size()) != Sum(counts)) {
      Complain("t has the wrong count");
    }
  }

  void CheckPointSet() {
    const RibArgument* points = statement_.Parameter("P");
    if (points == nullptr) return Complain("it has no P");
    const RibArgument* colors = statement_.Parameter("varying color Cs");
    if (points->Numbers.size() % 3 != 0) Complain("P has the wrong count");
    if (colors != nullptr && colors->Numbers.size() != points->Numbers.size()) {
      Complain("Cs has the wrong count");
    }
  }

 private:
  void Complain(const std::string& what) {
    ComplainAboutLine(report_, statement_.Line, statement_.Name + ": " + what);
  }

  static double Sum(const Numbers& numbers) {
    return std::accumulate(numbers.begin(), numbers.end(), 0.0);
  }
  static std::size_t Count(double number) {
    return number > 0 ? static_cast<std::size_t>(std::min(number, 1e9)) : 0;
  }

  // True when the first arguments are numbers or arrays of them.
  bool HasNumbers(std::size_t count) {
    const auto isNumeric = [](const RibArgument& a) {
      return a.kind == RibArgument::Kind::number || a.kind == RibArgument::Kind::numbers;
    };
    const std::vector<RibArgument>& arguments = statement_.Arguments;
    const bool has = arguments.size() >= count &&
                     std::all_of(arguments.begin(),
                                 arguments.begin() + static_cast<std::ptrdiff_t>(count), isNumeric);
    if (!has) Complain("it has too few numbers");
    return has;
  }
  const Numbers& Array(std::size_t i) const { return statement_.Arguments[i].Numbers; }
  double Number(std::size_t i) const { return Array(i).size() == 1 ? Array(i)[0] : 0; }

  void CheckKnots(const Numbers& knots, double count, double order, double low, double high) {
    if (order < 2 || count < order) return Complain("it has fewer control points than its order");
    if (static_cast<double>(knots.size()) != count + order) {
      return Complain("it has " + std::to_string(knots.size()) + " knots");
    }
    if (!std::is_sorted(knots.begin(), knots.end())) Complain("its knots decrease");
    if (!(low < high)) Complain("its domain is empty");
    if (low < knots[Count(order) - 1] || high > knots[Count(count)]) {
      Complain("its domain goes beyond its knots");
    }
  }

  void CheckPoints(std::size_t count) {
    const RibArgument* plain = statement_.Parameter("P");
    const RibArgument* weighted = statement_.Parameter("Pw");
    if ((plain == nullptr) == (weighted == nullptr)) return Complain("it needs either P or Pw");
    const std::size_t expected = plain != nullptr ? 3 * count : 4 * count;
    if ((plain != nullptr ? plain : weighted)->Numbers.size() != expected) {
      Complain("its points have the wrong count");
    }
  }

  const RibStatement& statement_;
  RibReport& report_;
};

}  // namespace

void CheckRibNurbs(const RibStatement& statement, RibReport& report) {
  Checker checker(statement, report);
  if (statement.Name == "NuPatch") checker.CheckPatch();
  if (statement.Name == "TrimCurve") checker.CheckTrims();
  if (statement.Name == "NuCurves") checker.CheckNurbsCurves();
  if (statement.Name == "Curves") checker.CheckCurves();
  if (statement.Name == "Points") checker.CheckPointSet();
}
