#include "support/rib_bake_checker.h"

#include <algorithm>
#include <set>
#include <string>

#include "support/rib_parser.h"

namespace {

bool IsText(const RibStatement& statement, std::size_t index, std::string_view text) {
  return index < statement.Arguments.size() &&
         statement.Arguments[index].kind == RibArgument::Kind::text &&
         statement.Arguments[index].Texts[0] == text;
}

// The one number of an array, or nothing.
const double* OneNumber(const RibArgument& argument) {
  const bool isOne = argument.kind == RibArgument::Kind::numbers && argument.Numbers.size() == 1;
  return isOne ? argument.Numbers.data() : nullptr;
}

bool IsBakeOption(const RibStatement& option) {
  if (option.Arguments.size() != 3) return false;
  const double* number = OneNumber(option.Arguments[2]);
  if (number == nullptr) return false;
  if (IsText(option, 1, "float border")) return *number >= 0;
  return *number == 1 && (IsText(option, 1, "bakemesh") || IsText(option, 1, "integer borderwrap"));
}

// Names with commas between them, or none at all.
bool IsMapList(const std::string& list) {
  return list.empty() ||
         (list.front() != ',' && list.back() != ',' && list.find(",,") == std::string::npos);
}

bool IsBakeAttribute(const RibStatement& attribute) {
  if (attribute.Arguments.size() != 3 || !IsText(attribute, 1, "string bakemaps")) return false;
  const RibArgument& names = attribute.Arguments[2];
  return names.kind == RibArgument::Kind::texts && names.Texts.size() == 1 &&
         IsMapList(names.Texts[0]);
}

bool IsMeshAttribute(const RibStatement& attribute) {
  static const std::set<std::string> kExcluded = {"N", "st", "N,st"};
  const RibArgument* excluded = attribute.Parameter("meshexclude");
  if (excluded != nullptr)
    return !excluded->Texts.empty() && kExcluded.contains(excluded->Texts[0]);
  const RibArgument* output = attribute.Parameter("meshoutput");
  return output == nullptr || (!output->Texts.empty() && output->Texts[0].find('=') != 0 &&
                               output->Texts[0].find('=') != std::string::npos);
}

// A map is a file of its own, of a size that stands before it.
class MapChecker {
 public:
  explicit MapChecker(RibReport& report) : report_(report) {}

  void Take(const RibStatement& statement) {
    if (statement.Name == "Format") TakeFormat(statement);
    if (statement.Name == "Display") TakeDisplay(statement);
  }

 private:
  void TakeFormat(const RibStatement& format) {
    hasFormat_ = true;
    const bool isSize =
        std::all_of(format.Arguments.begin(), format.Arguments.end(), [](const RibArgument& a) {
          return a.kind == RibArgument::Kind::number && a.Numbers[0] > 0;
        });
    if (!isSize || format.Arguments.size() != 3) {
      ComplainAboutLine(report_, format.Line, "it is no size of a map");
    }
  }
  void TakeDisplay(const RibStatement& display) {
    if (!hasFormat_) ComplainAboutLine(report_, display.Line, "the map has no size");
    if (!IsText(display, 1, "file")) {
      ComplainAboutLine(report_, display.Line, "the map is no file");
    } else if (!names_.insert(display.Arguments[0].Texts[0]).second) {
      ComplainAboutLine(report_, display.Line, "another map has this file");
    }
  }

  RibReport& report_;
  bool hasFormat_ = false;
  std::set<std::string> names_;
};

bool IsMapPass(const RibReport& report) {
  return std::any_of(report.Statements.begin(), report.Statements.end(), [](const auto& statement) {
    return statement.Name == "Option" && IsText(statement, 1, "float border");
  });
}

}  // namespace

void CheckRibBake(RibReport& report) {
  const bool isMapPass = IsMapPass(report);
  MapChecker maps(report);
  for (const RibStatement& statement : report.Statements) {
    if (isMapPass) maps.Take(statement);
    const bool isOfBake = IsText(statement, 0, "bake");
    bool isSound = true;
    if (statement.Name == "Option" && isOfBake) isSound = IsBakeOption(statement);
    if (statement.Name == "Attribute" && isOfBake) isSound = IsBakeAttribute(statement);
    if (statement.Name == "Attribute" && IsText(statement, 0, "render")) {
      isSound = IsMeshAttribute(statement);
    }
    if (!isSound) {
      ComplainAboutLine(report, statement.Line, "the " + statement.Name + " is none of a bake");
    }
  }
}
