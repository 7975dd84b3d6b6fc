#include "support/rib_mesh_checker.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <optional>
#include <set>
#include <vector>

#include "host/system/text.h"
#include "support/rib_parser.h"

namespace {

// clang-format off
// What the names are that need no declaration.
const std::map<std::string_view, std::string_view> kKnownVariables = {
    {"P", "vertex point"}, {"N", "varying normal"}, {"st", "varying float[2]"},
    {"s", "varying float"}, {"t", "varying float"}, {"Cs", "varying color"},
    {"Os", "varying color"}};
const std::map<std::string_view, std::size_t> kTypeSizes = {
    {"float", 1}, {"integer", 1}, {"int", 1}, {"string", 1}, {"point", 3}, {"vector", 3},
    {"normal", 3}, {"color", 3}, {"hpoint", 4}, {"matrix", 16}};
// clang-format on

// The words of a declaration, and the name that an inline one ends in.
std::vector<std::string> Words(std::string_view text) {
  std::vector<std::string> words(1);
  for (const char c : text) {
    if (c != ' ') {
      words.back() += c;
    } else if (!words.back().empty()) {
      words.emplace_back();
    }
  }
  if (words.back().empty()) words.pop_back();
  return words;
}

std::string Number(std::size_t value) {
  return std::to_string(value);
}

// How many values a variable of each class has on a mesh.
struct MeshCounts {
  std::size_t faces = 0;
  std::size_t corners = 0;
  std::size_t points = 0;

  std::optional<std::size_t> Of(std::string_view storage) const {
    if (storage == "constant") return 1;
    if (storage == "uniform") return faces;
    if (storage == "varying" || storage == "vertex") return points;
    if (storage == "facevarying" || storage == "facevertex") return corners;
    return std::nullopt;
  }
};

class MeshChecker {
 public:
  MeshChecker(const RibStatement& mesh, const RibDeclarations& declared, RibReport& report)
      : mesh_(mesh), declared_(declared), report_(report) {}

  // `first` is the argument that holds the counts of the faces.
  void Check(std::size_t first) {
    if (mesh_.Arguments.size() < first + 2 || !IsNumbers(first) || !IsNumbers(first + 1)) {
      Complain("lacks its arrays of counts and indices");
      return;
    }
    const RibArgument* points = mesh_.Parameter("P");
    if (points == nullptr || points->Numbers.size() % 3 != 0) {
      Complain("lacks P or a coordinate of it");
      return;
    }
    counts_.points = points->Numbers.size() / 3;
    CheckFaces(mesh_.Arguments[first].Numbers);
    CheckCornerIndices(mesh_.Arguments[first + 1].Numbers);
    std::size_t next = first + 2;
    if (first == 1) next = CheckTags(next);
    CheckParameters(next);
  }

 private:
  void Complain(std::string_view what) {
    ComplainAboutLine(report_, mesh_.Line, mesh_.Name + " " + std::string(what));
  }
  bool IsNumbers(std::size_t index) const {
    return mesh_.Arguments[index].kind == RibArgument::Kind::numbers;
  }

  void CheckFaces(const std::vector<double>& counts) {
    counts_.faces = counts.size();
    double corners = 0;
    for (const double count : counts) {
      if (count < 3 || count != static_cast<int>(count)) {
        Complain(host::Format("has a face of %g vertices", count));
        return;
      }
      corners += count;
    }
    counts_.corners = static_cast<std::size_t>(corners);
  }

  void CheckCornerIndices(const std::vector<double>& indices) {
    if (indices.size() != counts_.corners) {
      Complain("has " + Number(indices.size()) + " indices for " + Number(counts_.corners) +
               " corners");
    }
    CheckIndices(indices, "");
  }

  // `whose` is in front of "index" when it isn't that of a face.
  void CheckIndices(const std::vector<double>& indices, const std::string& whose) {
    for (const double index : indices) {
      if (index >= 0 && index < static_cast<double>(counts_.points)) continue;
      Complain("has the " + whose + "index " + std::to_string(static_cast<long long>(index)) +
               " into " + Number(counts_.points) + " points");
      return;
    }
  }

