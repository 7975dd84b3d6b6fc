#include "vrml_checker.h"

#include <charconv>
#include <cmath>

namespace {

constexpr std::string_view kHead = "#VRML V2.0 utf8\n";

bool IsBlank(char c) {
  return c == ' ' || c == ',' || c == '\t' || c == '\r' || c == '\n';
}
bool IsBracket(char c) {
  return c == '{' || c == '}' || c == '[' || c == ']';
}

class Reader {
 public:
  explicit Reader(std::string_view vrml) : vrml_(vrml) {}

  VrmlReport Read() {
    if (!vrml_.starts_with(kHead)) Complain("it has no head");
    at_ = kHead.size();
    while (Next()) {
      if (token_ == "Background") {
        ReadBackground();
      } else if (token_ == "Viewpoint") {
        ReadViewpoint();
      } else if (token_ == "Shape") {
        ReadShape();
      } else {
        Complain("it is no node");
      }
      if (!report_.complaints.empty()) break;
    }
    return std::move(report_);
  }

 private:
  void Complain(std::string_view what) {
    const std::size_t end = std::min(at_, vrml_.size());
    const std::size_t start = end < 40 ? 0 : end - 40;
    report_.complaints.push_back("behind '" + std::string(vrml_.substr(start, end - start)) +
                                 "': " + std::string(what));
  }

  // Moves to the next token; false at the end.
  bool Next() {
    token_ = {};
    while (at_ < vrml_.size() && (IsBlank(vrml_[at_]) || vrml_[at_] == '#')) {
      at_ = vrml_[at_] == '#' ? std::min(vrml_.find('\n', at_), vrml_.size()) : at_ + 1;
    }
    if (at_ >= vrml_.size()) return false;
    const std::size_t start = at_;
    if (vrml_[at_] == '"') return NextText();
    if (IsBracket(vrml_[at_])) {
      ++at_;
    } else {
      while (at_ < vrml_.size() && !IsBlank(vrml_[at_]) && !IsBracket(vrml_[at_])) ++at_;
    }
    token_ = vrml_.substr(start, at_ - start);
    return true;
  }

  bool NextText() {
    token_ = "\"";
    for (++at_; at_ < vrml_.size() && vrml_[at_] != '"'; ++at_) {
      if (vrml_[at_] == '\\' && at_ + 1 < vrml_.size()) ++at_;
      token_ += vrml_[at_];
    }
    if (at_ >= vrml_.size()) Complain("a text is not closed");
    ++at_;
    return true;
  }

  void Expect(std::string_view token) {
    if (!Next() || token_ != token) {
      Complain("'" + std::string(token) + "' is expected, not '" + token_ + "'");
    }
  }
  void Expect(std::initializer_list<std::string_view> tokens) {
    for (const std::string_view token : tokens) Expect(token);
  }

  double Number() {
    double number = 0;
    const auto [end, error] = std::from_chars(token_.data(), token_.data() + token_.size(), number);
    if (error != std::errc() || end != token_.data() + token_.size() || !std::isfinite(number)) {
      Complain("'" + token_ + "' is no finite number");
    }
    return number;
  }
  template <std::size_t N>
  std::array<double, N> Numbers() {
    std::array<double, N> numbers{};
    for (double& number : numbers) {
      Next();
      number = Number();
    }
    return numbers;
  }
  // The numbers up to the closing bracket.
  std::vector<double> Array() {
    std::vector<double> numbers;
    Expect("[");
    while (report_.complaints.empty() && Next() && token_ != "]") numbers.push_back(Number());
    return numbers;
  }
  std::string Text() {
    Next();
    if (!token_.starts_with('"')) Complain("'" + token_ + "' is no text");
    return token_.substr(std::min<std::size_t>(token_.size(), 1));
  }

  template <std::size_t N>
  std::vector<std::array<double, N>> Tuples() {
    const std::vector<double> numbers = Array();
    if (numbers.size() % N != 0) Complain("a number is missing");
    std::vector<std::array<double, N>> tuples(numbers.size() / N);
    for (std::size_t i = 0; i < tuples.size() * N; ++i) tuples[i / N][i % N] = numbers[i];
    return tuples;
  }

  void ReadBackground() {
    Expect({"{", "skyColor"});
    report_.sky = Array();
    if (report_.sky.size() != 3) Complain("it is no colour");
    Expect("}");
  }

  void ReadViewpoint() {
    VrmlView& view = report_.views.emplace_back();
    Expect({"{", "position"});
    view.position = Numbers<3>();
    Expect("fieldOfView");
    view.fieldOfView = Numbers<1>()[0];
    Expect("orientation");
    view.orientation = Numbers<4>();
    const auto& [x, y, z, angle] = view.orientation;
    if (std::fabs(std::hypot(x, y, z) - 1) > 1e-5) Complain("the axis has no unit length");
    Expect("description");
    view.description = Text();
    Expect("}");
  }

  void ReadShape() {
    Expect({"{", "appearance", "Appearance", "{", "texture", "ImageTexture", "{", "repeatS",
            "FALSE", "repeatT", "FALSE", "url"});
    VrmlShape& shape = report_.shapes.emplace_back();
    shape.map = Text();
    Expect({"}", "}"});
    while (report_.complaints.empty() && Next() && token_ == "geometry") {
      shape.meshes.push_back(ReadMesh());
    }
    if (token_ != "}") Complain("the shape is not closed");
  }

  VrmlMesh ReadMesh() {
    VrmlMesh mesh;
    Expect(
        {"IndexedFaceSet", "{", "ccw", "FALSE", "convex", "TRUE", "solid", "FALSE", "coordIndex"});
    const std::vector<double> indices = Array();
    Expect({"coord", "Coordinate", "{", "point"});
    mesh.points = Tuples<3>();
    Expect({"}", "texCoord", "TextureCoordinate", "{", "point"});
    mesh.texture = Tuples<2>();
    Expect({"}", "}"});
    TakeFaces(indices, mesh);
    if (mesh.texture.size() != mesh.points.size()) Complain("texture coordinates are missing");
    return mesh;
  }

  void TakeFaces(const std::vector<double>& indices, VrmlMesh& mesh) {
    std::vector<int> face;
    for (const double index : indices) {
      if (index == -1) {
        if (face.size() < 3 || face.size() > 4) Complain("a face has no three or four corners");
        mesh.faces.push_back(face);
        face.clear();
      } else if (index >= 0 && index < static_cast<double>(mesh.points.size())) {
        face.push_back(static_cast<int>(index));
      } else {
        Complain("a corner is no point");
      }
    }
    if (!face.empty()) Complain("a face is not closed");
  }

  std::string_view vrml_;
  std::size_t at_ = 0;
  std::string token_;
  VrmlReport report_;
};

}  // namespace

VrmlReport CheckVrml(std::string_view vrml) {
  return Reader(vrml).Read();
}
