#pragma once

#include <string>
#include <string_view>
#include <vector>

// A checker for RIB streams: what is written is what a renderer takes.

// One argument of a statement. An array of numbers or of texts may be empty, and an empty one
// counts as numbers.
struct RibArgument {
  enum class Kind { number, text, numbers, texts };

  Kind kind = Kind::number;
  // One element for a single number or text.
  std::vector<double> Numbers;
  std::vector<std::string> Texts;
  // Where it begins.
  int Line = 0;
};

struct RibStatement {
  std::string Name;
  std::vector<RibArgument> Arguments;
  int Line = 0;

  // The value that follows the text `name` among the arguments, as in Parameter("facevarying normal
  // N"); null when there is none.
  const RibArgument* Parameter(std::string_view name) const;
};

struct RibReport {
  // What is wrong, in the order of the lines where that can be told: "line 12: ...".
  std::vector<std::string> Complaints;
  std::vector<RibStatement> Statements;

  // The statements with the name, in their order.
  std::vector<const RibStatement*> Named(std::string_view name) const;
};

// Parses a stream and checks
// - its text: known statement names, closed strings and arrays, finite numbers, no line of blanks
//   alone, no line over 4,096 bytes, an end of line at the end;
// - its blocks: each one closed, in order;
// - its polygon and subdivision meshes: indices against points, and the length of each parameter
//   against its class and type, by the names known to every renderer, by Declare or inline;
// - its patches, trims and curves: knots against orders and control points, domains inside the
//   knots, and the lengths of all arrays;
// - its bake pass: known options and attributes, and maps that are files of their own with a size.
RibReport CheckRib(std::string_view rib);