  // The tags of a subdivision mesh are four arrays: names, a count of integers and one of reals for
  // each, the integers, the reals. More reals than the counts say do no harm. Gives the position
  // behind them.
  std::size_t CheckTags(std::size_t next) {
    const std::vector<RibArgument>& arguments = mesh_.Arguments;
    const bool hasTags =
        next < arguments.size() && (arguments[next].kind == RibArgument::Kind::texts ||
                                    arguments[next].kind == RibArgument::Kind::numbers);
    if (!hasTags) return next;
    if (next + 4 > arguments.size()) {
      Complain("has tags without their arrays");
      return arguments.size();
    }
    const std::vector<double>& counts = arguments[next + 1].Numbers;
    if (counts.size() != 2 * arguments[next].Texts.size()) {
      Complain("has " + Number(counts.size()) + " counts for " +
               Number(arguments[next].Texts.size()) + " tags");
      return next + 4;
    }
    std::array<double, 2> sums{};
    for (std::size_t i = 0; i < counts.size(); ++i) sums[i % 2] += counts[i];
    const bool isNegative =
        std::any_of(counts.begin(), counts.end(), [](double count) { return count < 0; });
    if (isNegative || sums[0] != static_cast<double>(arguments[next + 2].Numbers.size()) ||
        sums[1] > static_cast<double>(arguments[next + 3].Numbers.size())) {
      Complain("has tags whose counts don't agree with their values");
      return next + 4;
    }
    CheckTagValues(arguments[next].Texts, counts, arguments[next + 2].Numbers);
    return next + 4;
  }

  // The integers and reals that each kind of tag takes.
  void CheckTagValues(const std::vector<std::string>& names, const std::vector<double>& counts,
                      const std::vector<double>& integers) {
    auto integer = integers.begin();
    for (std::size_t i = 0; i < names.size(); ++i) {
      const double vertices = counts[2 * i];
      const double reals = counts[2 * i + 1];
      const auto end = integer + static_cast<std::ptrdiff_t>(vertices);
      if (names[i] == "interpolateboundary") {
        if (vertices > 1 || reals != 0) Complain("has more in its boundary tag than a number");
      } else if (names[i] == "crease" || names[i] == "corner") {
        const bool isCrease = names[i] == "crease";
        const double sharp = isCrease ? vertices - 1 : vertices;
        if (sharp < 1 || (reals != 1 && reals != sharp)) {
          Complain("has a " + names[i] + " of the wrong length");
        }
        CheckIndices(std::vector<double>(integer, end), names[i] + " ");
      } else {
        Complain("has the unknown tag " + names[i]);
      }
      integer = end;
    }
  }

  void CheckParameters(std::size_t next) {
    const std::vector<RibArgument>& arguments = mesh_.Arguments;
    std::set<std::string> names;
    for (; next < arguments.size(); next += 2) {
      if (arguments[next].kind != RibArgument::Kind::text || next + 1 == arguments.size()) {
        Complain("has a parameter without name or value");
        return;
      }
      const std::string& declaration = arguments[next].Texts.front();
      CheckParameter(declaration, arguments[next + 1]);
      const std::vector<std::string> words = Words(declaration);
      if (!words.empty() && !names.insert(words.back()).second) {
        Complain("has the parameter " + words.back() + " twice");
      }
    }
  }

  void CheckParameter(const std::string& declaration, const RibArgument& value) {
    const std::optional<std::size_t> expected = ExpectedLength(declaration);
    if (!expected) {
      Complain("has the parameter \"" + declaration + "\" that is not declared");
      return;
    }
    const std::size_t found = std::max(value.Numbers.size(), value.Texts.size());
    if (found != *expected) {
      Complain("has " + Number(found) + " values of \"" + declaration + "\" and not " +
               Number(*expected));
    }
  }

  // Nothing for a parameter of unknown class or type.
  std::optional<std::size_t> ExpectedLength(const std::string& declaration) const {
    std::vector<std::string> words = Words(declaration);
    if (words.size() == 1) {
      const auto declared = declared_.find(words[0]);
      const auto known = kKnownVariables.find(words[0]);
      if (declared != declared_.end()) {
        words = Words(declared->second);
      } else if (known != kKnownVariables.end()) {
        words = Words(known->second);
      } else {
        return std::nullopt;
      }
    } else if (!words.empty()) {
      words.pop_back();
    }
    // A declaration without a class is uniform.
    if (words.size() == 1) words.insert(words.begin(), "uniform");
    if (words.size() != 2) return std::nullopt;
    const std::optional<std::size_t> count = counts_.Of(words[0]);
    const std::optional<std::size_t> size = TypeSize(words[1]);
    if (!count || !size) return std::nullopt;
    return *count * *size;
  }

  // The numbers in one value of a type such as "float[2]".
  static std::optional<std::size_t> TypeSize(const std::string& type) {
    const std::size_t bracket = type.find('[');
    const auto size = kTypeSizes.find(std::string_view(type).substr(0, bracket));
    if (size == kTypeSizes.end()) return std::nullopt;
    if (bracket == std::string::npos) return size->second;
    std::size_t length = 0;
    std::from_chars(type.data() + bracket + 1, type.data() + type.size(), length);
    return size->second * length;
  }

  const RibStatement& mesh_;
  const RibDeclarations& declared_;
  RibReport& report_;
  MeshCounts counts_;
};

}  // namespace

void CheckRibMesh(const RibStatement& mesh, const RibDeclarations& declared, RibReport& report) {
  MeshChecker(mesh, declared, report).Check(mesh.Name == "SubdivisionMesh" ? 1 : 0);
}
