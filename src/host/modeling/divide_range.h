#pragma once

#include <cstddef>
#include <vector>

namespace host {

// Divides the range from `a` to `b` and appends the end of each piece to `ends`. `pieces_on(a, b)`
// tells into how many equal pieces a range is to be divided, 1 when it is short enough; each piece
// is asked again, at most six times deep and until there are `most` ends.
template <class PiecesOn>
void DivideRange(double a, double b, std::size_t most, const PiecesOn& pieces_on,
                 std::vector<double>& ends, int depth = 0) {
  constexpr int kDeepest = 6;
  const int pieces = depth < kDeepest && ends.size() < most ? pieces_on(a, b) : 1;
  if (pieces == 1) {
    ends.push_back(b);
    return;
  }
  double from = a;
  for (int i = 1; i <= pieces; ++i) {
    const double to = i == pieces ? b : a + (b - a) * i / pieces;
    DivideRange(from, to, most, pieces_on, ends, depth + 1);
    from = to;
  }
}

}  // namespace host
