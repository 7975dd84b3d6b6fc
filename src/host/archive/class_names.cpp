#include "host/archive/class_names.h"

#include <algorithm>
#include <string_view>

namespace host {
namespace {

struct NamedClass {
  ON_UUID id;
  std::string_view name;
};

// clang-format off
constexpr NamedClass kClasses[] = {
    {"4ed7d4dd-e947-11d3-bfe5-0010830122f0"_uuid, "NURBS curve"},
    {"5eaf1119-0b51-11d4-bffe-0010830122f0"_uuid, "NURBS curve"},
    {"76a709d5-1550-11d4-8000-0010830122f0"_uuid, "NURBS curve"},
    {"4ed7d4db-e947-11d3-bfe5-0010830122f0"_uuid, "line"},
    {"cf33be2a-09b4-11d4-bffb-0010830122f0"_uuid, "arc"},
    {"4ed7d4e6-e947-11d3-bfe5-0010830122f0"_uuid, "polyline"},
    {"4ed7d4e0-e947-11d3-bfe5-0010830122f0"_uuid, "polycurve"},
    {"ef638317-154b-11d4-8000-0010830122f0"_uuid, "polycurve"},
    {"4ed7d4d8-e947-11d3-bfe5-0010830122f0"_uuid, "surface curve"},
    {"4ed7d4de-e947-11d3-bfe5-0010830122f0"_uuid, "NURBS surface"},
    {"4760c817-0be3-11d4-bffe-0010830122f0"_uuid, "NURBS surface"},
    {"fa4fd4b5-1613-11d4-8000-0010830122f0"_uuid, "NURBS surface"},
    {"4ed7d4df-e947-11d3-bfe5-0010830122f0"_uuid, "plane surface"},
    {"a16220d3-163b-11d4-8000-0010830122f0"_uuid, "surface of revolution"},
    {"0a8401b6-4d34-4b99-8615-1b4e723dc4e5"_uuid, "surface of revolution"},
    {"665f6331-2a66-4cce-81d0-b5eebd9b5417"_uuid, "sum surface"},
    {"c4cd5359-446d-4690-9ff5-29059732472b"_uuid, "sum surface"},
    {"4ed7d4e2-e947-11d3-bfe5-0010830122f0"_uuid, "surface proxy"},
    {"00c61749-d430-4ecc-83a8-29130a20cf9c"_uuid, "offset surface"},
    {"60b5dbc5-e660-11d3-bfe4-0010830122f0"_uuid, "brep"},
    {"f06fc243-a32a-4608-9dd8-a7d2c4ce2a36"_uuid, "brep"},
    {"0705fdef-3e2a-11d4-800e-0010830122f0"_uuid, "brep"},
    {"2d4cfedb-3e2a-11d4-800e-0010830122f0"_uuid, "brep"},
    {"36f53175-72b8-4d47-bf1f-b4e6fc24f4b9"_uuid, "extrusion"},
    {"f09ba4d9-455b-42c3-ba3b-e6ccacef853b"_uuid, "SubD"},
    {"4ed7d4e4-e947-11d3-bfe5-0010830122f0"_uuid, "mesh"},
    {"c3101a1d-f157-11d3-bfe7-0010830122f0"_uuid, "point"},
    {"2488f347-f8fa-11d3-bfec-0010830122f0"_uuid, "point cloud"},
    {"85a08513-f383-11d3-bfe7-0010830122f0"_uuid, "light"},
    {"f9cfb638-b9d4-4340-87e3-c56e7865d96a"_uuid, "block reference"},
    {"26f8bff6-2618-417f-a158-153d64a94989"_uuid, "block definition"},
    {"74198302-cdf4-4f95-9609-6d684f22ab37"_uuid, "text dot"},
    {"8bd94e19-59e1-11d4-8018-0010830122f0"_uuid, "text dot"},
    {"8bd94e1a-59e1-11d4-8018-0010830122f0"_uuid, "annotation arrow"},
    {"57376349-62a9-4a16-b411-a46bcd544790"_uuid, "text"},
    {"46f75541-f46b-48be-aa7e-b353bbe068a7"_uuid, "text"},
    {"5de6b210-486b-11d4-8014-0010830122f0"_uuid, "text"},
    {"14922b7a-5b65-4f11-8345-d415a9637129"_uuid, "leader"},
    {"945bf594-6ff9-4f5c-bfc0-b3af528f29d2"_uuid, "leader"},
    {"5de6b211-486b-11d4-8014-0010830122f0"_uuid, "leader"},
    {"e550882b-f44d-4154-a1ef-6e50cbbbf543"_uuid, "linear dimension"},
    {"bd57f33b-a1b2-46e9-9c6e-af09d30ffdde"_uuid, "linear dimension"},
    {"5de6b20d-486b-11d4-8014-0010830122f0"_uuid, "linear dimension"},
    {"fc749c2f-4c00-41fd-9840-26d94f047ad3"_uuid, "radial dimension"},
    {"b2b683fc-7964-4e96-b1f9-9b356a76b08b"_uuid, "radial dimension"},
    {"5de6b20e-486b-11d4-8014-0010830122f0"_uuid, "radial dimension"},
    {"d417786b-f6cd-4f12-9e1f-063f414dbeb6"_uuid, "angular dimension"},
    {"841bc40b-a971-4a8e-94e5-bba26d67348e"_uuid, "angular dimension"},
    {"5de6b20f-486b-11d4-8014-0010830122f0"_uuid, "angular dimension"},
    {"c8288d69-5bd8-4f50-9baf-525a0086b0c3"_uuid, "ordinate dimension"},
    {"03124828-4c9b-4d28-9a82-664ddde7a14f"_uuid, "ordinate dimension"},
    {"d46767ba-7e8f-4d9d-9a92-66050219a5b9"_uuid, "centre mark"},
    {"0559733b-5332-49d1-a936-0532ac76ade5"_uuid, "hatch"},
    {"064e7c91-35f6-4734-a446-79ff7cd659e1"_uuid, "hatch pattern"},
    {"dbc5a584-ce3f-4170-98a8-497069ca5c36"_uuid, "clipping plane"},
    {"c8c66efa-b3cb-4e00-9440-2ad66203379e"_uuid, "detail view"},
    {"4ed7d4e5-e947-11d3-bfe5-0010830122f0"_uuid, "point grid"},
    {"06936afb-3d3c-41ac-bf70-c9319fa480a1"_uuid, "cage"},
    {"d379e6d8-7c31-4407-a913-e3b7040d034a"_uuid, "cage control"},
    {"4f0f51fb-35d0-4865-9998-6d2c6a99721d"_uuid, "text style"},
    {"32ec997a-c3bf-4ae5-ab19-fd572b8ad554"_uuid, "texture mapping"},
    {"772e6fc1-b17b-4fc4-8f54-5fda511d76d2"_uuid, "embedded bitmap"},
    {"ecd0fd2f-2088-49dc-9641-9cf7a28ffa6b"_uuid, "history record"},
};
// clang-format on

}  // namespace

std::string ClassName(const ON_UUID& class_id) {
  const auto found = std::find_if(std::begin(kClasses), std::end(kClasses),
                                  [&](const NamedClass& c) { return c.id == class_id; });
  return found == std::end(kClasses) ? "class " + class_id.ToString() : std::string(found->name);
}

}  // namespace host
